#pragma once

#include "intake/final_cut/apple_event_descriptor.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

/// The system's numbers for what went wrong with an event.
enum class AppleEventError : std::int32_t {
    descriptorNotFound = -1701, ///< a parameter is missing
    wrongDataType = -1703,      ///< a parameter is there, but not of the type that it must have
    notHandled = -1708,         ///< nobody handles such events
    noSuchObject = -1728,
    eventFailed = -10000,
};

using AppleEventParameters = std::map<FourCharacterCode, AppleEventDescriptor>;

/// A request from another program.
struct AppleEvent {
    FourCharacterCode eventClass;
    FourCharacterCode eventId;
    AppleEventParameters parameters;
    bool operator==(const AppleEvent&) const = default;

    /// Null when it is missing. The direct object is '----'.
    [[nodiscard]] const AppleEventDescriptor* parameter(FourCharacterCode key) const;
};

/// What goes back to the program that asked.
struct AppleEventReply {
    AppleEventParameters parameters;
    bool operator==(const AppleEventReply&) const = default;

    /// Sets 'errn', the number, and 'errs', a text for people.
    void fail(AppleEventError error, std::string_view text);
};

/// Brings each event to the one handler for its class and id. Main thread only.
class AppleEventManager {
public:
    using Handler = std::function<void(const AppleEvent&, AppleEventReply&)>;

    /// Replaces an earlier handler for the same events.
    void setHandler(FourCharacterCode eventClass, FourCharacterCode eventId, Handler handler);

    /// Runs the handler and gives its reply: 'errn' is notHandled where there is none, and eventFailed with the
    /// failure's words where it throws.
    [[nodiscard]] AppleEventReply dispatch(const AppleEvent& event) const;

private:
    std::map<std::pair<FourCharacterCode, FourCharacterCode>, Handler> handlers_;
};

/// Handles the request to open documents ('aevt'/'odoc') as the system does for every application: `open` gets all
/// paths of a request whose direct object is a file URL or a list of them; any other is answered with an error.
void installOpenDocuments(AppleEventManager& manager, std::function<void(const std::vector<std::string>&)> open);

} // namespace corvane
