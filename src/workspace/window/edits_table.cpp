#include "workspace/window/edits_table.h"

#include "workspace/edit_facts.h"
#include "workspace/window/pictures/edit_strip.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QFont>

namespace corvane {

namespace {

QFont bold()
{
    QFont font;
    font.setBold(true);
    return font;
}

} // namespace

EditsTableModel::EditsTableModel(const ContentView& view, QObject* parent) : QAbstractTableModel(parent), view_(view) {}

void EditsTableModel::show()
{
    const auto& items = view_.state().history.items;
    if (edits_ != items) {
        beginResetModel();
        edits_ = items;
        endResetModel();
    } else if (!edits_.empty()) {
        emit dataChanged(index(0, number), index(rowCount() - 1, number), {Qt::FontRole, Qt::AccessibleTextRole});
    }
}

void EditsTableModel::clear()
{
    beginResetModel();
    edits_.clear();
    endResetModel();
}

int EditsTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(edits_.size());
}

int EditsTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant EditsTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), index.column());
    case Qt::AccessibleTextRole:
        return index.column() <= strip ? QVariant(spoken(index.row(), index.column())) : QVariant();
    case Qt::ToolTipRole:
        return index.column() == strip ? QVariant(tip(shares(index.row(), shown).join("\n"))) : QVariant();
    case Qt::FontRole:
        return index.column() == number && isOnScreen(view_, index.row()) ? QVariant(bold()) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant((index.column() >= cuts ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    default:
        return {};
    }
}

QString EditsTableModel::text(int row, int column) const
{
    switch (column) {
    case number:
        return tr("Edit %1").arg(row + 1);
    case made:
        return qt(edit(row).created.localText());
    case cuts:
        return QString::number(edit(row).cuts.size());
    case mainShare:
        return qt(mainShareText(view_, edit(row)));
    case shortestShot:
        return qt(shortestShotText(view_, edit(row), theme::decimalSign()));
    default:
        return {}; // the strip is drawn
    }
}

/// The first column speaks for the whole line, since this is what is read when the mark moves.
QString EditsTableModel::spoken(int row, int column) const
{
    return column == number ? qt(editInWords(view_, row, theme::decimalSign())) : shares(row, qt).join(", ");
}

QStringList EditsTableModel::shares(int row, QString (*drawn)(std::string_view)) const
{
    QStringList lines;
    for (const std::string& text : shareTexts(view_, edit(row)))
        lines << drawn(text);
    return lines;
}

QVariant EditsTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    if (role == Qt::TextAlignmentRole)
        return QVariant((section >= cuts ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    switch (section) {
    case number:
        return tr("Edit");
    case strip:
        return tr("Cameras");
    case made:
        return tr("Made");
    case cuts:
        return tr("Cuts");
    case mainShare:
        return tr("Main camera");
    default:
        return tr("Shortest shot");
    }
}

EditStripDelegate::EditStripDelegate(
    const ContentView& view, const EditsTableModel& model, const CameraMarks& marks, QObject* parent)
    : QStyledItemDelegate(parent), view_(view), model_(model), marks_(marks)
{
}

void EditStripDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (view_.state().loaded)
        paintEditStrip(
            *painter, QRectF(option.rect).adjusted(6, 5, -6, -5), model_.edit(index.row()).cuts,
            view_.state().loaded->engine.length, marks_);
}

} // namespace corvane
