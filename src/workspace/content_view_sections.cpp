#include "engine/validation.h"
#include "import/final_cut_import_error.h"
#include "timecode/timecode.h"
#include "workspace/content_view.h"

#include <algorithm>

namespace corvane {

namespace {

/// None if the text is not a timecode of the project.
std::optional<Frames> typedFrame(const CutEngine& engine, const std::string& text)
{
    try {
        return parseTimecode(engine, text);
    } catch (const FinalCutImportError&) {
        return std::nullopt;
    }
}

} // namespace

void ContentView::addSection()
{
    edit([this](WorkspaceState& state) {
        if (!state.loaded)
            return;
        const CutEngine& engine = state.loaded->engine;
        EditSettings& settings = state.settings;
        Frames start = settings.openingEnabled ? roundedFrames(engine, settings.openingSeconds) : 0;
        if (!settings.sections.empty())
            start = std::max(start, typedFrame(engine, settings.sections.back().end).value_or(start));
        const Frames latestEnd =
            engine.length - (settings.closingEnabled ? roundedFrames(engine, settings.closingSeconds) : 0);
        if (start >= latestEnd) {
            fail("There is no room for another section after the existing sections and opening or closing shots.");
            return;
        }
        constexpr double usualLength = 30; // seconds
        const Frames end = std::min(start + roundedFrames(engine, usualLength), latestEnd);
        actionName_ = "Add Section";
        settings.sections.push_back(
            {services_.identifiers(), "", settings.mainCamera, timecodeLabel(engine, start),
             timecodeLabel(engine, end)});
    });
}

void ContentView::removeSection(std::size_t position)
{
    edit([this, position](WorkspaceState& state) {
        auto& sections = state.settings.sections;
        if (position >= sections.size())
            return;
        actionName_ = "Remove Section";
        sections.erase(sections.begin() + static_cast<std::ptrdiff_t>(position));
    });
}

} // namespace corvane
