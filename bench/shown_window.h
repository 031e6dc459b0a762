#pragma once

#include "bench/session_window.h"
#include "platform/resources.h"
#include "platform/updater.h"
#include "workspace/window/busy_sign.h"
#include "workspace/window/main_window.h"

#include <string>

namespace corvane::bench {

/// Once, without a display.
void startToolkit();
/// Before the program ends: the toolkit does not bear to end with the program's statics.
void endToolkit();

/// The main window over a controller on a folder.
class ShownWindow {
public:
    explicit ShownWindow(const std::string& folder);

    SessionWindow& session() { return session_; }
    MainWindow& window() { return window_; }

    void resize(const QSize& size) { window_.resize(size); }

    /// Until everything that was asked for is on screen.
    static void paint();

private:
    SessionWindow session_;
    ResourceFolders resources_;
    NoUpdater updater_;
    BusySignLabel busy_;
    MainWindow window_;
};

} // namespace corvane::bench
