#pragma once

#include <QComboBox>
#include <string>
#include <vector>

namespace corvane {

/// A choice of one of several entries, each a value with a label for people.
class Picker : public QComboBox {
    Q_OBJECT
public:
    struct Entry {
        std::string value;
        std::string label;
        bool operator==(const Entry&) const = default;
    };

    explicit Picker(QWidget* parent = nullptr);

    /// Shows the entries and the chosen one; picked is not told. A value that is no entry leaves the picker empty.
    void show(const std::vector<Entry>& entries, const std::string& chosen);

    /// Chooses as a person does.
    void choose(int position);

    /// The label of an entry as it was given; empty for none.
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
