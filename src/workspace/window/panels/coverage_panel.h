#pragma once

#include "workspace/check_facts.h"
#include "workspace/window/camera_marks.h"
#include "workspace/window/controls/elided_label.h"
#include "workspace/window/controls/kept_lines.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/pictures/coverage_bar.h"
#include "workspace/window/pictures/time_axis.h"

#include <QGridLayout>
#include <QPushButton>
#include <vector>

namespace corvane {

/// "Recording coverage": one bar per camera, on a common time axis.
class CoveragePanel : public Panel {
    Q_OBJECT
public:
    /// `marks` are those of the project that is shown.
    CoveragePanel(ContentView& view, const CameraMarks& marks, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;

signals:
    /// A person wants to read all that is known of the project.
    void checkWanted();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Row {
        std::string camera;
        ElidedLabel* label;
        CoverageBar* bar;
    };

    void build();
    Row addRow(const std::string& camera);
    void showUse();
    void showGaps();
    void showCheck();
    void shareWidth();

    const CameraMarks& marks_;
    QGridLayout* grid_;
    QWidget* rowsHolder_;
    std::vector<Row> videoRows_;
    Row audio_{};
    Row gaps_{};
    Row usable_{};
    CheckedProject checked_;
    QLabel* gapsText_;
    QLabel* usableText_;
    ElidedLabel* missing_;
    QLabel* warning_;
    QLabel* notes_;
    KeptLines* notesPlace_;
};

} // namespace corvane
