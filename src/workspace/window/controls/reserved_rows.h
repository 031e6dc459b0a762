#pragma once

#include <QScrollArea>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace corvane {

/// A column of rows of one height in a scroll area. A list may have thousands: a row exists while it is near what is in
/// view, is the first or the last, stands beside the one that had the focus last, or has been asked for. The place of
/// the others is reserved, and Tab comes across none that does not exist.
class ReservedRows : public QWidget {
    Q_OBJECT
public:
    /// Makes the row of a key, with what it shows.
    using Make = std::function<QWidget*(const std::string& key, QWidget* parent)>;

    explicit ReservedRows(Make make, QWidget* parent = nullptr);

    /// One row for each key, in this order. A row stays with its key, and with it the focus and the caret.
    void setKeys(const std::vector<std::string>& keys);

    [[nodiscard]] int count() const { return static_cast<int>(keys_.size()); }
    /// The row at a position below count(); one that does not exist is made, and stays until the keys change.
    [[nodiscard]] QWidget* row(int position);
    /// The rows that exist, by position.
    [[nodiscard]] const std::map<int, QWidget*>& rows() const { return rows_; }

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void settle();
    [[nodiscard]] std::set<int> wantedRows() const;
    [[nodiscard]] int rowAt(int y) const;
    void arrange();

    Make make_;
    QVBoxLayout* column_;
    QScrollArea* area_ = nullptr;
    std::vector<std::string> keys_;
    std::map<int, QWidget*> rows_;
    std::set<int> asked_;
    int rowHeight_ = 0;
    bool arranged_ = true;
    bool settling_ = false;
};

} // namespace corvane
