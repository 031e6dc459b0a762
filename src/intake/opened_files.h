#pragma once

#include "intake/xml_inbox.h"
#include "platform/alerts.h"

#include <functional>
#include <string>
#include <vector>

namespace corvane {

/// Handles files opened with the application: those given at its start, by another start or by the desktop, and those
/// that Final Cut opens after a share. A single project file goes into the inbox, and `activate` brings the application
/// and its window to the front. Anything else leads to an alert.
void openURLs(
    const std::vector<std::string>& locations, XMLInbox& inbox, Alerts& alerts, const std::function<void()>& activate);

} // namespace corvane
