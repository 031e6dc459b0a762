#include "import/media_resources.h"

namespace corvane {

namespace {

constexpr std::string_view cameraNameKey = "com.apple.proapps.mio.cameraName";

void addCameraNames(std::vector<std::string_view>& names, xml::Element metadata)
{
    for (const xml::Element entry : metadata.children()) {
        if (!entry.named("md"))
            continue;
        const auto [key, value] = entry.attributes(std::array<std::string_view, 2>{"key", "value"});
        if (key == cameraNameKey && value && !value->empty())
            names.push_back(*value);
    }
}

AssetFacts readAsset(xml::Element asset, std::optional<std::string_view>& id)
{
    constexpr std::array<std::string_view, 6> names = {"id", "name", "duration", "hasVideo", "hasAudio", "src"};
    const auto values = asset.attributes(names);
    id = values[0];
    AssetFacts facts;
    facts.name = values[1];
    facts.duration = values[2];
    facts.hasVideo = values[3] == "1";
    facts.hasAudio = values[4] == "1";
    facts.located = !values[5].value_or("").empty();
    for (const xml::Element child : asset.children()) {
        if (child.named("media-rep"))
            facts.located = facts.located || !child.attribute("src").value_or("").empty();
        else if (child.named("metadata"))
            addCameraNames(facts.cameraNames, child);
    }
    return facts;
}

} // namespace

MediaResources::MediaResources(xml::Element resources)
{
    for (const xml::Element child : resources.children()) {
        if (child.named("asset")) {
            std::optional<std::string_view> id;
            AssetFacts facts = readAsset(child, id);
            assetIds_.add(id, assets_.size());
            assets_.push_back(std::move(facts));
        } else if (child.named("media")) {
            mediaIds_.add(child.attribute("id"), media_.size());
            media_.push_back(child);
        } else if (child.named("format")) {
            formatIds_.add(child.attribute("id"), formats_.size());
            formats_.push_back(child);
        }
    }
    for (Index* index : {&assetIds_, &mediaIds_, &formatIds_})
        index->sort();
}

const AssetFacts* MediaResources::asset(Reference id) const
{
    const auto place = assetIds_.find(id);
    return place ? &assets_[*place] : nullptr;
}

std::optional<xml::Element> MediaResources::media(Reference id) const
{
    const auto place = mediaIds_.find(id);
    return place ? std::optional(media_[*place]) : std::nullopt;
}

std::optional<xml::Element> MediaResources::format(Reference id) const
{
    const auto place = formatIds_.find(id);
    return place ? std::optional(formats_[*place]) : std::nullopt;
}

void MediaResources::Index::add(Reference id, std::size_t place)
{
    if (id)
        places_.add(*id, place);
    else if (!withoutId_)
        withoutId_ = place;
}

std::optional<std::size_t> MediaResources::Index::find(Reference id) const
{
    if (!id)
        return withoutId_;
    if (last_ && last_->first == *id)
        return last_->second;
    const auto place = places_.find(*id);
    if (place)
        last_.emplace(*id, *place);
    return place;
}

} // namespace corvane
