#include "application/application.h"
#include "desktop/session_bus.h"
#include "help/product.h"
#include "platform/files.h"
#include "workspace/window/accessible_widgets.h"
#include "workspace/window/theme.h"

#include <QApplication>
#include <QFileInfo>
#include <QUrl>
#include <exception>
#include <iostream>

namespace {

/// Everything that was given is a file, or a location of one; there are no options.
std::vector<std::string> givenLocations(const QStringList& arguments)
{
    std::vector<std::string> locations;
    for (const QString& argument : arguments.mid(1)) {
        const QUrl url(argument);
        if (url.isLocalFile())
            locations.push_back(QFile::encodeName(url.toLocalFile()).toStdString());
        else if (argument.contains("://"))
            locations.push_back(argument.toStdString());
        else
            locations.push_back(QFile::encodeName(QFileInfo(argument).absoluteFilePath()).toStdString());
    }
    return locations;
}

} // namespace

int main(int argc, char** argv)
try {
    using namespace corvane;
    surviveFileSizeLimit();
    avoidSilentSessionBus();
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName("Corvane");
    QCoreApplication::setApplicationVersion(CORVANE_VERSION);
    QGuiApplication::setDesktopFileName(QString::fromUtf8(product::desktopID.data(), product::desktopID.size()));

    std::vector<std::string> locations = givenLocations(QCoreApplication::arguments());
    SingleInstance instance{std::string(product::desktopID)};
    std::unique_ptr<CorvaneApp> app;
    const auto claim = instance.claim(locations, [&](const std::vector<std::string>& requested) {
        if (app)
            app->open(requested);
        else
            locations.insert(locations.end(), requested.begin(), requested.end());
    });
    if (claim == SingleInstance::Claim::handedOver)
        return 0;
    if (claim == SingleInstance::Claim::unanswered) {
        theme::apply(application);
        ModalAlerts().showAlert(
            "Corvane is running already, but does not answer.", "Wait until it does, or end it and start again.");
        return 1;
    }
    if (SingleInstance::startedByBus())
        instance.awaitFirstRequest();

    theme::apply(application);
    installAccessibleWidgets();
    app = std::make_unique<CorvaneApp>();
    app->start(locations);
    const int result = QApplication::exec();
    app.reset();
    return result;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return 1;
}
