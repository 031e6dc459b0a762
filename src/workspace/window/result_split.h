#pragma once

#include <QScrollArea>
#include <QSplitter>

namespace corvane {

/// The edit above and its usage below. The lower widget has its preferred height, as far as the upper one allows, until
/// the user moves the divider.
class ResultSplit : public QSplitter {
    Q_OBJECT
public:
    ResultSplit(QWidget* upper, QWidget* lower, QWidget* parent = nullptr);

    /// True if the user has moved the divider, in this window or an earlier one.
    [[nodiscard]] bool wasMoved() const { return moved_; }
    /// Restores the position of the divider; heights in pixels, from the top.
    void restore(const QList<int>& heights);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void settle();

    QList<int> restored_; ///< waits until the window is shown
    bool moved_ = false;
};

/// Scrolls both if the window is not high enough for them.
class ResultArea : public QScrollArea {
    Q_OBJECT
public:
    explicit ResultArea(ResultSplit* split, QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace corvane
