#include "application/application.h"
#include "desktop/given_location.h"
#include "desktop/silent_bus.h"
#include "help/product.h"
#include "platform/files.h"
#include "workspace/window/accessible_widgets.h"
#include "workspace/window/theme.h"

#include <QApplication>
#include <exception>
#include <filesystem>
#include <iostream>
#include <span>

namespace {

/// The absolute path; unchanged if this process's working folder no longer exists.
std::string absolutePath(const std::string& path)
{
    std::error_code gone;
    const auto absolute = std::filesystem::absolute(path, gone);
    return gone ? path : absolute.lexically_normal().string();
}

/// Each argument is a file or the URL of one; there are no options. Names are used byte for byte, so that a message
/// about a name shows the name as given.
std::vector<std::string> givenLocations(std::span<char*> arguments)
{
    std::vector<std::string> locations;
    for (const std::string argument : arguments.subspan(1)) {
        if (const auto path = corvane::pathOfURI(argument))
            locations.push_back(*path);
        else if (argument.find("://") != std::string::npos)
            locations.push_back(argument);
        else
            locations.push_back(absolutePath(argument));
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

    std::vector<std::string> locations =
        givenLocations({argv, static_cast<std::size_t>(argc)}); // without the toolkit's own arguments
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
        showModalAlert(
            "Corvane is already running but does not answer.", "Wait until it does, or end it and start again.");
        return 1;
    }
    if (startedByBus())
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
