#include "application/application.h"

#include "desktop/file_manager.h"
#include "desktop/main_thread.h"
#include "platform/application_support.h"
#include "platform/files.h"

#include <QCoreApplication>
#include <QFile>

namespace corvane {

namespace {

/// Beside the program where it is installed; at the root of the source tree for a build that was not.
std::vector<std::string> resourceFolders()
{
    const std::string program = QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    return {program + "/../share/corvane", CORVANE_INSTALLED_RESOURCES, program + "/../../../../resources"};
}

std::string sessionFolder()
{
    const std::string folder = pathIn(ApplicationSupport::system().folder(), "Corvane");
    makeFolders(folder);
    return folder;
}

} // namespace

CorvaneApp::CorvaneApp()
    : defaults_(FileUserDefaults::usualFolder()),
      sessions_(sessionFolder),
      resources_(resourceFolders()),
      dialogs_(defaults_),
      view_(WorkspaceServicesInUse{
          .dialogs = dialogs_,
          .defaults = defaults_,
          .sessions = sessions_,
          .scope = SecurityScope::system(),
          .services = services_,
          .inbox = XMLInbox::shared(),
          .mainThread = interfaceThread(),
          .busy = [this](const std::string& text) { return busy_.show(text); }}),
      window_(std::make_unique<MainWindow>(MainWindowServices{
          view_, XMLInbox::shared(), defaults_, resources_, updater_, busy_,
          [this](const std::string& path) { reveal(path); },
          product::BundleInfo{CORVANE_SHORT_VERSION, CORVANE_BUILD}}))
{
    dialogs_.setParent(window_.get());
    delegate_.applicationDidFinishLaunching(events_);
}

void CorvaneApp::start(const std::vector<std::string>& locations)
{
    // One project is read before the window appears, so that the session of last time is never seen behind it.
    const bool early = locations.size() == 1;
    if (early)
        open(locations);
    showWindow();
    if (!early && !locations.empty())
        open(locations);
}

void CorvaneApp::open(const std::vector<std::string>& locations)
{
    if (locations.empty())
        activate();
    else
        openURLs(locations, XMLInbox::shared(), window_->alerts(), [this] { activate(); });
}

void CorvaneApp::reveal(const std::string& path)
{
    if (!showInFileManager(path))
        window_->alerts().showAlert("No file manager could be opened.", path);
}

void CorvaneApp::activate()
{
    if (shown_)
        bringToFront(*window_);
}

void CorvaneApp::showWindow()
{
    if (std::exchange(shown_, true))
        return;
    view_.windowAppeared();
    window_->show();
}

} // namespace corvane
