#include "workspace/window/camera_table.h"

#include "workspace/window/name_delegate.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/tooltips.h"

#include <utility>

namespace corvane {

namespace {

QVariant alignmentIn(int column)
{
    return QVariant((column == CameraTableModel::camera ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
}

} // namespace

CameraTableModel::CameraTableModel(const CameraMarks& marks, QStringList titles, QObject* parent)
    : QAbstractTableModel(parent), marks_(marks), titles_(std::move(titles))
{
}

void CameraTableModel::show(std::vector<Row> rows)
{
    if (rows_.empty() && rows.empty())
        return;
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int CameraTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CameraTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(titles_.size());
}

QVariant CameraTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    const bool isCamera = index.column() == camera;
    switch (role) {
    case Qt::DisplayRole:
        return isCamera ? shown(row.label) : row.figures.value(index.column() - firstFigure);
    case Qt::ToolTipRole:
        return tip(shown(row.label));
    case Qt::AccessibleTextRole:
        return isCamera ? QVariant(qt(row.label)) : QVariant();
    case Qt::DecorationRole:
        return isCamera ? QVariant(marks_.chip(row.camera)) : QVariant();
    case Qt::TextAlignmentRole:
        return alignmentIn(index.column());
    case NameDelegate::tellingRole:
        return marks_.of(row.camera).telling;
    case colorRole:
        return marks_.of(row.camera).color;
    default:
        return {};
    }
}

QVariant CameraTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    if (role == Qt::TextAlignmentRole)
        return alignmentIn(section);
    return role == Qt::DisplayRole || role == Qt::ToolTipRole ? QVariant(titles_.value(section)) : QVariant();
}

} // namespace corvane
