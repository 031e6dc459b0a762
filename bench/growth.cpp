// Gives the program sixteen times as much of one kind after the other, and prints how many times the processor time
// that takes. Work that grows with its input takes sixteen times; over thirty-two ends the program with an error.
#include "base/numbers.h"
#include "bench/conditions.h"
#include "bench/document_text.h"
#include "bench/edit_document.h"
#include "bench/number_project.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "export/carry_over.h"
#include "export/rough_edit_writer.h"
#include "export/settings_record.h"
#include "import/cut_engine.h"
#include "import/project_loading.h"
#include "session/saved_session.h"
#include "session/session_encoding.h"
#include "session/starting_settings.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <iomanip>
#include <iostream>
#include <limits>
#include <vector>

namespace {

using namespace corvane;
using namespace corvane::bench;

constexpr std::size_t times = 16;
constexpr double most = 32;
constexpr double shortest = 0.05; ///< seconds of the smaller run
constexpr int repetitions = 5;

using Work = std::function<void()>;

/// What a document of ten minutes holds beside two angles with one clip each.
struct Contents {
    std::string angle = {}; ///< of a third angle
    std::string resources = {};
    std::string clip = {};
};

std::string repeated(std::size_t count, const std::function<std::string(std::string)>& element)
{
    std::string all;
    for (std::size_t n = 0; n < count; ++n)
        all += element(std::to_string(n));
    return all;
}

std::string documentOf(const Contents& contents)
{
    DocumentText text;
    text.prologue();
    text.open("fcpxml", {{"version", "1.11"}});
    text.open("resources");
    text.element("format", {{"id", "r1"}, {"frameDuration", "100/2500s"}, {"width", "1920"}, {"height", "1080"}});
    text.element(
        "asset", {{"id", "av"}, {"duration", "600s"}, {"hasVideo", "1"}, {"hasAudio", "1"}, {"src", "file:///a.mov"}});
    text.append(contents.resources);
    text.open("media", {{"id", "r3"}});
    text.open("multicam", {{"format", "r1"}});
    for (const char* angle : {"A", "B"}) {
        text.open("mc-angle", {{"name", angle}, {"angleID", angle}});
        text.element("asset-clip", {{"ref", "av"}, {"offset", "0s"}, {"duration", "600s"}});
        text.close();
    }
    text.open("mc-angle", {{"name", "C"}, {"angleID", "C"}});
    text.append(contents.angle);
    for (int open = 0; open < 4; ++open)
        text.close();
    text.open("project", {{"name", "Growth"}});
    text.open("sequence", {{"format", "r1"}, {"duration", "600s"}});
    text.open("spine");
    text.open("mc-clip", {{"ref", "r3"}, {"offset", "0s"}, {"duration", "600s"}});
    text.append(contents.clip);
    for (int open = 0; open < 5; ++open)
        text.close();
    return text.text();
}

/// From the document to the two files of an export.
Work wholeRoad(const Contents& contents)
{
    return [bytes = documentOf(contents)] {
        const auto [project, engine] = loadProject(bytes);
        EditRevision edit = {{}, {}, startingSettings(project, engine), {}};
        edit.cuts = generateFromSettings(project, engine, edit.settings);
        if (roughEditXML(engine, edit.cuts, edit.settings.audio).empty() || !carryOver(engine).lostTracking.empty() ||
            settingsRecordText(project, engine, edit).empty())
            std::abort();
    };
}

Work clips(std::size_t count)
{
    return wholeRoad({.angle = repeated(count, [](const std::string& n) {
                          return "<asset-clip ref=\"av\" name=\"" + n + "\" offset=\"" + n +
                                 "/5s\" duration=\"1/5s\"/>";
                      })});
}

Work children(std::size_t count)
{
    return wholeRoad({.clip = repeated(count, [](const std::string& n) { return "<n" + n + "/>"; })});
}

Work ids(std::size_t count)
{
    return wholeRoad(
        {.angle = repeated(count, [](const std::string& n) { return "<asset-clip ref=\"r" + n + "-\"/>"; }),
         .resources = repeated(count, [](const std::string& n) {
             return "<asset id=\"r" + n + R"(-" duration="1s" hasVideo="1" src="f"/>)";
         })});
}

Work trackingIds(std::size_t count)
{
    return wholeRoad(
        {.clip = "<mc-source angleID=\"B\">" +
                 repeated(
                     count,
                     [](const std::string& n) {
                         return "<tracking-shape id=\"t" + n + "\"/><follower tracking=\"t" + n + "\"/>";
                     }) +
                 "</mc-source>"});
}

Work keywords(std::size_t count)
{
    return wholeRoad({.clip = repeated(count, [](const std::string& n) {
                          return "<keyword start=\"" + std::to_string(std::stoul(n) % 599) +
                                 "s\" duration=\"1s\" value=\"" + n + "\"/>";
                      })});
}

Work assetNames(std::size_t count)
{
    return wholeRoad(
        {.angle = repeated(count, [](const std::string&) { return "<asset-clip ref=\"names\"/>"; }),
         .resources = R"(<asset id="names" duration="1s" hasVideo="1" src="f"><metadata>)" +
                      repeated(
                          count,
                          [](const std::string& n) {
                              return R"(<md key="com.apple.proapps.mio.cameraName" value=")" + n + "\"/>";
                          }) +
                      "</metadata></asset>"});
}

/// Each uses the one before it twice, but for every fourth.
Work compoundClips(std::size_t count)
{
    return wholeRoad(
        {.angle = repeated(count, [](const std::string& n) { return "<ref-clip ref=\"c" + n + "\"/>"; }),
         .resources = repeated(count, [](const std::string& n) {
             const std::size_t number = std::stoul(n);
             const std::string inner = number % 4 == 0 ? "<asset-clip ref=\"av\"/>"
                                                       : "<ref-clip ref=\"c" + std::to_string(number - 1) + "\"/>";
             return "<media id=\"c" + n + "\"><sequence><spine>" + inner + inner + "</spine></sequence></media>";
         })});
}

/// One an hour, of a project of that many hours.
Work fixedSections(std::size_t count)
{
    return [project = numberProject(static_cast<std::int64_t>(count))] {
        const auto cuts = generateFromSettings(project.imported, project.engine, project.settings);
        if (setupWarning(project.imported, project.engine, project.settings) || cuts.empty())
            std::abort();
    };
}

Work cuts(std::size_t count)
{
    return [edit = editDocument(count)] {
        const auto [project, engine] = loadProject(edit.bytes);
        if (roughEditXML(engine, edit.cuts).empty() ||
            settingsRecordText(project, engine, {{}, {}, {}, edit.cuts}).empty())
            std::abort();
    };
}

Work revisions(std::size_t count)
{
    NumberProject project = numberProject(1);
    EditHistory history;
    for (std::size_t n = 0; n < count; ++n)
        history.append(std::make_shared<const EditRevision>(EditRevision{
            {}, {}, project.settings, generateFromSettings(project.imported, project.engine, project.settings)}));
    return [project = std::move(project), history = std::move(history)] {
        SessionEncoder encoder;
        std::string file;
        for (const std::string_view part : encoder.encode("", project.settings, history))
            file += part;
        validateSession(decodeSession(file), project.engine);
    };
}

/// Of the best of five runs.
double processorSeconds(const Work& work, int rounds)
{
    double best = std::numeric_limits<double>::infinity();
    for (int run = 0; run < repetitions; ++run) {
        const std::clock_t start = std::clock();
        for (int round = 0; round < rounds; ++round)
            work();
        best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return best;
}

/// False when it grows too far.
bool grows(const char* kind, std::size_t count, Work (*make)(std::size_t))
{
    const Work few = make(count);
    int rounds = 1;
    double before = processorSeconds(few, rounds);
    for (; before < shortest; before = processorSeconds(few, rounds))
        rounds *= 2;
    const double after = processorSeconds(make(count * times), rounds);
    const bool inTime = after / before <= most;
    std::cout << std::left << std::setw(16) << kind << std::right << std::setw(8) << count << std::setw(9)
              << fixed(before * 1000, 0) << " ms" << std::setw(8) << count * times << std::setw(9)
              << fixed(after * 1000, 0) << " ms" << std::setw(8) << fixed(after / before, 1) << " x"
              << (inTime ? "" : "  TOO MUCH") << std::endl;
    return inTime;
}

} // namespace

int main()
{
    keepFreedMemory();
    bool inTime = true;
    inTime = grows("clips", 6'000, clips) && inTime;
    // The parser's own table of names has 16,384 places; with many more names it takes most of the time.
    inTime = grows("children", 1'500, children) && inTime;
    inTime = grows("ids", 6'000, ids) && inTime;
    inTime = grows("tracking ids", 2'000, trackingIds) && inTime;
    inTime = grows("keywords", 6'000, keywords) && inTime;
    inTime = grows("asset names", 6'000, assetNames) && inTime;
    inTime = grows("compound clips", 4'000, compoundClips) && inTime;
    inTime = grows("fixed sections", 24, fixedSections) && inTime;
    inTime = grows("cuts", 500, cuts) && inTime;
    inTime = grows("revisions", 20, revisions) && inTime;
    return inTime ? EXIT_SUCCESS : EXIT_FAILURE;
}
