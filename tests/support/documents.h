#pragma once

#include <string>
#include <string_view>

/// Small FCPXML documents for tests: 25 frames a second, 40 seconds (1000 frames), assets "av", "v", "a" with video
/// and sound, and "lost" without a file.
namespace corvane::test {

inline std::string replaced(std::string text, std::string_view from, std::string_view to)
{
    const std::size_t at = text.find(from);
    return at == std::string::npos ? "nothing to replace" : text.replace(at, from.size(), to);
}

inline std::string clip(const std::string& offset, const std::string& duration, const std::string& asset = "av")
{
    return "<asset-clip ref=\"" + asset + "\" offset=\"" + offset + "\" duration=\"" + duration + "\"/>";
}

/// An angle whose id is its name.
inline std::string angle(const std::string& name, const std::string& contents)
{
    return "<mc-angle name=\"" + name + "\" angleID=\"" + name + "\">" + contents + "</mc-angle>";
}

struct Parts {
    std::string angles = angle("A", clip("0s", "40s")) + angle("B", clip("0s", "40s"));
    std::string resources = {}; ///< beside the assets; NOLINT(readability-redundant-*): may be left out
    std::string inClip = R"(<mc-source angleID="A" srcEnable="all"/>)"; ///< children of the mc-clip
};

inline std::string document(const Parts& parts = {})
{
    return R"xml(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE fcpxml>
<fcpxml version="1.11"><resources>
<format id="r1" frameDuration="100/2500s" width="1920" height="1080" colorSpace="1-1-1 (Rec. 709)"/>
<asset id="av" name="Both" duration="40s" hasVideo="1" hasAudio="1"><media-rep src="file:///av.mov"/>
<metadata><any/><md key="com.apple.proapps.mio.cameraName" value="Camera 1"/></metadata></asset>
<asset id="v" name="Picture" duration="40s" hasVideo="1" src="file:///v.mov"/>
<asset id="a" name="Sound" duration="40s" hasAudio="1" src="file:///a.wav"/>
<asset id="lost" name="Lost" duration="40s" hasVideo="1"><media-rep src=""/></asset>
<media id="mc"><multicam format="r1" tcStart="0s">)xml" +
           parts.angles + "</multicam></media>" + parts.resources + R"xml(</resources>
<library><event><project name="Concert" uid="U" modDate="today"><sequence format="r1" duration="40s" tcStart="0s">
<spine><mc-clip ref="mc" name="MC" offset="0s" start="0s" duration="40s">)xml" +
           parts.inClip + "</mc-clip></spine></sequence></project></event></library></fcpxml>";
}

inline const std::string otherProject = replaced(document(), "Concert", "Other");

} // namespace corvane::test
