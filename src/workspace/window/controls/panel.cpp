#include "workspace/window/controls/panel.h"

#include "workspace/window/tooltips.h"

#include <QKeyEvent>
#include <QResizeEvent>
#include <algorithm>

namespace corvane {

Panel::Panel(const QString& title, ContentView& view, QWidget* parent)
    : QFrame(parent), view_(view), column_(new QVBoxLayout(this)), title_(new QLabel(title, this))
{
    setObjectName(title);
    setAccessibleName(title);
    column_->setContentsMargins(14, 10, 14, 12);
    column_->setSpacing(8);
    title_->setProperty("role", "title");
    column_->addWidget(title_);
}

void Panel::showKey(const QKeySequence& key)
{
    setTip(*title_, key.toString(QKeySequence::NativeText));
}

QSize Panel::minimumSizeHint() const
{
    const QSize size = QFrame::minimumSizeHint();
    return {size.width(), std::max(size.height(), layout()->totalMinimumHeightForWidth(width()))};
}

void Panel::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    if (event->oldSize().width() != event->size().width())
        updateGeometry();
}

/// Before the key of the menu, which opens the manual where it was left.
bool Panel::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && !helpTopic_.isEmpty()) {
        const auto* key = dynamic_cast<QKeyEvent*>(event);
        if (key != nullptr && key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier)
            event->accept();
    }
    return QFrame::event(event);
}

void Panel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1 && !helpTopic_.isEmpty())
        emit helpWanted(helpTopic_);
    else
        QFrame::keyPressEvent(event);
}

void Panel::edit(const std::function<void(EditSettings&)>& change)
{
    view_.edit([change](WorkspaceState& state) { change(state.settings); });
}

QLabel* Panel::addHelp(const QString& text)
{
    QLabel* label = helpLabel(text, this);
    column_->addWidget(label);
    return label;
}

QLabel* Panel::addHeading(const QString& text)
{
    auto* label = new QLabel(text, this);
    label->setProperty("role", "heading");
    column_->addWidget(label);
    return label;
}

QLabel* helpLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText); // it may contain names from outside
    label->setWordWrap(true);
    label->setMinimumWidth(1); // so that a long word is cut off and does not widen the panel
    label->setProperty("role", "help");
    return label;
}

QLabel* labelFor(QWidget& control, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setBuddy(&control);
    return label;
}

} // namespace corvane
