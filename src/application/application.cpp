#include "application/application.h"

#include "desktop/file_manager.h"
#include "desktop/main_thread.h"
#include "intake/opened_files.h"
#include "intake/project_file.h"
#include "platform/application_support.h"
#include "platform/files.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <utility>

namespace corvane {

namespace {

/// The folder relative to the installed program, and that in the source tree for a build that is not installed.
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

/// Runs a function once the window has been painted for the first time, or after a second if it is not painted.
class OnceSeen : public QObject {
public:
    OnceSeen(QWidget& window, std::function<void()> work) : QObject(&window), work_(std::move(work))
    {
        window.windowHandle()->installEventFilter(this);
        constexpr int patience = 1000; // milliseconds
        QTimer::singleShot(patience, this, [this] { run(); });
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Expose) // painting follows
            QTimer::singleShot(0, this, [this] { run(); });
        return false;
    }

private:
    void run()
    {
        if (const auto work = std::exchange(work_, nullptr)) {
            deleteLater();
            work();
        }
    }

    std::function<void()> work_;
};

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
    given_ = locations;
    // A window that waits for a project does not show the last session.
    if (given_.size() == 1 && projectFileKind(given_.front()) && !addressRefusal(given_.front()))
        view_.expectProject();
    showWindow();
    if (!given_.empty())
        new OnceSeen(*window_, [this] { openGiven(); });
}

void CorvaneApp::openGiven()
{
    if (const auto locations = std::exchange(given_, {}); !locations.empty())
        open(locations);
}

void CorvaneApp::open(const std::vector<std::string>& locations)
{
    openGiven(); // in the order of arrival
    const auto refusal = locations.size() == 1 ? addressRefusal(locations.front()) : std::nullopt;
    if (refusal)
        XMLInbox::shared().setImportError(refusal);
    if (refusal || locations.empty())
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
