#include "workspace/window/controls/picker.h"

#include "workspace/window/controls/scroll_past.h"
#include "workspace/window/elision.h"
#include "workspace/window/name_delegate.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/tooltips.h"

#include <QEvent>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <algorithm>

namespace corvane {

Picker::Picker(QWidget* parent) : QComboBox(parent)
{
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    letScrollingPass(*this);
    setItemDelegate(new NameDelegate(this));
    copyAsSpoken(*view());
    connect(this, &QComboBox::activated, this, [this](int position) {
        if (position >= 0 && position < static_cast<int>(entries_.size()))
            emit picked(entries_[static_cast<std::size_t>(position)].value);
    });
}

void Picker::show(const std::vector<Entry>& entries, const std::string& chosen)
{
    const QSignalBlocker blocker(this);
    if (entries != entries_) {
        entries_ = entries;
        clear();
        std::vector<QString> labels;
        for (const Entry& entry : entries_) {
            const QString label = shown(entry.label);
            addItem(label);
            setItemData(count() - 1, tip(label), Qt::ToolTipRole);
            setItemData(count() - 1, qt(entry.label), Qt::AccessibleTextRole);
            labels.push_back(label);
        }
        const std::vector<qsizetype> places = tellingPlaces(labels);
        for (int i = 0; i < count(); ++i)
            setItemData(i, places[static_cast<std::size_t>(i)], NameDelegate::tellingRole);
    }
    const auto found = std::ranges::find(entries_, chosen, &Entry::value);
    const int position = found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
    if (position != currentIndex())
        setCurrentIndex(position);
}

void Picker::choose(int position)
{
    if (!isEnabled() || position < 0 || position >= count())
        return;
    setCurrentIndex(position);
    emit activated(position);
}

QString Picker::labelAt(int position) const
{
    const auto at = static_cast<std::size_t>(position);
    return position >= 0 && at < entries_.size() ? qt(entries_[at].label) : QString();
}

int Picker::widthForText() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    constexpr int inset = 4;
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this).width() - inset;
}

void Picker::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const qsizetype telling = currentData(NameDelegate::tellingRole).toLongLong();
    option.currentText = elided(fontMetrics(), option.currentText, widthForText(), {0, telling});
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

bool Picker::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setTip(
            *this, fontMetrics().horizontalAdvance(currentText()) > widthForText()
                       ? std::vector{utf8(labelAt(currentIndex()))}
                       : std::vector<std::string>());
    return QComboBox::event(event);
}

} // namespace corvane
