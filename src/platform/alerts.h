#pragma once

#include <string>

namespace corvane {

/// Tells the user something that has to be read before work goes on.
class Alerts {
public:
    Alerts() = default;
    Alerts(const Alerts&) = delete;
    Alerts& operator=(const Alerts&) = delete;
    virtual ~Alerts() = default;

    /// Modal: returns when the user has dismissed it.
    virtual void showAlert(const std::string& message, const std::string& informativeText) = 0;
};

} // namespace corvane
