#pragma once

#include <QObject>
#include <QTableView>
#include <vector>

namespace corvane {

/// Shares the width of a table among its columns. The column of names has what it needs before the others have more
/// than their cells need, and all that is left.
class ColumnWidths : public QObject {
    Q_OBJECT
public:
    struct Column {
        int section;
        int least; ///< pixels that its cells need
        int usual; ///< pixels that it has where there is room, at least `least`
    };

    /// For the life of the table, which has its model.
    ColumnWidths(QTableView& table, int names, std::vector<Column> others);

protected:
    bool eventFilter(QObject* viewport, QEvent* event) override;

private:
    void measureNames();
    void share();

    QTableView& table_;
    int names_;
    int neededForNames_ = 0;
    std::vector<Column> others_;
};

} // namespace corvane
