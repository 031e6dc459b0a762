#include "workspace/held_shots.h"

#include "base/error.h"
#include "engine/generation_inputs.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <tuple>

namespace corvane {

namespace {

/// What a fixed section and the cut that it makes have in common.
using Stretch = std::tuple<Frames, Frames, std::string_view>;

Stretch stretch(const Cut& cut)
{
    return {cut.start, cut.start + cut.duration, cut.angle};
}

/// In list order; empty ones, which no cut equals, for sections whose timecodes cannot be read.
std::vector<Stretch> stretches(const CutEngine& engine, const std::vector<SectionDraft>& sections)
{
    std::vector<Stretch> all;
    all.reserve(sections.size());
    for (const SectionDraft& section : sections) {
        try {
            all.emplace_back(parseTimecode(engine, section.start), parseTimecode(engine, section.end), section.camera);
        } catch (const FinalCutImportError&) {
            all.emplace_back();
        }
    }
    return all;
}

std::set<std::size_t> inRange(const std::vector<Cut>& cuts, const std::vector<std::size_t>& chosen)
{
    std::set<std::size_t> positions(chosen.begin(), chosen.end());
    positions.erase(positions.lower_bound(cuts.size()), positions.end());
    return positions;
}

/// The label of the frame, which must read back as the same one.
std::string readableLabel(const CutEngine& engine, const Cut& shot, Frames frame)
{
    std::string label = timecodeLabel(engine, frame);
    bool readsBack = false;
    try {
        readsBack = parseTimecode(engine, label) == frame;
    } catch (const FinalCutImportError&) {
        readsBack = false;
    }
    if (!readsBack)
        throw Refusal(
            "The shot at " + timecodeLabel(engine, shot.start) +
            " cannot be held, because a section cannot have the timecode " + label +
            ". In Final Cut, let the project start at 00:00:00:00 or later, and export XML again.");
    return label;
}

} // namespace

std::vector<Cut> shotsToHold(
    const CutEngine& engine, const EditSettings& settings, const std::vector<Cut>& cuts,
    const std::vector<std::size_t>& chosen)
{
    std::set<std::size_t> positions = inRange(cuts, chosen);
    if (settings.openingEnabled)
        positions.erase(0);
    if (settings.closingEnabled)
        positions.erase(cuts.size() - 1);
    const std::vector<Stretch> sections = stretches(engine, settings.sections);
    const std::set<Stretch> fixed(sections.begin(), sections.end());
    std::vector<Cut> shots;
    for (const std::size_t position : positions) {
        if (!fixed.contains(stretch(cuts[position])))
            shots.push_back(cuts[position]);
    }
    return shots;
}

void addHeldSections(
    const CutEngine& engine, EditSettings& settings, const std::vector<Cut>& shots, const IdentifierSource& newIds)
{
    std::vector<Frames> latest; // of the starts up to each section, since the list is in any order
    for (const Stretch& section : stretches(engine, settings.sections))
        latest.push_back(std::max(std::get<0>(section), latest.empty() ? 0 : latest.back()));
    std::vector<SectionDraft> all;
    all.reserve(settings.sections.size() + shots.size());
    std::size_t taken = 0;
    const auto takeUntil = [&](std::size_t end) {
        for (; taken < end; ++taken)
            all.push_back(settings.sections[taken]);
    };
    for (const Cut& shot : shots) {
        const auto later = std::ranges::upper_bound(latest, shot.start);
        takeUntil(static_cast<std::size_t>(later - latest.begin()));
        const Frames end = shot.start + shot.duration;
        all.push_back(
            {newIds(), "Held", shot.angle, readableLabel(engine, shot, shot.start), readableLabel(engine, shot, end)});
    }
    takeUntil(settings.sections.size());
    settings.sections = std::move(all);
}

std::vector<std::size_t> sectionsToRelease(
    const CutEngine& engine, const EditSettings& settings, const std::vector<Cut>& cuts,
    const std::vector<std::size_t>& chosen)
{
    std::set<Stretch> shots;
    for (const std::size_t position : inRange(cuts, chosen))
        shots.insert(stretch(cuts[position]));
    const std::vector<Stretch> sections = stretches(engine, settings.sections);
    std::vector<std::size_t> released;
    for (std::size_t i = 0; i < sections.size(); ++i) {
        if (shots.contains(sections[i]))
            released.push_back(i);
    }
    return released;
}

} // namespace corvane
