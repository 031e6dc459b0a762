// Bytes as a descriptor: read, written again, asked for everything, and sent as every part of a request. There is one
// asset, whose identifier is zeros, and the descriptor said what it is called.

#include "fuzz/target.h"
#include "intake/share_receiver.h"
#include "platform/apple_event_bytes.h"

namespace {

using namespace corvane;
using Code = FourCharacterCode;
using D = AppleEventDescriptor;

struct PretendedFolders : FileCalls {
    int makeFolder(const std::string&) override { return 0; }
};

/// The requested property of the asset that `makeAsset` answered with.
D propertyOf(const D& asset, Code property)
{
    const auto specifier = D::record(
        {{"want", D::typeCode("prop")},
         {"form", D::enumerated("prop")},
         {"seld", D::typeCode(property)},
         {"from", asset}});
    return specifier.coerced("obj ").value_or(D());
}

std::string sentEverywhere(const D& descriptor)
{
    static PretendedFolders files;
    FinalCutShareReceiver receiver("/incoming", [] { return Identifier{}; }, ApplicationSupport::system(), files);
    AppleEventManager manager;
    receiver.install(manager);
    installOpenDocuments(manager, [](const std::vector<std::string>&) {});
    bool readable = true;
    const auto send = [&](Code eventClass, Code id, const AppleEventParameters& parameters) {
        AppleEventReply reply = manager.dispatch({eventClass, id, parameters});
        for (const auto& [key, value] : reply.parameters)
            readable = readable && decodedDescriptor(encodedDescriptor(value)) == value;
        return reply.parameters;
    };
    (void)send("core", "crel", {{Code("kocl"), descriptor}, {Code("prdt"), descriptor}});
    auto made = send("core", "crel", {{Code("kocl"), D::typeCode("aset")}, {Code("prdt"), descriptor}});
    if (!made.contains("----") || receiver.assets().size() != 1)
        return "an asset is made whatever is said of it";
    (void)send("core", "getd", {{Code("----"), descriptor}});
    (void)send("aevt", "odoc", {{Code("----"), descriptor}});
    for (const Code property : {Code("locn"), Code("lbry"), Code("meta"), Code("dopt"), Code("pnam"), Code("ID  ")}) {
        auto reply = send("core", "getd", {{Code("----"), propertyOf(made["----"], property)}});
        if (!reply.contains("----"))
            return "an asset has its properties";
        const auto* metadata = descriptor.field("meta");
        if (property == Code("meta") && reply["----"] != (metadata == nullptr ? D::emptyRecord() : *metadata))
            return "metadata comes back as it was";
    }
    return readable ? "" : "a reply can be read";
}

} // namespace

std::string runFuzzInput(std::string_view bytes)
{
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
    return sentEverywhere(*descriptor);
}
