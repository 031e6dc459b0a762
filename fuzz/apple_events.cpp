// Bytes as a descriptor: read, written again, asked for everything, and sent as a request in every place.

#include "fuzz/target.h"
#include "intake/share_receiver.h"
#include "platform/apple_event_bytes.h"
#include "support/failing_files.h"

namespace {
struct EventKind {
    corvane::FourCharacterCode eventClass, eventId;
};
} // namespace

std::string runFuzzInput(std::string_view bytes)
{
    using namespace corvane;
    const auto descriptor = decodedDescriptor(bytes);
    if (!descriptor)
        return "";
    if (encodedDescriptor(*descriptor) != bytes)
        return "what was read is written as it was";
    (void)descriptor->asText();
    (void)descriptor->asBoolean();
    (void)descriptor->asInteger();
    (void)descriptor->asFileURL();
    (void)descriptor->asEnumerated();
    (void)descriptor->coerced("obj ");
    static test::FailingFiles files(0); // no folder is ever made
    FinalCutShareReceiver receiver(
        "/nonexistent/corvane", [] { return Identifier{}; }, ApplicationSupport::system(), files);
    AppleEventManager manager;
    receiver.install(manager);
    installOpenDocuments(manager, [](const std::vector<std::string>&) {});
    for (const EventKind& kind : {EventKind{"core", "crel"}, {"core", "getd"}, {"aevt", "odoc"}}) {
        AppleEvent event = {kind.eventClass, kind.eventId, {}};
        for (const FourCharacterCode key :
             {FourCharacterCode("----"), FourCharacterCode("kocl"), FourCharacterCode("prdt"),
              FourCharacterCode("data")})
            event.parameters.emplace(key, *descriptor);
        const AppleEventReply reply = manager.dispatch(event);
        for (const auto& [key, value] : reply.parameters) {
            const auto text = encodedDescriptor(value);
            if (decodedDescriptor(text) != value)
                return "a reply can be read";
        }
    }
    return receiver.assets().empty() ? "" : "no asset is there without its folder";
}
