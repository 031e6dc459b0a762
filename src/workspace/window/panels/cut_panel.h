#pragma once

#include "workspace/window/camera_marks.h"
#include "workspace/window/controls/elided_label.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/cut_table_model.h"
#include "workspace/window/pictures/cut_strip.h"

#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>

namespace corvane {

/// The cut list: its summary, the strip of the whole edit, the table and the buttons that make and export it.
class CutPanel : public Panel {
    Q_OBJECT
public:
    explicit CutPanel(ContentView& view, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;

private:
    void arrange();
    void arrangeTable();
    void arrangeButtons();
    void arrangeMessages();
    void connectAll();
    void showCuts();
    void restoreView();
    void choose(int position, Frames frame);
    void showShortShots();
    void goToNextShortShot();
    void showButtons();
    void showTexts();

    CameraMarks marks_;
    QStackedWidget* pages_; ///< the hint and the edit: as high with the one as with the other
    QLabel* empty_;
    ElidedLabel* summary_;
    CutStrip* strip_;
    QPushButton* shortShots_; ///< goes to the next of the shots that are too short
    CutTableModel* model_;
    QTableView* table_;
    QPushButton* generate_;
    QPushButton* back_;
    QPushButton* forward_;
    QLabel* position_;
    QPushButton* export_;
    QLabel* anotherCamera_;
    ElidedLabel* carryOver_;
    QLabel* status_;
    QLabel* saveError_;
    std::vector<std::size_t> short_;
    std::optional<Frames> chosen_; ///< the frame that a person has chosen, in this edit or an earlier one
    Frames top_ = 0;               ///< where the table's first row in view starts, or was when there was one
};

} // namespace corvane
