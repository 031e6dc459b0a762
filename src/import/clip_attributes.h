#pragma once

#include "xml/document.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace corvane {

/// The attributes of an element that the walks over an angle need, collected in one pass.
struct ClipAttributes {
    std::optional<std::string_view> ref;
    std::optional<std::string_view> offset;
    std::optional<std::string_view> start;
    std::optional<std::string_view> duration;
    std::optional<std::string_view> srcEnable;
    bool disabled = false;   ///< "enabled" is exactly "0"
    bool splitAudio = false; ///< has "audioStart" or "audioDuration"
    std::size_t effort = 0;  ///< what reading them took, as xml::Element counts it

    explicit ClipAttributes(xml::Element element);
};

/// True for "asset-clip", "audio" and "video", the clips that show or play an asset.
[[nodiscard]] bool isMediaClip(std::string_view elementName);

} // namespace corvane
