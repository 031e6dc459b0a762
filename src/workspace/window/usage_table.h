#pragma once

#include "workspace/captions.h"
#include "workspace/window/camera_table.h"

#include <QStyledItemDelegate>
#include <string>
#include <vector>

namespace corvane {

/// Screen time, share and shots of each camera in the cut list.
class UsageTableModel : public CameraTableModel {
    Q_OBJECT
public:
    enum Column { camera, screenTime, share, shots };
    /// What the share's bar shows beside the camera's colour: the percentage and, if there is one, the target.
    enum Role { percentRole = firstOwnRole, targetRole };

    UsageTableModel(const ContentView& view, const CameraMarks& marks, QObject* parent = nullptr);

    /// Replaces the table's contents with the usage of the controller's cut list.
    void show();

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const ContentView& view_;
    std::vector<UsageRow> usage_;
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
