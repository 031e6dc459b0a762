#pragma once

#include <QObject>
#include <QTableView>
#include <vector>

namespace corvane {

/// A table that is read and copied, a line for each camera: nothing in it can be chosen or changed, and Tab passes it.
void arrangeForReading(QTableView& table);

/// Distributes the width of a table among its columns. The other columns first get what their cells need, then the
/// column of names gets what it needs, then the others up to their usual width; the column of names gets the rest.
class ColumnWidths : public QObject {
    Q_OBJECT
public:
    struct Column {
        int section;
        int least; ///< the pixels that its cells need
        int usual; ///< its width in pixels if there is room, at least `least`
    };

    /// Works as long as the table exists. The table must already have its model.
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
