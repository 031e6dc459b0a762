#pragma once

#include "workspace/window/cut_table_model.h"

#include <QTableView>
#include <cstddef>
#include <optional>
#include <vector>

namespace corvane {

/// Which cuts of the list on screen the user has chosen.
struct ChosenCuts {
    std::vector<std::size_t> positions; ///< in order
    int current = -1;                   ///< the cut from which keys go on, whether it is chosen or not; -1 for none
    bool operator==(const ChosenCuts&) const = default;
};

/// The table of cuts. Its selection says which cuts are chosen, for the strip too. Left and Right go from cut to cut as
/// Up and Down do, Home and End to the first and the last; Shift and Ctrl choose several.
class CutTable : public QTableView {
    Q_OBJECT
public:
    explicit CutTable(CutTableModel& model, QWidget* parent = nullptr);

    [[nodiscard]] ChosenCuts chosen() const;
    /// Chooses a cut as a click on its row does while these keys are held, and makes it the current one.
    void choose(int row, Qt::KeyboardModifiers held = {});

signals:
    /// Other cuts are chosen, or another one is the current one.
    void chosenChanged();
    /// The user pressed the key that copies.
    void copyWanted();

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers held) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void arrange();
    void goToChosen(const QItemSelection& added);
    [[nodiscard]] int startOfRange() const;
    [[nodiscard]] static std::optional<CursorAction> actionOf(int key);

    QItemSelectionModel::SelectionFlags withoutEvent_; ///< what choosing a row that nobody clicked does
    bool atWork_ = false;                              ///< keys, the mouse or choose() change what is chosen
};

} // namespace corvane
