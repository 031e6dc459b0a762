#pragma once

#include "workspace/window/command_actions.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/controls/step_slider.h"
#include "workspace/window/controls/stepper.h"

#include <QCheckBox>
#include <vector>

namespace corvane {

/// "Camera balance and pacing".
class PacingPanel : public Panel {
    Q_OBJECT
public:
    PacingPanel(ContentView& view, const CommandActions& commands, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;

private:
    struct Bound {
        double EditSettings::* seconds;
        Stepper* stepper;
    };

    void addBounds(const QString& title, double EditSettings::* minimum, double EditSettings::* maximum);
    void addBound(QVBoxLayout& rows, const QString& word, double EditSettings::* seconds);

    QLabel* shareLabel_;
    StepSlider* share_;
    std::vector<Bound> bounds_;
    QCheckBox* double_;
};

} // namespace corvane
