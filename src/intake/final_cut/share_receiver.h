#pragma once

#include "base/identifier.h"
#include "intake/final_cut/apple_event_manager.h"
#include "intake/xml_inbox.h"
#include "platform/alerts.h"
#include "platform/application_support.h"
#include "platform/files.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// One project that Final Cut shares.
struct Asset {
    std::string name;              ///< Final Cut's, or "Final Cut project"
    std::string folder;            ///< made for this share alone; stays on the disk
    AppleEventDescriptor metadata; ///< as received, or an empty record
    bool operator==(const Asset&) const = default;
};

/// The receiving side of Final Cut's Share menu: makes an asset for each share and tells Final Cut what it asks of it,
/// above all where to write. Assets are kept as long as the receiver.
class FinalCutShareReceiver {
public:
    /// Shares land in `incomingFolder` (an absolute path), without one in "Corvane/Incoming" of application support.
    explicit FinalCutShareReceiver(
        std::optional<std::string> incomingFolder = std::nullopt, IdentifierSource identifiers = randomIdentifiers(),
        ApplicationSupport& support = ApplicationSupport::system(), FileCalls& calls = FileCalls::system());
    FinalCutShareReceiver(const FinalCutShareReceiver&) = delete;
    FinalCutShareReceiver& operator=(const FinalCutShareReceiver&) = delete;
    ~FinalCutShareReceiver() = default;

    /// By id, a UUID in upper case.
    [[nodiscard]] const std::map<std::string, Asset>& assets() const { return assets_; }

    /// 'core'/'crel': a new asset with a folder of its own; the reply is its specifier. Without a folder, no asset.
    void makeAsset(const AppleEvent& event, AppleEventReply& reply);
    /// 'core'/'getd': one property of one asset.
    void getProperty(const AppleEvent& event, AppleEventReply& reply) const;

    /// Handles both events from now on: the receiver has to live as long as the manager dispatches.
    void install(AppleEventManager& manager);

private:
    [[nodiscard]] std::string makeFolder(const std::string& id);

    std::optional<std::string> incomingFolder_;
    IdentifierSource identifiers_;
    ApplicationSupport& support_;
    FileCalls& calls_;
    std::map<std::string, Asset> assets_;
};

/// Files opened with the application, Final Cut's after a share among them: the one project file goes into the inbox
/// and `activate` brings the application and its window to the front. Anything else is answered with an alert.
void openURLs(
    const std::vector<std::string>& locations, XMLInbox& inbox, Alerts& alerts, const std::function<void()>& activate);

} // namespace corvane
