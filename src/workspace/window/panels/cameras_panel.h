#pragma once

#include "import/imported_project.h"
#include "workspace/window/camera_marks.h"
#include "workspace/window/controls/elided_check_box.h"
#include "workspace/window/controls/elided_label.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/controls/picker.h"
#include "workspace/window/controls/step_slider.h"
#include "workspace/window/controls/stepper.h"

#include <map>
#include <string>
#include <vector>

namespace corvane {

/// "Cameras and audio".
class CamerasPanel : public Panel {
    Q_OBJECT
public:
    /// `marks` are those of the project that is shown.
    CamerasPanel(ContentView& view, const CameraMarks& marks, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;

private:
    /// An angle with video; hidden while it is the main camera.
    struct Camera {
        std::string id;
        QWidget* holder;
        ElidedCheckBox* included;
        Stepper* returnTime;
        QWidget* frequencyHolder;
        QLabel* weight;
        StepSlider* frequency;
        QLabel* percent;
    };

    void build();
    void addCamera(const ImportedAngle& angle);
    void addFrequency(Camera& camera, const std::string& label);
    /// `percents` is the result of frequencyPercents.
    void showCamera(const Camera& camera, const std::map<std::string, int>& percents, bool frequenciesMatter);

    const CameraMarks& marks_;
    Picker* main_;
    Picker* audio_;
    Stepper* mainReturnTime_;
    QVBoxLayout* cameraRows_;
    QVBoxLayout* frequencyRows_;
    QLabel* tooFew_;
    QLabel* frequencyHelp_;
    std::vector<Camera> cameras_;
};

} // namespace corvane
