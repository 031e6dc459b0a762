#include "workspace/window/controls/scroll_past.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>

namespace corvane {

namespace {

/// One for the whole program, because there is only one mouse wheel.
class ScrollFilter : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Wheel)
            return false;
        constexpr int pause = 400; // milliseconds without an event that end a scroll
        auto* control = qobject_cast<QWidget*>(watched);
        const bool scrolling = lastPassed_.isValid() && lastPassed_.elapsed() < pause;
        if (control != nullptr && control->hasFocus() && !scrolling)
            return false;
        lastPassed_.restart();
        for (QWidget* outer = control; outer != nullptr; outer = outer->parentWidget()) {
            if (auto* area = qobject_cast<QAbstractScrollArea*>(outer)) {
                QCoreApplication::sendEvent(area->viewport(), event);
                break;
            }
        }
        return true;
    }

private:
    QElapsedTimer lastPassed_;
};

} // namespace

void letScrollingPass(QWidget& control)
{
    static ScrollFilter filter;
    control.setFocusPolicy(Qt::StrongFocus);
    control.installEventFilter(&filter);
}

} // namespace corvane
