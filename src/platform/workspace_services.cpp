#include "platform/workspace_services.h"

namespace corvane {

void NoBundledApplications::open(const std::vector<std::string>&, const std::string& application, Report report)
{
    report(ServiceError{"Corvane", 2, "There is no application " + application + "."});
}

} // namespace corvane
