#include "workspace/window/usage_table.h"

#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QPainter>
#include <algorithm>
#include <utility>

namespace corvane {

UsageTableModel::UsageTableModel(const ContentView& view, const CameraMarks& marks, QObject* parent)
    : CameraTableModel(marks, {tr("Camera"), tr("Screen time"), tr("Share"), tr("Shots")}, parent), view_(view)
{
}

void UsageTableModel::show()
{
    usage_ = usageRows(view_);
    if (const SharedRevision& revision = view_.state().preview) {
        mainCamera_ = revision->settings.mainCamera;
        target_ = revision->settings.mainShare;
    }
    std::vector<Row> rows;
    for (const UsageRow& row : usage_)
        rows.push_back({row.camera, row.label, {qt(row.screenTime), qt(row.share), QString::number(row.shots)}});
    CameraTableModel::show(std::move(rows));
}

QVariant UsageTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const UsageRow& row = usage_[static_cast<std::size_t>(index.row())];
    const bool isMain = row.camera == mainCamera_;
    if (role == percentRole)
        return row.percent;
    if (role == targetRole)
        return isMain ? QVariant(target_) : QVariant();
    if (role == Qt::ToolTipRole && index.column() == share && isMain)
        return tip(tr("%1, target %2%").arg(qt(row.share)).arg(target_));
    return CameraTableModel::data(index, role);
}

void ShareBarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const double number = option.fontMetrics.horizontalAdvance("100.0%") + 12;
    const QRectF cell = option.rect;
    const double room = std::max(0.0, cell.width() - number - 6); // 0 if the column is narrow
    const QRectF bar(cell.left() + 6, cell.top() + 5, room, cell.height() - 10);
    painter->save();
    painter->fillRect(bar, QColor(0x33, 0x31, 0x2f));
    const double percent = index.data(UsageTableModel::percentRole).toDouble();
    painter->fillRect(
        QRectF(bar.left(), bar.top(), bar.width() * percent / 100, bar.height()),
        index.data(UsageTableModel::colorRole).value<QColor>());
    const QVariant target = index.data(UsageTableModel::targetRole);
    if (target.isValid() && room > 0) {
        const double x = bar.left() + bar.width() * target.toDouble() / 100;
        painter->setPen(QPen(theme::warmWhite, 2));
        painter->drawLine(QPointF(x, bar.top() - 3), QPointF(x, bar.bottom() + 3));
    }
    painter->setPen(option.palette.color(QPalette::Text));
    painter->drawText(cell.adjusted(0, 0, -3, 0), Qt::AlignRight | Qt::AlignVCenter, index.data().toString());
    painter->restore();
}

} // namespace corvane
