#pragma once

#include "workspace/captions.h"
#include "workspace/window/camera_marks.h"

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <vector>

namespace corvane {

/// Screen time, share and shots of each camera in the cut list.
class UsageTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { camera, screenTime, share, shots, columns };
    /// The data for drawing the share's bar: percent, the camera's colour and, if there is one, the target.
    enum Role { percentRole = Qt::UserRole, colorRole, targetRole };

    UsageTableModel(const ContentView& view, const CameraMarks& marks, QObject* parent = nullptr);

    /// Replaces the table's contents with the usage of the controller's cut list.
    void show();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] static QString text(const UsageRow& row, int column);

    const ContentView& view_;
    const CameraMarks& marks_;
    std::vector<UsageRow> rows_;
    std::string mainCamera_;
    double target_ = 0;
};

/// Draws the share as a bar beside its number, with a line at the main camera's target.
class ShareBarDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace corvane
