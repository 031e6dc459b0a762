#include "workspace/window/result_split.h"

#include <QEvent>
#include <QScrollBar>
#include <algorithm>

namespace corvane {

ResultSplit::ResultSplit(QWidget* upper, QWidget* lower, QWidget* parent) : QSplitter(Qt::Vertical, parent)
{
    setChildrenCollapsible(false);
    addWidget(upper);
    addWidget(lower);
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    connect(this, &QSplitter::splitterMoved, this, [this] {
        moved_ = true;
        restored_.clear();
    });
}

void ResultSplit::restore(const QList<int>& heights)
{
    moved_ = true;
    restored_ = heights;
    settle();
}

bool ResultSplit::event(QEvent* event)
{
    const bool handled = QSplitter::event(event);
    if (event->type() == QEvent::LayoutRequest)
        settle();
    return handled;
}

void ResultSplit::resizeEvent(QResizeEvent* event)
{
    QSplitter::resizeEvent(event);
    settle();
}

void ResultSplit::settle()
{
    if (!restored_.isEmpty()) {
        setSizes(restored_);
        if (isVisible())
            restored_.clear();
    } else if (!moved_) {
        const int total = height() - handleWidth();
        const int lower = std::min(widget(1)->sizeHint().height(), total - widget(0)->sizeHint().height());
        setSizes({total - lower, lower});
    }
}

ResultArea::ResultArea(ResultSplit* split, QWidget* parent) : QScrollArea(parent)
{
    setWidget(split);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
}

/// At least as wide as the contents and the scroll bar beside them.
QSize ResultArea::minimumSizeHint() const
{
    constexpr int lowest = 200;
    return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(), lowest};
}

bool ResultArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace corvane
