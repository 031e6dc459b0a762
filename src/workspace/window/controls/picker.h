#pragma once

#include <QComboBox>
#include <string>
#include <vector>

namespace corvane {

/// Lets the user choose one of several entries, each of which has a value and a label.
class Picker : public QComboBox {
    Q_OBJECT
public:
    struct Entry {
        std::string value;
        std::string label;
        bool operator==(const Entry&) const = default;
    };

    explicit Picker(QWidget* parent = nullptr);

    /// Shows the entries and the chosen one without emitting picked. Shows no entry if `chosen` is not one of the
    /// values.
    void show(const std::vector<Entry>& entries, const std::string& chosen);

    /// Chooses an entry as if a person did.
    void choose(int position);

    /// The label of an entry as given to show(); empty if there is no such entry.
    [[nodiscard]] QString labelAt(int position) const;

signals:
    void picked(const std::string& value);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] int widthForText() const;

    std::vector<Entry> entries_;
};

} // namespace corvane
