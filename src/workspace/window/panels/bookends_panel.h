#pragma once

#include "workspace/window/controls/panel.h"
#include "workspace/window/controls/picker.h"
#include "workspace/window/controls/stepper.h"

#include <QCheckBox>
#include <vector>

namespace corvane {

/// "Opening and closing shots".
class BookendsPanel : public Panel {
    Q_OBJECT
public:
    explicit BookendsPanel(ContentView& view, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;

private:
    /// The three fields of the settings for one shot.
    struct Fields {
        bool EditSettings::* enabled;
        std::string EditSettings::* camera;
        double EditSettings::* seconds;
    };
    struct Bookend {
        Fields fields;
        QCheckBox* enabled;
        QLabel* cameraLabel;
        Picker* camera;
        Stepper* length;
    };

    void add(const QString& title, Fields fields);

    std::vector<Bookend> bookends_;
};

} // namespace corvane
