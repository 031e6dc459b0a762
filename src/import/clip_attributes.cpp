#include "import/clip_attributes.h"

namespace corvane {

ClipAttributes::ClipAttributes(xml::Element element)
{
    constexpr std::array<std::string_view, 8> names = {"ref",       "offset",  "start",      "duration",
                                                       "srcEnable", "enabled", "audioStart", "audioDuration"};
    const auto values = element.attributes(names, effort);
    ref = values[0];
    offset = values[1];
    start = values[2];
    duration = values[3];
    srcEnable = values[4];
    disabled = values[5] == "0";
    splitAudio = values[6] || values[7];
}

bool isMediaClip(std::string_view elementName)
{
    return elementName == "asset-clip" || elementName == "audio" || elementName == "video";
}

} // namespace corvane
