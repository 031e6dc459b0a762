#pragma once

#include "workspace/window/camera_marks.h"
#include "workspace/window/command_actions.h"
#include "workspace/window/controls/elided_label.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/cut_table.h"
#include "workspace/window/pictures/cut_strip.h"

#include <QPushButton>
#include <QStackedWidget>

namespace corvane {

/// The cut list: its summary, the strip, the table, and the buttons that generate and export it.
class CutPanel : public Panel {
    Q_OBJECT
public:
    /// `marks` are those of the project that is shown.
    CutPanel(ContentView& view, const CameraMarks& marks, CommandActions& commands, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;

private:
    void arrange();
    void arrangeButtons();
    void arrangeMessages();
    void makeMenu();
    void connectAll();
    void followTable();
    void copyChosen();
    void showCuts();
    void rememberChosen();
    void restoreView();
    void tellChosen();
    void showShortShots();
    void goToNextShortShot();
    void showTexts();

    const CameraMarks& marks_;
    CommandActions& commands_;
    QStackedWidget* pages_; ///< the hint and the edit, so that the height is the same for both
    QLabel* empty_;
    ElidedLabel* summary_;
    CutStrip* strip_;
    QPushButton* shortShots_; ///< goes to the next shot that is too short
    CutTableModel* model_;
    CutTable* table_;
    QPushButton* generate_;
    QPushButton* back_;
    QPushButton* forward_;
    QPushButton* position_; ///< opens the list of edits
    QPushButton* export_;
    QLabel* anotherCamera_;
    ElidedLabel* carryOver_;
    QLabel* status_;
    QLabel* saveError_;
    std::vector<std::size_t> short_;
    std::optional<Frames> chosen_;  ///< the frame that the user chose, in this edit or an earlier one
    Frames top_ = 0;                ///< the start of the table's first visible row, or of the last one that there was
    std::optional<int> linesAbove_; ///< rows in view above the chosen one; none if it was out of view
};

} // namespace corvane
