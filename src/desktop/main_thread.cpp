#include "desktop/main_thread.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <utility>

namespace corvane {

MainThread interfaceThread()
{
    return [](std::function<void()> work) {
        if (QCoreApplication* application = QCoreApplication::instance())
            QMetaObject::invokeMethod(application, std::move(work), Qt::QueuedConnection);
    };
}

} // namespace corvane
