#include "workspace/window/controls/kept_lines.h"

#include <QEvent>
#include <QScrollBar>

namespace corvane {

KeptLines::KeptLines(int lines, QWidget* parent) : QScrollArea(parent), lines_(lines), column_(nullptr)
{
    auto* content = new QWidget(this);
    column_ = new QVBoxLayout(content);
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(0);
    column_->addStretch(1);
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Messages"));
    setFocusPolicy(Qt::NoFocus);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this](int, int most) {
        setFocusPolicy(most > 0 ? Qt::TabFocus : Qt::NoFocus); // a Tab stop only if there is something to scroll
    });
    keepHeight();
}

void KeptLines::add(QLabel& message)
{
    column_->insertWidget(column_->count() - 1, &message);
}

QSize KeptLines::sizeHint() const
{
    return {QScrollArea::sizeHint().width(), maximumHeight()};
}

void KeptLines::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        keepHeight();
}

void KeptLines::keepHeight()
{
    setMinimumHeight(fontMetrics().lineSpacing());
    setMaximumHeight(lines_ * fontMetrics().lineSpacing());
    updateGeometry();
}

void keepPlace(QWidget& widget, bool kept)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(kept);
    widget.setSizePolicy(policy);
}

} // namespace corvane
