#pragma once

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace corvane {

/// An area with the height of a fixed number of lines, so that messages can come, wrap and go without moving what is
/// around them. Longer messages can be scrolled, by keyboard too. Shows fewer lines in a window that is too low.
class KeptLines : public QScrollArea {
    Q_OBJECT
public:
    explicit KeptLines(int lines, QWidget* parent = nullptr);

    void add(QLabel& message);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void keepHeight();

    int lines_;
    QVBoxLayout* column_;
};

/// Sets whether the widget keeps its space in the layout while it is hidden.
void keepPlace(QWidget& widget, bool kept = true);

} // namespace corvane
