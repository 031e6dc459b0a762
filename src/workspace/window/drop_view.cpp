#include "workspace/window/drop_view.h"

#include "intake/final_cut/pasteboard_rule.h"
#include "workspace/window/mime_pasteboard.h"
#include "workspace/window/theme.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace corvane {

ProjectDropView::ProjectDropView(XMLInbox& inbox, QWidget* parent)
    : QFrame(parent),
      inbox_(inbox),
      hint_(new QLabel(tr("Drag a project from Final Cut’s browser here, or drop an XML file"), this))
{
    setAcceptDrops(true);
    setMinimumHeight(160);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setAccessibleName(hint_->text());
    auto* column = new QVBoxLayout(this);
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setWordWrap(true);
    hint_->setProperty("role", "help");
    column->addWidget(hint_);
}

void ProjectDropView::hover(QDragMoveEvent& event)
{
    const bool project = event.mimeData() != nullptr && offersProject(MimePasteboard(*event.mimeData()));
    setDropActive(project);
    event.setDropAction(project ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(project);
}

void ProjectDropView::dragEnterEvent(QDragEnterEvent* event)
{
    hover(*event);
}

void ProjectDropView::dragMoveEvent(QDragMoveEvent* event)
{
    hover(*event);
}

void ProjectDropView::dragLeaveEvent(QDragLeaveEvent*)
{
    setDropActive(false);
}

void ProjectDropView::dropEvent(QDropEvent* event)
{
    setDropActive(false);
    if (performDrag(MimePasteboard(*event->mimeData()), inbox_)) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void ProjectDropView::setDropActive(bool active)
{
    if (dropActive_ == active)
        return;
    dropActive_ = active;
    update();
}

void ProjectDropView::paintEvent(QPaintEvent*)
{
    constexpr double radius = 12;
    QColor border = theme::orange;
    border.setAlphaF(dropActive_ || hasFocus() ? 1.0F : 0.35F);
    QColor ground = dropActive_ ? theme::orange : theme::lighterGrey;
    ground.setAlphaF(dropActive_ ? 0.12F : 1.0F);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(border, 2));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);
}

void ProjectDropView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit clicked();
}

void ProjectDropView::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter)
        emit clicked();
    else
        QFrame::keyPressEvent(event);
}

FinalCutProjectDropZone::FinalCutProjectDropZone(XMLInbox& inbox, QWidget* parent) : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* view = new ProjectDropView(inbox, this);
    connect(view, &ProjectDropView::clicked, this, &FinalCutProjectDropZone::clicked);
    column->addWidget(view);
}

} // namespace corvane
