#pragma once

#include "platform/security_scope.h"
#include "platform/workspace_services.h"

#include <string>
#include <string_view>

namespace corvane {

/// How the message begins that tells of an export which is saved, but which no Final Cut Pro has opened.
constexpr std::string_view exportSaved = "Your export is saved at ";

/// Asks Final Cut Pro to open the document, and to come to the front. `completion` is called once, on the interface
/// thread: right away with an error where Final Cut Pro is not found. Access to the document is held until then.
void openInFinalCut(
    const std::string& xmlURL, WorkspaceServices& services, SecurityScope& scope, const MainThread& mainThread,
    WorkspaceServices::Report completion);

} // namespace corvane
