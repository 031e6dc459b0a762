#include "workspace/window/trial_table.h"

#include "workspace/window/name_delegate.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/tooltips.h"

namespace corvane {

TrialTableModel::TrialTableModel(const ContentView& view, QObject* parent) : QAbstractTableModel(parent), view_(view) {}

void TrialTableModel::show(const RuleTrial& trial)
{
    if (rows_.empty() && trial.cameras.empty())
        return;
    beginResetModel();
    marks_ = CameraMarks(view_);
    rows_ = trial.cameras;
    endResetModel();
}

int TrialTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TrialTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant TrialTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const RuleTrial::Camera& row = rows_[static_cast<std::size_t>(index.row())];
    const std::string label = view_.angleLabel(row.id);
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case camera:
            return shown(label);
        case target:
            return qt(targetText(row));
        case median:
            return qt(medianText(row.share));
        default:
            return qt(rangeText(row.share));
        }
    case Qt::ToolTipRole:
        return tip(shown(label));
    case Qt::AccessibleTextRole:
        return index.column() == camera ? QVariant(qt(label)) : QVariant();
    case Qt::DecorationRole:
        return index.column() == camera ? QVariant(marks_.chip(row.id)) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant((index.column() == camera ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    case NameDelegate::tellingRole:
        return marks_.of(row.id).telling;
    default:
        return {};
    }
}

QVariant TrialTableModel::headerData(int section, Qt::Orientation orientation, int role) const
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
    case target:
        return tr("Target");
    case median:
        return tr("Median");
    default:
        return tr("Range");
    }
}

} // namespace corvane
