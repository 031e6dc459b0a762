#include "intake/opened_files.h"

#include "intake/project_file.h"

namespace corvane {

void openURLs(
    const std::vector<std::string>& locations, XMLInbox& inbox, Alerts& alerts, const std::function<void()>& activate)
{
    if (locations.size() == 1 && projectFileKind(locations.front())) {
        inbox.setURL(locations.front());
        activate();
    } else {
        alerts.showAlert(
            "Open one Final Cut XML project at a time", "Select one project in Final Cut and share it to Corvane.");
    }
}

} // namespace corvane
