// Starts the program as main does, for a new user. Once its window has been painted, it prints "painted" and closes its
// output, when its parent stops the clock. Then it ends.
#include "application/application.h"
#include "workspace/window/accessible_widgets.h"
#include "workspace/window/theme.h"

#include <unistd.h>

#include <QApplication>
#include <QTemporaryDir>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace {

class PaintWatch : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection); // after painting
        return false;
    }
};

} // namespace

int main(int argc, char** argv)
try {
    using namespace corvane;
    const QTemporaryDir account;
    for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
        qputenv(folder, account.path().toUtf8());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    SingleInstance instance("example.corvane.Corvane.measured");
    if (instance.claim({}, [](const std::vector<std::string>&) {}) != SingleInstance::Claim::first)
        return EXIT_FAILURE;
    theme::apply(application);
    installAccessibleWidgets();
    CorvaneApp app;
    PaintWatch watch;
    app.start({});
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            window->installEventFilter(&watch);
    }
    QApplication::exec();
    std::cout << "painted\n" << std::flush;
    return ::close(STDOUT_FILENO) == 0 ? EXIT_SUCCESS : EXIT_FAILURE; // its parent waits for this
} catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return EXIT_FAILURE;
}
