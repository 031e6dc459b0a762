#include "intake/final_cut/share_receiver.h"

#include "base/error.h"

#include <utility>

namespace corvane {

namespace {

using Descriptor = AppleEventDescriptor;

constexpr FourCharacterCode directObject = "----", assetClass = "aset", idForm = "ID  ";

/// The record's field as `reader` reads it; none also if there is no record or no such field.
template <class Value>
std::optional<Value> read(
    const Descriptor* record, FourCharacterCode key, std::optional<Value> (Descriptor::*reader)() const)
{
    const Descriptor* field = record == nullptr ? nullptr : record->field(key);
    return field == nullptr ? std::nullopt : (field->*reader)();
}

struct PropertyRequest {
    FourCharacterCode property;
    std::string assetId;
};

/// None unless the specifier asks for a property of an asset that is identified by id.
std::optional<PropertyRequest> propertyRequest(const Descriptor* specifier)
{
    const auto property = read(specifier, "seld", &Descriptor::asTypeCode);
    if (read(specifier, "want", &Descriptor::asTypeCode) != FourCharacterCode("prop") || !property)
        return std::nullopt;
    const Descriptor* asset = specifier->field("from");
    auto id = read(asset, "seld", &Descriptor::asText);
    if (read(asset, "want", &Descriptor::asTypeCode) != assetClass ||
        read(asset, "form", &Descriptor::asEnumerated) != idForm || !id)
        return std::nullopt;
    return PropertyRequest{*property, *std::move(id)};
}

Descriptor recordOf(FourCharacterCode type, std::vector<Descriptor::Field> fields)
{
    const Descriptor record = Descriptor::record(std::move(fields));
    return record.coerced(type).value_or(record);
}

/// Where Final Cut writes its files, whose names begin with the base name. Of all that it could write, only the XML is
/// requested.
Descriptor locationOf(const Asset& asset)
{
    return recordOf(
        "aslc", {{"asfd", Descriptor::fileURL(asset.folder + "/")},
                 {"asbn", Descriptor::text("Corvane Import")},
                 {"ashm", Descriptor::boolean(false)},
                 {"ashd", Descriptor::boolean(true)}});
}

/// None for properties that an asset does not have.
std::optional<Descriptor> valueOf(FourCharacterCode property, const std::string& id, const Asset& asset)
{
    switch (property.value) {
    case FourCharacterCode("locn").value:
        return locationOf(asset);
    case FourCharacterCode("lbry").value:
        return recordOf("lblc", {{"lbha", Descriptor::boolean(false)}, {"lbhd", Descriptor::boolean(false)}});
    case FourCharacterCode("meta").value:
        return asset.metadata;
    case FourCharacterCode("dopt").value:
        return Descriptor::emptyRecord();
    case FourCharacterCode("pnam").value:
        return Descriptor::text(asset.name);
    case idForm.value:
        return Descriptor::text(id);
    default:
        return std::nullopt;
    }
}

} // namespace

FinalCutShareReceiver::FinalCutShareReceiver(
    std::optional<std::string> incomingFolder, IdentifierSource identifiers, ApplicationSupport& support,
    FileCalls& calls)
    : incomingFolder_(std::move(incomingFolder)), identifiers_(std::move(identifiers)), support_(support), calls_(calls)
{
}

std::string FinalCutShareReceiver::makeFolder(const std::string& id)
{
    const std::string base = incomingFolder_ ? *incomingFolder_ : pathIn(support_.folder(), "Corvane/Incoming");
    std::string folder = pathIn(base, id);
    makeFolders(folder, calls_);
    return folder;
}

void FinalCutShareReceiver::makeAsset(const AppleEvent& event, AppleEventReply& reply)
{
    const Descriptor* kind = event.parameter("kocl");
    if (kind == nullptr || kind->asTypeCode() != assetClass)
        return reply.fail(AppleEventError::noSuchObject, "Corvane accepts Final Cut assets only.");
    const Descriptor* properties = event.parameter("prdt");
    std::string name = read(properties, "pnam", &Descriptor::asText).value_or("Final Cut project");
    std::string id;
    std::string folder;
    try {
        id = identifiers_().text();
        folder = makeFolder(id);
    } catch (const PlatformError& failure) {
        return reply.fail(AppleEventError::eventFailed, failure.what());
    }
    const Descriptor* metadata = properties == nullptr ? nullptr : properties->field("meta");
    assets_[id] = {std::move(name), std::move(folder), metadata == nullptr ? Descriptor::emptyRecord() : *metadata};
    const auto specifier = Descriptor::record({{"want", Descriptor::typeCode(assetClass)},
                                               {"form", Descriptor::enumerated(idForm)},
                                               {"seld", Descriptor::text(id)},
                                               {"from", Descriptor()}})
                               .coerced("obj ");
    if (specifier)
        reply.parameters.insert_or_assign(directObject, *specifier);
}

void FinalCutShareReceiver::getProperty(const AppleEvent& event, AppleEventReply& reply) const
{
    const auto request = propertyRequest(event.parameter(directObject));
    if (!request || !assets_.contains(request->assetId))
        return reply.fail(AppleEventError::noSuchObject, "The requested Final Cut transfer was not found.");
    auto value = valueOf(request->property, request->assetId, assets_.at(request->assetId));
    if (!value)
        return reply.fail(AppleEventError::noSuchObject, "Unsupported Final Cut asset property.");
    reply.parameters.insert_or_assign(directObject, *std::move(value));
}

void FinalCutShareReceiver::install(AppleEventManager& manager)
{
    manager.setHandler("core", "crel", [this](const auto& event, auto& reply) { makeAsset(event, reply); });
    manager.setHandler("core", "getd", [this](const auto& event, auto& reply) { getProperty(event, reply); });
}

} // namespace corvane
