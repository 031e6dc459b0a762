#pragma once

#include "intake/final_cut/apple_event_descriptor.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

/// The system's error numbers for events.
enum class AppleEventError : std::int32_t {
    descriptorNotFound = -1701, ///< a parameter is missing
    wrongDataType = -1703,      ///< a parameter has the wrong type
    notHandled = -1708,         ///< there is no handler for such events
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

    /// Null if the parameter is missing. The key of the direct object is '----'.
    [[nodiscard]] const AppleEventDescriptor* parameter(FourCharacterCode key) const;
};

/// The reply to the program that sent the event.
struct AppleEventReply {
    AppleEventParameters parameters;
    bool operator==(const AppleEventReply&) const = default;

    /// Sets 'errn' to the error number and 'errs' to a text for people.
    void fail(AppleEventError error, std::string_view text);
};

/// Passes each event to the handler for its class and id. Main thread only.
class AppleEventManager {
public:
    using Handler = std::function<void(const AppleEvent&, AppleEventReply&)>;

    /// Replaces an earlier handler for the same events.
    void setHandler(FourCharacterCode eventClass, FourCharacterCode eventId, Handler handler);

    /// Runs the handler and returns its reply. 'errn' is notHandled if there is no handler, and eventFailed with the
    /// exception's text if the handler throws.
    [[nodiscard]] AppleEventReply dispatch(const AppleEvent& event) const;

private:
    std::map<std::pair<FourCharacterCode, FourCharacterCode>, Handler> handlers_;
};

/// Handles the request to open documents ('aevt'/'odoc') as the system does for every application: calls `open` with
/// all paths if the direct object is a file URL or a list of file URLs, and answers any other request with an error.
/// For a program on macOS, whose system sends such events; on Linux files arrive by other ways.
void installOpenDocuments(AppleEventManager& manager, std::function<void(const std::vector<std::string>&)> open);

} // namespace corvane
