#include "workspace/window/tooltips.h"

#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

namespace corvane {

namespace {

class ItemTips : public QObject {
public:
    explicit ItemTips(QAbstractItemView& list) : QObject(&list), list_(list)
    {
        list.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        const auto* help = event->type() == QEvent::ToolTip ? dynamic_cast<QHelpEvent*>(event) : nullptr;
        if (help == nullptr)
            return false;
        const QModelIndex item = list_.indexAt(help->pos());
        showTip(help->globalPos(), item.data(Qt::ToolTipRole).toString(), *list_.viewport());
        return true;
    }

private:
    QAbstractItemView& list_;
};

/// Also sets the description, because otherwise assistive technology would read the tooltip's markup. What the tooltip
/// said until now does not stay on the screen.
void setTip(QWidget& widget, const QString& drawn, const QString& spoken)
{
    const QString before = widget.toolTip();
    widget.setToolTip(tip(drawn));
    if (widget.toolTip() != before && QToolTip::text() == before)
        hideTip();
    if (widget.accessibleDescription() != spoken)
        widget.setAccessibleDescription(spoken);
}

} // namespace

QString tip(const QString& text)
{
    constexpr qsizetype longest = 80; // the toolkit wraps only markup
    const auto isLong = [](const QString& line) { return line.size() > longest; };
    if (!Qt::mightBeRichText(text) && std::ranges::none_of(text.split('\n'), isLong))
        return text;
    return "<p style=\"white-space: pre-wrap\">" + withBreaks(text).toHtmlEscaped().replace("\n", "<br>") + "</p>";
}

void setTip(QWidget& widget, const QString& text)
{
    setTip(widget, text, text);
}

void setTip(QWidget& widget, const std::vector<std::string>& lines)
{
    QStringList drawn;
    QStringList spoken;
    for (const std::string& line : lines) {
        drawn << shown(line);
        spoken << qt(line);
    }
    setTip(widget, drawn.join("\n"), spoken.join("\n"));
}

void showTip(const QPoint& place, const QString& text, QWidget& over)
{
    QToolTip::showText(place, tip(text), &over);
}

void hideTip()
{
    QToolTip::hideText();
}

void escapeItemTips(QAbstractItemView& list)
{
    new ItemTips(list); // owned by the list
}

} // namespace corvane
