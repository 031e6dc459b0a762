#include "desktop/session_bus.h"
#include "desktop/silent_bus.h"

// What stands in for the bus where the program is built without one.
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
