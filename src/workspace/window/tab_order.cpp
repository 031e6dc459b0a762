#include "workspace/window/tab_order.h"

#include <QLayout>
#include <QScrollArea>
#include <QSplitter>
#include <QStackedWidget>
#include <vector>

namespace corvane {

namespace {

using Stops = std::vector<QWidget*>;

bool isStop(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) != 0;
}

void collect(QWidget& widget, Stops& stops);

void collect(const QLayout& layout, Stops& stops)
{
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem& item = *layout.itemAt(i);
        if (item.widget() != nullptr)
            collect(*item.widget(), stops);
        else if (item.layout() != nullptr)
            collect(*item.layout(), stops);
    }
}

void collect(QWidget& widget, Stops& stops)
{
    if (isStop(widget))
        stops.push_back(&widget);
    if (const auto* area = qobject_cast<QScrollArea*>(&widget)) {
        if (area->widget() != nullptr)
            collect(*area->widget(), stops);
    } else if (const auto* split = qobject_cast<QSplitter*>(&widget)) {
        for (int i = 0; i < split->count(); ++i)
            collect(*split->widget(i), stops);
    } else if (widget.layout() != nullptr) {
        collect(*widget.layout(), stops);
    }
}

/// True if Tab already goes from one widget to the next. A field inside a number box belongs to the box.
bool follows(const QWidget& stop, const QWidget& next)
{
    const QWidget* widget = stop.nextInFocusChain();
    while (widget != &stop && (!isStop(*widget) || widget->focusProxy() != nullptr))
        widget = widget->nextInFocusChain();
    return widget == &next;
}

} // namespace

void orderTabsByLayout(QWidget& root)
{
    Stops stops;
    collect(root, stops);
    for (std::size_t i = 1; i < stops.size(); ++i) {
        if (!follows(*stops[i - 1], *stops[i])) // because setTabOrder is slow
            QWidget::setTabOrder(stops[i - 1], stops[i]);
    }
}

} // namespace corvane
