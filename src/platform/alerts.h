#pragma once

#include <string>

namespace corvane {

/// Tells the user something that has to be read.
class Alerts {
public:
    Alerts() = default;
    Alerts(const Alerts&) = delete;
    Alerts& operator=(const Alerts&) = delete;
    virtual ~Alerts() = default;

    /// Returns at once. It is shown when those that wait already have been dismissed; one with the same texts as
    /// another that was not dismissed yet is that one.
    virtual void showAlert(const std::string& message, const std::string& informativeText) = 0;
};

} // namespace corvane
