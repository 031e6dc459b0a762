#pragma once

#include "desktop/hand_over.h"

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>
#include <string>

/// The parts of the desktop's session bus (D-Bus) that the program uses. In a build without D-Bus (CORVANE_BUS=OFF)
/// nobody ever answers.
namespace corvane {

/// True if the bus started this process to handle a request, which will arrive soon.
[[nodiscard]] bool startedByBus();

/// Asks the program with the name `id` on the bus to open the locations, or just to activate its window if there are
/// none. Waits for at most answerPatience.
[[nodiscard]] HandOver handOverOnBus(const std::string& id, const QStringList& uris);

/// Owns the program's name on the bus, under which it receives requests from the desktop.
class BusName {
public:
    /// Takes the name `id`. `opened` is called with the locations to open, or with an empty list for an activation
    /// without files.
    BusName(const std::string& id, std::function<void(const QStringList& uris)> opened);
    BusName(const BusName&) = delete;
    BusName& operator=(const BusName&) = delete;
    ~BusName();

    /// Also true if there is no bus, because then no other program can have the name.
    [[nodiscard]] bool isHeld() const { return held_; }

private:
    std::unique_ptr<QObject> object_;
    bool held_ = true;
};

/// Asks the desktop's file manager to show the file, selected. False if none answers within answerPatience.
[[nodiscard]] bool showInFileManagerOnBus(const QString& path);

} // namespace corvane
