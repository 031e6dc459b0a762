#include "workspace/window/busy_sign.h"

#include "workspace/window/qt_text.h"

#include <QGuiApplication>

namespace corvane {

std::shared_ptr<void> BusySignLabel::show(const std::string& text)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    if (label_) {
        label_->setText(qt(text));
        if (label_->isVisible())
            label_->repaint();
    }
    return {this, [label = label_](void*) {
                QGuiApplication::restoreOverrideCursor();
                if (label)
                    label->clear();
            }};
}

} // namespace corvane
