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

/// A column of rows of equal height in a scroll area. A list may have thousands of rows, so a row exists only if it is
/// near the visible ones, is the first or the last, is next to the one that last had the focus, or has been requested.
/// The space of the others is reserved, and Tab never reaches a row that does not exist.
class ReservedRows : public QWidget {
    Q_OBJECT
public:
    /// Creates the row of a key, with its contents.
    using Make = std::function<QWidget*(const std::string& key, QWidget* parent)>;

    explicit ReservedRows(Make make, QWidget* parent = nullptr);

    /// Sets the keys, with one row for each, in this order. A row stays with its key, and so do the focus and the
    /// caret.
    void setKeys(const std::vector<std::string>& keys);

    [[nodiscard]] int count() const { return static_cast<int>(keys_.size()); }
    /// The row at a position below count(). If it does not exist, it is created and stays until the keys change.
    [[nodiscard]] QWidget* row(int position);
    /// The existing rows, by position.
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
