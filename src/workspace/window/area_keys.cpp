#include "workspace/window/area_keys.h"

#include "workspace/window/controls/into_view.h"

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

/// The first widget in the area that Tab would reach; the area itself if there is none.
QWidget& firstStop(QWidget& area)
{
    for (QWidget* next = area.nextInFocusChain(); next != &area; next = next->nextInFocusChain()) {
        if (area.isAncestorOf(next) && isStop(*next))
            return *next;
    }
    return area;
}

void takeFocus(QWidget& widget)
{
    widget.activateWindow();             // the key may have been pressed in a sheet beside the window
    widget.setFocus(Qt::TabFocusReason); // like Tab, this selects a field's text
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

AreaKeys::AreaKeys(std::vector<QWidget*> areas, const std::vector<Panel*>& panels, QWidget& window)
    : QObject(&window), areas_(std::move(areas)), window_(window)
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

void AreaKeys::goOn(int steps)
{
    const QWidget* now = window_.focusWidget();
    const auto here = std::ranges::find_if(
        areas_, [now](const QWidget* area) { return now != nullptr && (area == now || area->isAncestorOf(now)); });
    const int count = static_cast<int>(areas_.size());
    int position = static_cast<int>(here - areas_.begin());
    if (position == count) // the focus is above the areas
        position = steps > 0 ? -1 : 0;
    QWidget& area = *areas_[static_cast<std::size_t>((position + steps + count) % count)];
    QWidget* last = area.focusWidget();
    takeFocus(last != nullptr && isStop(*last) ? *last : firstStop(area));
}

} // namespace corvane
