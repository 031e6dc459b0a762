#pragma once

#include "analysis/rule_trial.h"
#include "workspace/window/camera_marks.h"

#include <QAbstractTableModel>

namespace corvane {

/// The share of each camera in the edits of a trial, beside its target.
class TrialTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { camera, target, median, range, columns };

    explicit TrialTableModel(const ContentView& view, QObject* parent = nullptr);

    /// Shows this trial in place of what was shown; one without edits empties the table.
    void show(const RuleTrial& trial);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const ContentView& view_;
    CameraMarks marks_;
    std::vector<RuleTrial::Camera> rows_;
};

} // namespace corvane
