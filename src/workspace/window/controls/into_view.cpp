#include "workspace/window/controls/into_view.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLayout>

namespace corvane {

QScrollArea* scrollAreaOf(const QWidget& widget)
{
    QWidget* outer = widget.parentWidget();
    while (outer != nullptr && qobject_cast<QScrollArea*>(outer) == nullptr)
        outer = outer->parentWidget();
    return qobject_cast<QScrollArea*>(outer);
}

void bringIntoView(QWidget& widget)
{
    QScrollArea* area = nullptr;
    for (QWidget* outer = &widget; outer != nullptr && area == nullptr; outer = outer->parentWidget()) {
        if (outer->layout() != nullptr)
            outer->layout()->activate(); // computes sizes that the event loop would otherwise compute later
        area = qobject_cast<QScrollArea*>(outer);
    }
    if (area == nullptr)
        return;
    QEvent resized(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(area, &resized);
    if (area->widget()->layout() != nullptr)
        area->widget()->layout()->activate();
    constexpr int margin = 12;
    const QRect place(widget.mapTo(area->widget(), QPoint()), widget.size());
    area->ensureVisible(place.center().x(), place.bottom(), 0, margin);
    area->ensureVisible(place.center().x(), place.top(), 0, margin); // if it is higher than the area, its top
}

} // namespace corvane
