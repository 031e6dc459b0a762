#pragma once

#include "workspace/window/controls/panel.h"

#include <QObject>
#include <QWidget>
#include <vector>

namespace corvane {

/// The keys that navigate a window with a project. F6 and Shift+F6 go to the next and the previous area, to the control
/// that last had the focus there. Alt and a digit go to the panel with that number and scroll it into view.
class AreaKeys : public QObject {
    Q_OBJECT
public:
    /// `window` owns this object; the areas and panels must exist as long.
    AreaKeys(std::vector<QWidget*> areas, const std::vector<Panel*>& panels, QWidget& window);

private:
    void goOn(int steps);

    std::vector<QWidget*> areas_;
    QWidget& window_;
};

} // namespace corvane
