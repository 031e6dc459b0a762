#include "export/hand_off.h"

#include <utility>

namespace corvane {

void openInFinalCut(
    const std::string& xmlURL, WorkspaceServices& services, SecurityScope& scope, const MainThread& mainThread,
    WorkspaceServices::Report completion)
{
    const auto application = services.application("com.apple.FinalCut");
    if (!application) {
        completion(
            ServiceError{"Corvane", 1, "Final Cut Pro could not be found. Your exported files have been saved."});
        return;
    }
    const bool granted = scope.start(xmlURL);
    services.open(
        {xmlURL}, *application,
        [&scope, granted, xmlURL, mainThread,
         completion = std::move(completion)](const std::optional<ServiceError>& error) {
            mainThread([&scope, granted, xmlURL, completion, error] {
                if (granted)
                    scope.stop(xmlURL);
                completion(error);
            });
        });
}

} // namespace corvane
