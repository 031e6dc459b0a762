#include "bench/document_generator.h"

#include "bench/document_text.h"
#include "bench/repeatable_numbers.h"
#include "import/frame_range.h"
#include "import/time_values.h"

#include <algorithm>
#include <array>

namespace corvane::bench {

namespace {

constexpr std::size_t bookmarkBytes = 800;
constexpr Frames assetFrames = 108'000; // an hour at 30000/1001 frames per second
constexpr Frames longestClip = 600;

/// How many consecutive clips of an angle come from the same recording.
constexpr std::size_t clipsOfAnAsset = 5;

std::string time(Frames frames)
{
    return timeString(frames, 1001, 30000);
}

std::string assetId(std::size_t asset)
{
    return numbered("r", asset + 10);
}

std::string assetName(std::size_t asset)
{
    return numbered(numbered("CAM", asset % importAngles + 1) + "_", asset / importAngles + 1001);
}

/// Writes one document. The parts have target sizes in bytes, which determine their contents.
class Generator {
public:
    Generator(std::size_t bytes, Gaps gaps) : bytes_(bytes), gaps_(gaps)
    {
        for (std::string& id : angleIds_)
            id = numbers_.base64(22);
    }

    std::string run()
    {
        // The clips are spread over all assets, so the assets are counted before the clips are written.
        DocumentText assets(2);
        while (assets.size() < bytes_ / 100 * 35)
            addAsset(assets);
        document_.prologue();
        document_.open("fcpxml", {{"version", "1.11"}});
        document_.open("resources");
        addFormats();
        addMulticam();
        document_.append(assets.text());
        document_.close();
        addLibrary();
        document_.close();
        return document_.text();
    }

private:
    void addFormats()
    {
        document_.element(
            "format", {{"id", "r1"},
                       {"name", "FFVideoFormat2160p2997"},
                       {"frameDuration", "1001/30000s"},
                       {"width", "3840"},
                       {"height", "2160"},
                       {"colorSpace", "1-1-1 (Rec. 709)"}});
        document_.element("format", {{"id", "r2"}, {"name", "FFVideoFormatRateUndefined"}});
    }

    void addAsset(DocumentText& assets)
    {
        const std::size_t asset = assets_++;
        const std::string name = assetName(asset);
        const std::string signature = numbers_.digits(32);
        const std::string camera = std::to_string(asset % importAngles + 1);
        assets.open(
            "asset", {{"id", assetId(asset)},
                      {"name", name},
                      {"uid", signature},
                      {"start", "0s"},
                      {"duration", time(assetFrames)},
                      {"hasVideo", "1"},
                      {"format", "r1"},
                      {"hasAudio", "1"},
                      {"videoSources", "1"},
                      {"audioSources", "1"},
                      {"audioChannels", "2"},
                      {"audioRate", "48000"}});
        assets.open(
            "media-rep", {{"kind", "original-media"},
                          {"sig", signature},
                          {"src", "file:///Volumes/Recordings/Camera%20" + camera + "/" + name + ".mov"}});
        assets.element("bookmark", {}, numbers_.base64(bookmarkBytes));
        assets.close();
        assets.open("metadata");
        assets.element("md", {{"key", "com.apple.proapps.mio.cameraName"}, {"value", "Camera " + camera}});
        assets.close();
        assets.close();
    }

    void addMulticam()
    {
        document_.open("media", {{"id", "r3"}, {"name", "Recording"}, {"uid", numbers_.base64(22)}});
        document_.open("multicam", {{"format", "r1"}, {"tcStart", "0s"}, {"tcFormat", "NDF"}});
        for (std::size_t angle = 0; angle < importAngles; ++angle) {
            document_.open("mc-angle", {{"name", numbered("Camera ", angle + 1)}, {"angleID", angleIds_.at(angle)}});
            addClips(angle);
            document_.close();
        }
        document_.close();
        document_.close();
    }

    void addClips(std::size_t angle)
    {
        const std::size_t end = document_.size() + bytes_ / 100 * 60 / importAngles;
        const std::size_t assetsOfAngle = (assets_ - angle + importAngles - 1) / importAngles;
        Frames offset = 0;
        for (std::size_t clip = 0; document_.size() < end; ++clip) {
            if (gaps_ == Gaps::some && clip % 20 == 19) {
                const Frames gap = numbers_.between(15, 300);
                document_.element(
                    "gap", {{"name", "Gap"}, {"offset", time(offset)}, {"start", "3600s"}, {"duration", time(gap)}});
                offset += gap;
            }
            const Frames duration = numbers_.between(60, longestClip);
            addClip(clip, clip / clipsOfAnAsset % assetsOfAngle * importAngles + angle, offset, duration);
            offset += duration;
        }
        shortestAngle_ = std::min(shortestAngle_, offset);
    }

    void addClip(std::size_t clip, std::size_t asset, Frames offset, Frames duration)
    {
        constexpr auto share = assetFrames / static_cast<Frames>(clipsOfAnAsset);
        const Frames start = static_cast<Frames>(clip % clipsOfAnAsset) * share + numbers_.below(share - longestClip);
        document_.open(
            "asset-clip", {{"ref", assetId(asset)},
                           {"offset", time(offset)},
                           {"name", assetName(asset)},
                           {"start", time(start)},
                           {"duration", time(duration)},
                           {"format", "r1"},
                           {"tcFormat", "NDF"},
                           {"audioRole", "dialogue"}});
        document_.element(
            "adjust-colorConform", {{"enabled", "1"},
                                    {"autoOrManual", "automatic"},
                                    {"conformType", "conformNone"},
                                    {"peakNitsOfPQSource", "1000"},
                                    {"peakNitsOfSDRToPQSource", "203"}});
        if (clip % 2 == 0)
            document_.element("marker", {{"start", time(start)}, {"duration", time(1)}, {"value", "Take"}});
        if (clip % 3 == 0)
            document_.element(
                "keyword", {{"start", time(start)}, {"duration", time(duration)}, {"value", "Main hall"}});
        if (clip % 8 == 0) {
            document_.open("metadata");
            document_.element("md", {{"key", "com.apple.proapps.studio.reel"}, {"value", numbers_.digits(4)}});
            document_.element("md", {{"key", "com.apple.proapps.studio.scene"}, {"value", numbers_.digits(2)}});
            document_.close();
        }
        document_.close();
    }

    void addLibrary()
    {
        const Frames length = shortestAngle_ / 10 * 9;
        document_.open("library", {{"location", "file:///Volumes/Recordings/Recording.fcpbundle/"}});
        document_.open("event", {{"name", "Recording"}, {"uid", numbers_.digits(32)}});
        document_.open("project", {{"name", "Recording"}, {"uid", numbers_.digits(32)}});
        document_.open(
            "sequence", {{"format", "r1"},
                         {"duration", time(length)},
                         {"tcStart", "0s"},
                         {"tcFormat", "NDF"},
                         {"audioLayout", "stereo"},
                         {"audioRate", "48k"}});
        document_.open("spine");
        document_.open(
            "mc-clip",
            {{"ref", "r3"}, {"offset", "0s"}, {"name", "Recording"}, {"start", "0s"}, {"duration", time(length)}});
        document_.element("mc-source", {{"angleID", angleIds_.at(0)}, {"srcEnable", "all"}});
        while (document_.size() < bytes_ - 100)
            addAnnotation(length);
        for (int open = 0; open < 6; ++open)
            document_.close();
    }

    void addAnnotation(Frames length)
    {
        const Frames start = numbers_.below(length);
        if (numbers_.below(2) == 0)
            document_.element("marker", {{"start", time(start)}, {"duration", time(1)}, {"value", "Question"}});
        else
            document_.element("keyword", {{"start", time(start)}, {"duration", time(300)}, {"value", "Interview"}});
    }

    std::size_t bytes_;
    Gaps gaps_;
    RepeatableNumbers numbers_{1};
    std::array<std::string, importAngles> angleIds_;
    std::size_t assets_ = 0;
    Frames shortestAngle_ = largestFrameCount;
    DocumentText document_;
};

} // namespace

std::string importDocument(std::size_t bytes, Gaps gaps)
{
    return Generator(bytes, gaps).run();
}

} // namespace corvane::bench
