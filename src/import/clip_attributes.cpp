#include "import/clip_attributes.h"

namespace corvane {

ClipAttributes::ClipAttributes(xml::Element element)
{
    for (const auto [key, value] : element.attributes()) {
        if (key == "name")
            name = value;
        else if (key == "ref")
            ref = value;
        else if (key == "offset")
            offset = value;
        else if (key == "start")
            start = value;
        else if (key == "duration")
            duration = value;
        else if (key == "srcEnable")
            srcEnable = value;
        else if (key == "enabled")
            disabled = value == "0";
        else if (key == "audioStart" || key == "audioDuration")
            splitAudio = true;
    }
}

bool isMediaClip(std::string_view elementName)
{
    return elementName == "asset-clip" || elementName == "audio" || elementName == "video";
}

} // namespace corvane
