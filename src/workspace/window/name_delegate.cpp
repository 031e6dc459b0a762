#include "workspace/window/name_delegate.h"

#include "workspace/window/elision.h"

#include <QApplication>

namespace corvane {

void NameDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QStyle& style = item.widget != nullptr ? *item.widget->style() : *QApplication::style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + 1;
    const int room = style.subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget).width() - 2 * margin;
    item.text = elided(item.fontMetrics, item.text, room, {0, index.data(tellingRole).toLongLong()});
    style.drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
}

} // namespace corvane
