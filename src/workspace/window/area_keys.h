#pragma once

#include "workspace/window/controls/panel.h"

#include <QObject>
#include <QWidget>
#include <vector>

namespace corvane {

/// The keys that go about in the loaded window: F6 and Shift+F6 from one of its areas to the next and to the one
/// before, back to the control that had the focus there last; Alt and a digit to a panel, in their order, which is
/// brought into view.
class AreaKeys : public QObject {
    Q_OBJECT
public:
    /// `window` owns it; the areas and the panels must live as long.
    AreaKeys(std::vector<QWidget*> areas, const std::vector<Panel*>& panels, QWidget& window);

private:
    void goOn(int steps);

    std::vector<QWidget*> areas_;
    QWidget& window_;
};

} // namespace corvane
