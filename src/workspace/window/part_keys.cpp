#include "workspace/window/part_keys.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>

namespace corvane {

namespace {

bool isStop(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isVisible() && widget.isEnabled() &&
           widget.focusProxy() == nullptr;
}

/// Where Tab would stop first in the part; the part itself where it stops nowhere.
QWidget& firstStop(QWidget& part)
{
    for (QWidget* next = part.nextInFocusChain(); next != &part; next = next->nextInFocusChain()) {
        if (part.isAncestorOf(next) && isStop(*next))
            return *next;
    }
    return part;
}

/// The area that scrolls the widget; none for one that is not scrolled.
QScrollArea* scrollAreaOf(const QWidget& widget)
{
    QWidget* outer = widget.parentWidget();
    while (outer != nullptr && qobject_cast<QScrollArea*>(outer) == nullptr)
        outer = outer->parentWidget();
    return qobject_cast<QScrollArea*>(outer);
}

void takeFocus(QWidget& widget)
{
    widget.setFocus(Qt::TabFocusReason); // as with Tab, what is written in a field is selected
    if (QScrollArea* area = scrollAreaOf(widget))
        area->ensureWidgetVisible(&widget);
}

void goTo(Panel& panel)
{
    if (const QScrollArea* area = scrollAreaOf(panel))
        area->verticalScrollBar()->setValue(panel.mapTo(area->widget(), QPoint()).y());
    takeFocus(isStop(panel) ? panel : firstStop(panel));
}

} // namespace

PartKeys::PartKeys(std::vector<QWidget*> parts, const std::vector<Panel*>& panels, QWidget& window)
    : QObject(&window), parts_(std::move(parts)), window_(window)
{
    const auto onKey = [this](const QKeySequence& key, const std::function<void()>& work) {
        connect(new QShortcut(key, &window_), &QShortcut::activated, this, work);
    };
    onKey(QKeySequence(Qt::Key_F6), [this] { goOn(1); });
    onKey(QKeySequence(Qt::SHIFT | Qt::Key_F6), [this] { goOn(-1); });
    int digit = Qt::Key_1;
    for (Panel* panel : panels) {
        const QKeySequence key(Qt::ALT | static_cast<Qt::Key>(digit++));
        panel->showKey(key);
        onKey(key, [panel] { goTo(*panel); });
    }
}

void PartKeys::goOn(int steps)
{
    const QWidget* now = window_.focusWidget();
    const auto here = std::ranges::find_if(
        parts_, [now](const QWidget* part) { return now != nullptr && (part == now || part->isAncestorOf(now)); });
    const int count = static_cast<int>(parts_.size());
    int position = static_cast<int>(here - parts_.begin());
    if (position == count) // above the parts
        position = steps > 0 ? -1 : 0;
    QWidget& part = *parts_[static_cast<std::size_t>((position + steps + count) % count)];
    QWidget* last = part.focusWidget();
    takeFocus(last != nullptr && isStop(*last) ? *last : firstStop(part));
}

} // namespace corvane
