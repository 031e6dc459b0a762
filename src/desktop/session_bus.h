#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>
#include <string>

/// The desktop's session bus (D-Bus), as far as the program uses it. In a build without one (CORVANE_BUS) nobody is
/// there.
namespace corvane {

/// Milliseconds for another process to answer.
constexpr int patience = 2000;

/// What became of a request to another process.
enum class HandOver { taken, unanswered, nobody };

/// True when the bus started this process to handle a request, which is on its way.
[[nodiscard]] bool startedByBus();

/// Asks the program that has the name `id` on the bus to open the locations, none for a bare activation; for at most
/// two seconds.
[[nodiscard]] HandOver handOverOnBus(const std::string& id, const QStringList& uris);

/// The program's own name on the bus, until the end of its life: what desktops ask it comes in under it.
class BusName {
public:
    /// Takes the name `id`; `opened` is called with what there is to open, nothing for a bare activation.
    BusName(const std::string& id, std::function<void(const QStringList& uris)> opened);
    BusName(const BusName&) = delete;
    BusName& operator=(const BusName&) = delete;
    ~BusName();

    /// True also where there is no bus: then nobody else can have the name.
    [[nodiscard]] bool isHeld() const { return held_; }

private:
    std::unique_ptr<QObject> object_;
    bool held_ = true;
};

/// Asks the desktop's file manager to show the file, selected; false when none answers within two seconds.
[[nodiscard]] bool showInFileManagerOnBus(const QString& path);

} // namespace corvane
