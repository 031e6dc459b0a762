#include "workspace/window/cut_table_model.h"

#include "workspace/window/name_delegate.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QBrush>
#include <algorithm>

namespace corvane {

CutTableModel::CutTableModel(const ContentView& view, QObject* parent) : QAbstractTableModel(parent), view_(view) {}

void CutTableModel::show(const CameraMarks& marks)
{
    beginResetModel();
    shown_ = view_.state().preview;
    short_ = shortShots(view_, editMarks(view_));
    reasons_ = EditReasons(view_);
    looks_.clear();
    for (const ImportedAngle& angle : view_.videoAngles()) {
        const std::string label = view_.angleLabel(angle.id);
        looks_.emplace(angle.id, Look{shown(label), qt(label), marks.chip(angle.id), marks.of(angle.id).telling});
    }
    endResetModel();
}

int CutTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !shown_ ? 0 : static_cast<int>(shown_->cuts.size());
}

int CutTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant CutTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Cut& cut = shown_->cuts[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        return text(cut, index.column());
    if (role == Qt::ToolTipRole)
        return tip(facts(static_cast<std::size_t>(index.row())));
    if (role == Qt::AccessibleTextRole && index.column() == camera)
        return lookOf(cut).spoken;
    if (role == Qt::ForegroundRole && index.column() == duration && isShort(index.row()))
        return QBrush(theme::shortShot);
    if (role == Qt::AccessibleDescriptionRole)
        return qt(
            reasons_.line(static_cast<std::size_t>(index.row())) +
            (isShort(index.row()) ? " " + std::string(shortShotText) : ""));
    if (role == Qt::TextAlignmentRole && index.column() == duration)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::DecorationRole && index.column() == camera)
        return lookOf(cut).chip;
    if (role == NameDelegate::tellingRole)
        return lookOf(cut).telling;
    return {};
}

CutTableModel::Look CutTableModel::lookOf(const Cut& cut) const
{
    const auto look = looks_.find(cut.angle);
    return look == looks_.end() ? Look{shown(cut.angle), qt(cut.angle), {}, 0} : look->second;
}

QString CutTableModel::text(const Cut& cut, int column) const
{
    if (column == start)
        return qt(startLabel(view_, cut));
    if (column == duration)
        return qt(durationLabel(view_, cut, theme::decimalSign()));
    return lookOf(cut).label;
}

QString CutTableModel::facts(std::size_t row) const
{
    QString label = text(shown_->cuts[row], camera);
    if (const std::string reasons = reasons_.line(row); !reasons.empty())
        label += "\n" + shown(reasons);
    if (isShort(static_cast<int>(row)))
        label += "\n" + qt(shortShotText);
    return label;
}

bool CutTableModel::isShort(int row) const
{
    return std::ranges::binary_search(short_, static_cast<std::size_t>(row));
}

QVariant CutTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    if (role == Qt::TextAlignmentRole)
        return QVariant((section == duration ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    switch (section) {
    case start:
        return tr("Start (Timecode)");
    case camera:
        return tr("Camera");
    default:
        return tr("Duration (seconds)");
    }
}

} // namespace corvane
