#pragma once

#include "workspace/content_view.h"
#include "workspace/window/camera_marks.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <QStyledItemDelegate>
#include <string_view>
#include <vector>

namespace corvane {

/// The edits of the history in a line each, oldest first. Figures are computed for the lines that are asked for.
class EditsTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { number, strip, made, cuts, mainShare, shortestShot, columns };

    explicit EditsTableModel(const ContentView& view, QObject* parent = nullptr);

    /// Shows the controller's history, and which of its edits is on screen.
    void show();
    /// Lets go of the edits.
    void clear();
    /// `row` is one of the lines.
    [[nodiscard]] const EditRevision& edit(int row) const { return *edits_[static_cast<std::size_t>(row)]; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QString text(int row, int column) const;
    [[nodiscard]] QString spoken(int row, int column) const;
    [[nodiscard]] QStringList shares(int row, QString (*drawn)(std::string_view)) const;

    const ContentView& view_;
    std::vector<SharedRevision> edits_;
};

/// Draws the strips.
class EditStripDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    /// `marks` are those of the project that is shown.
    EditStripDelegate(const ContentView& view, const EditsTableModel& model, const CameraMarks& marks, QObject* parent);
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const ContentView& view_;
    const EditsTableModel& model_;
    const CameraMarks& marks_;
};

} // namespace corvane
