#include "workspace/window/controls/panel.h"

#include "workspace/window/tooltips.h"

#include <QResizeEvent>
#include <algorithm>

namespace corvane {

Panel::Panel(const QString& title, ContentView& view, QWidget* parent)
    : QFrame(parent), view_(view), column_(new QVBoxLayout(this)), title_(new QLabel(title, this))
{
    setObjectName(title);
    setAccessibleName(title);
    column_->setContentsMargins(14, 12, 14, 14);
    column_->setSpacing(8);
    title_->setProperty("role", "title");
    column_->addWidget(title_);
}

void Panel::showKey(const QKeySequence& key)
{
    setTip(*title_, key.toString(QKeySequence::NativeText));
}

QSize Panel::minimumSizeHint() const
{
    const QSize size = QFrame::minimumSizeHint();
    return {size.width(), std::max(size.height(), layout()->totalMinimumHeightForWidth(width()))};
}

void Panel::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    if (event->oldSize().width() != event->size().width())
        updateGeometry();
}

void Panel::edit(const std::function<void(EditSettings&)>& change)
{
    view_.edit([change](WorkspaceState& state) { change(state.settings); });
}

QLabel* Panel::addHelp(const QString& text)
{
    QLabel* label = helpLabel(text, this);
    column_->addWidget(label);
    return label;
}

QLabel* Panel::addHeading(const QString& text)
{
    auto* label = new QLabel(text, this);
    label->setProperty("role", "heading");
    column_->addWidget(label);
    return label;
}

QLabel* helpLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText); // it may contain names from outside
    label->setWordWrap(true);
    label->setMinimumWidth(1); // so that a long word is cut off and does not widen the panel
    label->setProperty("role", "help");
    return label;
}

QLabel* labelFor(QWidget& control, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setBuddy(&control);
    return label;
}

} // namespace corvane
