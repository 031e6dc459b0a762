#pragma once

#include <QScrollArea>
#include <QSplitter>

namespace corvane {

/// The edit above, its usage below. The lower widget has the height that it asks for, as far as the upper one leaves
/// it, until a person moves the line between them.
class ResultSplit : public QSplitter {
    Q_OBJECT
public:
    ResultSplit(QWidget* upper, QWidget* lower, QWidget* parent = nullptr);

    /// A person has moved the line, in this window or an earlier one.
    [[nodiscard]] bool wasMoved() const { return moved_; }
    /// Puts the line where it was left; heights in pixels, from the top.
    void restore(const QList<int>& heights);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void settle();

    QList<int> restored_; ///< waits for a window that is shown
    bool moved_ = false;
};

/// Scrolls the two where a window is too low for them.
class ResultArea : public QScrollArea {
    Q_OBJECT
public:
    explicit ResultArea(ResultSplit* split, QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace corvane
