#include "fuzz/edits/random_document.h"

#include <array>
#include <initializer_list>
#include <numeric>
#include <string_view>

namespace corvane::test {

namespace {

struct Rate {
    std::int64_t numerator, denominator; ///< seconds per frame
};
constexpr std::array<Rate, 8> rates = {Rate{100, 2500}, {1, 5},  {1001, 30000}, {1001, 60000},
                                       {1001, 24000},   {1, 24}, {1, 30},       {1, 50}};
constexpr std::int64_t compoundCount = 3;

/// Joins the parts, which are evaluated in order. The operands of + need not be, and the draws depend on the order.
std::string joined(std::initializer_list<std::string> parts)
{
    std::string all;
    for (const std::string& part : parts)
        all += part;
    return all;
}

class DocumentMaker {
public:
    explicit DocumentMaker(ByteDraws& draws)
        : draws_(draws),
          rate_(draws.anyOf(rates)),
          length_(draws.between(1, draws.oneIn(2) ? 600 : 120)),
          faulty_(draws.oneIn(5))
    {
        sourceStart_ = draws_.oneIn(2) ? draws_.below(2000) : 0;
        multicamStart_ = draws_.oneIn(2) ? draws_.below(sourceStart_ + 1) : 0;
        timelineStart_ = draws_.oneIn(2) ? draws_.below(4'000'000) : 0;
    }

    std::string make()
    {
        const auto angleCount = draws_.between(isFault(4) ? 1 : 2, 5);
        std::string angles;
        for (std::int64_t number = 0; number < angleCount; ++number)
            angles += angle(number);
        std::string compounds;
        for (std::int64_t number = 0; number < compoundCount; ++number)
            compounds += "<media id=\"c" + std::to_string(number) + "\"><sequence><spine>" + clips(1, number + 1) +
                         "</spine></sequence></media>";
        const std::string clip = multicamClip(angleCount);
        return joined(
            {R"(<?xml version="1.0" encoding="UTF-8"?><!DOCTYPE fcpxml><fcpxml version="1.11"><resources>)",
             "<format id=\"r1\" frameDuration=\"",
             rational(1, false),
             "\" width=\"1920\" height=\"1080\"/>",
             R"(<asset id="av" duration="20s" hasVideo="1" hasAudio="1"><media-rep src="file:///av.mov"/></asset>)",
             R"(<asset id="v" duration="7s" hasVideo="1" src="file:///v.mov"/>)",
             R"(<asset id="a" duration="90s" hasAudio="1" src="file:///a.wav"/>)",
             draws_.oneIn(8) ? "" : "<asset id=\"lost\" duration=\"1s\"/>",
             "<media id=\"mc\"><multicam format=\"r1\" ",
             time("tcStart", multicamStart_),
             ">",
             angles,
             "</multicam></media>",
             compounds,
             "</resources><project name=\"Chance\" uid=\"U\"><sequence format=\"r1\" ",
             time("duration", length_),
             time("tcStart", timelineStart_),
             draws_.oneIn(2) ? "tcFormat=\"DF\"" : "tcFormat=\"NDF\"",
             "><spine>",
             clip,
             "</spine></sequence></project></fcpxml>"});
    }

private:
    /// Frames as a time, in one of several equivalent forms.
    std::string rational(std::int64_t frames, bool inAnyForm = true)
    {
        std::int64_t numerator = frames * rate_.numerator;
        std::int64_t denominator = rate_.denominator;
        if (inAnyForm && draws_.oneIn(2)) {
            const std::int64_t divisor = std::gcd(numerator, denominator);
            numerator /= divisor;
            denominator /= divisor;
        }
        return std::to_string(numerator) + (denominator == 1 ? "" : "/" + std::to_string(denominator)) + "s";
    }
    bool isFault(std::int64_t many) { return faulty_ && draws_.oneIn(many); }
    std::string time(const std::string& name, std::int64_t frames) { return name + "=\"" + rational(frames) + "\" "; }

    /// A time inside an angle, which need not be on a project frame: audio and other frame rates are not either.
    std::string looseTime(const std::string& name, std::int64_t frames)
    {
        if (draws_.oneIn(4))
            return name + "=\"" + std::to_string((2 * frames + 1) * rate_.numerator) + "/" +
                   std::to_string(2 * rate_.denominator) + "s\" ";
        if (draws_.oneIn(6))
            return name + "=\"" + std::to_string(frames * 1601 + draws_.below(1601)) + "/48000s\" "; // audio samples
        return time(name, frames);
    }

    std::string angle(std::int64_t number)
    {
        std::string contents;
        const std::int64_t offset = sourceStart_ - multicamStart_;
        if (draws_.oneIn(8) || (number > 0 && draws_.oneIn(2))) {
            contents = clips(0, 0);
        } else { // filmed from the first frame to the last
            const std::string asset = number % 2 == 0 || draws_.oneIn(2) ? "av" : "v";
            const std::int64_t duration = offset + length_ + draws_.below(3);
            contents = "<asset-clip ref=\"" + asset + "\" offset=\"0s\" " + time("duration", duration) + "/>";
        }
        const std::string name = draws_.oneIn(3) ? "" : " name=\"Camera " + std::to_string(number) + "\"";
        return "<mc-angle angleID=\"" + std::to_string(number) + "\"" + name + ">" + contents + "</mc-angle>";
    }

    std::string clips(int depth, std::int64_t compound)
    {
        std::string all;
        for (auto left = draws_.between(0, depth == 0 ? 6 : 3); left > 0 && !draws_.ended(); --left)
            all += clip(depth, compound);
        return all;
    }

    std::string clip(int depth, std::int64_t compound)
    {
        constexpr std::array<std::string_view, 10> kinds = {
            "asset-clip", "asset-clip", "video", "audio", "gap", "spine", "clip", "sync-clip", "ref-clip", "audition"};
        constexpr std::array<std::string_view, 4> assets = {"av", "v", "a", "lost"};
        std::string kind(draws_.anyOf(kinds));
        if (isFault(20))
            kind = draws_.oneIn(2) ? "title" : "transition";
        if ((kind == "ref-clip" && compound == compoundCount) || (kind == "audition" && depth == 0))
            kind = "gap"; // in the last compound clip, and where auditions are refused
        const bool isMedia = kind == "asset-clip" || kind == "video" || kind == "audio";
        std::string text = "<" + kind + " ";
        if (isMedia)
            text += "ref=\"" + std::string(assets[static_cast<std::size_t>(isFault(8) ? 3 : draws_.below(3))]) + "\" ";
        if (kind == "ref-clip") // never an earlier compound clip, which would make a circle
            text +=
                "ref=\"c" + std::to_string(isFault(8) ? 0 : compound + draws_.below(compoundCount - compound)) + "\" ";
        if (!draws_.oneIn(4))
            text += looseTime("offset", draws_.below(length_ + sourceStart_ + 1));
        if (draws_.oneIn(2))
            text += looseTime("start", draws_.below(500));
        if (!draws_.oneIn(4))
            text += looseTime("duration", draws_.between(1, length_ + 40));
        constexpr std::array<std::string_view, 5> modes = {"all", "video", "audio", "none", "other"};
        if (draws_.oneIn(4))
            text += "srcEnable=\"" + std::string(draws_.anyOf(modes)) + "\" ";
        if (draws_.oneIn(12))
            text += "enabled=\"0\" ";
        text += ">";
        if (isFault(20))
            text += draws_.oneIn(2) ? "<timeMap/>" : "<conform-rate/>";
        if (depth < 4 && (!isMedia || draws_.oneIn(6)))
            text += clips(depth + 1, compound);
        return text + "</" + kind + ">";
    }

    /// An item on the multicam clip, with a unique name.
    std::string named(const std::string& element, const std::string& attributes)
    {
        return "<" + element + " name=\"" + std::to_string(++names_) + "\" " + attributes + "/>";
    }

    std::string multicamClip(std::int64_t angleCount)
    {
        std::string text = joined(
            {"<mc-clip ref=\"mc\" name=\"Multicam\" ", time("offset", timelineStart_), time("start", sourceStart_),
             time("duration", length_), ">"});
        const std::string fades = joined(
            {"<adjust-volume><param><fadeIn ", time("duration", draws_.below(4)), "/><fadeOut ",
             time("duration", draws_.below(4)), "/></param></adjust-volume>"});
        if (draws_.oneIn(2))
            text += "<note>n</note>" + fades;
        for (auto left = draws_.between(0, 4); left > 0; --left) {
            constexpr std::array<std::string_view, 4> modes = {
                "", "srcEnable=\"video\"", "srcEnable=\"audio\"", "srcEnable=\"all\""};
            text += joined(
                {"<mc-source angleID=\"", std::to_string(draws_.below(angleCount)), "\" ",
                 std::string(draws_.anyOf(modes)), ">"});
            if (draws_.oneIn(2))
                text += "<audio-role-source role=\"dialogue\">" + fades + "</audio-role-source>";
            if (draws_.oneIn(2)) {
                const std::string shape = "shape" + std::to_string(++names_);
                text += "<object-tracker><tracking-shape id=\"" + shape +
                        "\"/></object-tracker><filter-video tracking=\"" + shape + "\"/>";
            }
            text += "</mc-source>";
        }
        for (auto left = draws_.between(0, 3); left > 0; --left)
            text += named(
                "title",
                "lane=\"1\" " +
                    (draws_.oneIn(5) ? "" : looseTime("offset", sourceStart_ + draws_.between(-5, length_ + 5))));
        for (auto left = draws_.between(0, 6); left > 0; --left) {
            constexpr std::array<std::string_view, 6> kinds = {"marker",  "chapter-marker",  "rating",
                                                               "keyword", "analysis-marker", "hidden-clip-marker"};
            const std::string start =
                draws_.oneIn(6) ? "" : time("start", sourceStart_ + draws_.between(-20, length_ + 20));
            const std::string duration = draws_.oneIn(3) ? "" : time("duration", draws_.below(length_ + 20));
            const std::string kind(draws_.anyOf(kinds));
            text += named(kind, start + duration);
        }
        return text + (draws_.oneIn(3) ? "<filter-audio/><metadata/>" : "") + "</mc-clip>";
    }

    ByteDraws& draws_;
    Rate rate_;
    std::int64_t length_;
    bool faulty_; ///< the document may contain something that is refused
    std::int64_t sourceStart_ = 0;
    std::int64_t multicamStart_ = 0;
    std::int64_t timelineStart_ = 0;
    int names_ = 0;
};

} // namespace

std::string randomDocument(ByteDraws& draws)
{
    return DocumentMaker(draws).make();
}

} // namespace corvane::test
