#include "workspace/window/usage_table.h"

#include "workspace/window/name_delegate.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QPainter>
#include <algorithm>

namespace corvane {

UsageTableModel::UsageTableModel(const ContentView& view, const CameraMarks& marks, QObject* parent)
    : QAbstractTableModel(parent), view_(view), marks_(marks)
{
}

void UsageTableModel::show()
{
    beginResetModel();
    rows_ = usageRows(view_);
    if (const SharedRevision& revision = view_.state().preview) {
        mainCamera_ = revision->settings.mainCamera;
        target_ = revision->settings.mainShare;
    }
    endResetModel();
}

int UsageTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int UsageTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant UsageTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const UsageRow& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::ToolTipRole:
        if (index.column() == share && row.camera == mainCamera_)
            return tip(tr("%1, target %2%").arg(qt(row.share)).arg(target_));
        return tip(shown(row.label));
    case Qt::AccessibleTextRole:
        return index.column() == camera ? QVariant(qt(row.label)) : QVariant();
    case Qt::DecorationRole:
        return index.column() == camera ? QVariant(marks_.chip(row.camera)) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant((index.column() == camera ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    case percentRole:
        return row.percent;
    case colorRole:
        return marks_.of(row.camera).color;
    case NameDelegate::tellingRole:
        return marks_.of(row.camera).telling;
    case targetRole:
        return row.camera == mainCamera_ ? QVariant(target_) : QVariant();
    default:
        return {};
    }
}

QString UsageTableModel::text(const UsageRow& row, int column)
{
    switch (column) {
    case camera:
        return shown(row.label);
    case screenTime:
        return qt(row.screenTime);
    case share:
        return qt(row.share);
    default:
        return QString::number(row.shots);
    }
}

QVariant UsageTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    if (role == Qt::TextAlignmentRole)
        return QVariant((section == camera ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    switch (section) {
    case camera:
        return tr("Camera");
    case screenTime:
        return tr("Screen time");
    case share:
        return tr("Share");
    default:
        return tr("Shots");
    }
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
