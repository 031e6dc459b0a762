#include "desktop/session_bus.h"
#include "desktop/silent_bus.h"

// Replaces the session bus in a build without D-Bus.
namespace corvane {

void avoidSilentSessionBus() {}

bool startedByBus()
{
    return false;
}

HandOver handOverOnBus(const std::string&, const QStringList&)
{
    return HandOver::nobody;
}

BusName::BusName(const std::string&, std::function<void(const QStringList&)>) {}

BusName::~BusName() = default;

bool showInFileManagerOnBus(const QString&)
{
    return false;
}

} // namespace corvane
