#pragma once

#include <string>

namespace corvane {

/// Shows messages that the user must read.
class Alerts {
public:
    Alerts() = default;
    Alerts(const Alerts&) = delete;
    Alerts& operator=(const Alerts&) = delete;
    virtual ~Alerts() = default;

    /// Returns at once. The alert is shown after those before it have been dismissed. An alert with the same texts as
    /// one that has not been dismissed yet is not shown again.
    virtual void showAlert(const std::string& message, const std::string& informativeText) = 0;
};

} // namespace corvane
