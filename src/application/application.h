#pragma once

#include "desktop/single_instance.h"
#include "intake/final_cut/apple_event_manager.h"
#include "intake/final_cut/share_receiver.h"
#include "platform/resources.h"
#include "platform/updater.h"
#include "platform/user_defaults.h"
#include "platform/workspace_services.h"
#include "session/session_store.h"
#include "workspace/content_view.h"
#include "workspace/window/busy_sign.h"
#include "workspace/window/file_dialogs.h"
#include "workspace/window/main_window.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// Answers Final Cut's share events once the application has launched. Files to open arrive in CorvaneApp::open.
class CorvaneAppDelegate {
public:
    /// From now on, the receiver answers the manager's share events.
    void applicationDidFinishLaunching(AppleEventManager& manager) { receiver.install(manager); }

    FinalCutShareReceiver receiver;
};

/// The program: the controller with this user's files, its window, and requests from other programs.
class CorvaneApp {
public:
    CorvaneApp();

    /// Shows the window and, once it is visible, opens the files that were given at the start.
    void start(const std::vector<std::string>& locations);
    /// Handles a request from another start or from the desktop: opens the files and brings the window to the front.
    void open(const std::vector<std::string>& locations);

private:
    void openGiven();
    void activate();
    void reveal(const std::string& path);
    void showWindow();

    FileUserDefaults defaults_;
    SessionStore sessions_;
    NoBundledApplications services_;
    ResourceFolders resources_;
    NoUpdater updater_;
    BusySignLabel busy_;
    FileDialogs dialogs_;
    AppleEventManager events_;
    CorvaneAppDelegate delegate_;
    ContentView view_;
    std::unique_ptr<MainWindow> window_;
    std::vector<std::string> given_; ///< at the start and not opened yet
    bool shown_ = false;
};

} // namespace corvane
