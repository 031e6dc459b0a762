#pragma once

#include "base/identifier.h"
#include "intake/final_cut/apple_event_manager.h"
#include "platform/application_support.h"
#include "platform/files.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// One project that Final Cut shares.
struct Asset {
    std::string name;              ///< the name from Final Cut, or "Final Cut project"
    std::string folder;            ///< created for this share only; stays on the disk
    AppleEventDescriptor metadata; ///< as received, or an empty record
    bool operator==(const Asset&) const = default;
};

/// The receiving side of Final Cut's Share menu: makes an asset for each share and answers Final Cut's questions about
/// it, above all where to write. Assets exist as long as the receiver.
class FinalCutShareReceiver {
public:
    /// Shares arrive in `incomingFolder` (an absolute path), by default in "Corvane/Incoming" in the application
    /// support folder.
    explicit FinalCutShareReceiver(
        std::optional<std::string> incomingFolder = std::nullopt, IdentifierSource identifiers = randomIdentifiers(),
        ApplicationSupport& support = ApplicationSupport::system(), FileCalls& calls = FileCalls::system());
    FinalCutShareReceiver(const FinalCutShareReceiver&) = delete;
    FinalCutShareReceiver& operator=(const FinalCutShareReceiver&) = delete;
    ~FinalCutShareReceiver() = default;

    /// The assets by id, an upper-case UUID.
    [[nodiscard]] const std::map<std::string, Asset>& assets() const { return assets_; }

    /// 'core'/'crel': makes a new asset with a folder of its own; the reply is its specifier. Makes no asset if the
    /// folder cannot be created.
    void makeAsset(const AppleEvent& event, AppleEventReply& reply);
    /// 'core'/'getd': replies with one property of one asset.
    void getProperty(const AppleEvent& event, AppleEventReply& reply) const;

    /// Installs handlers for both events. The receiver must exist as long as the manager dispatches events.
    void install(AppleEventManager& manager);

private:
    [[nodiscard]] std::string makeFolder(const std::string& id);

    std::optional<std::string> incomingFolder_;
    IdentifierSource identifiers_;
    ApplicationSupport& support_;
    FileCalls& calls_;
    std::map<std::string, Asset> assets_;
};

} // namespace corvane
