#pragma once

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace corvane {

/// A place as high as some lines of text, for messages that come, wrap and go without moving what stands around them.
/// Longer ones are scrolled, by keyboard too. In a window that is too low for all lines it shows fewer.
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

/// Says whether the widget's place stays its own while it is hidden.
void keepPlace(QWidget& widget, bool kept = true);

} // namespace corvane
