#pragma once

#include "workspace/window/camera_marks.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <string>
#include <vector>

namespace corvane {

/// A table with a row for each camera: its chip and its name, and figures about it, which are aligned to the right.
class CameraTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { camera, firstFigure };
    /// The camera's colour; roles of derived models begin after it.
    enum Role { colorRole = Qt::UserRole, firstOwnRole };

    struct Row {
        std::string camera; ///< id
        std::string label;
        QStringList figures; ///< one for each title but the first
    };

    /// `marks` are those of the project that is shown; `titles` those of the columns.
    CameraTableModel(const CameraMarks& marks, QStringList titles, QObject* parent = nullptr);

    void show(std::vector<Row> rows);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const CameraMarks& marks_;
    QStringList titles_;
    std::vector<Row> rows_;
};

} // namespace corvane
