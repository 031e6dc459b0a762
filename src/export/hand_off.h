#pragma once

#include "platform/security_scope.h"
#include "platform/workspace_services.h"

#include <string>
#include <string_view>

namespace corvane {

/// The start of the message about an export that was saved but not opened in Final Cut Pro.
constexpr std::string_view exportSaved = "Your export is saved at ";

/// Asks Final Cut Pro to open the document and come to the front. `completion` is called once on the interface thread,
/// at once with an error if Final Cut Pro is not found. Security-scoped access to the document is held until then.
void openInFinalCut(
    const std::string& xmlURL, WorkspaceServices& services, SecurityScope& scope, const MainThread& mainThread,
    WorkspaceServices::Report completion);

} // namespace corvane
