#include "workspace/edit_facts.h"

#include "workspace/captions.h"
#include "workspace/shot_facts.h"

#include <algorithm>

namespace corvane {

bool isOnScreen(const ContentView& view, std::int64_t position)
{
    const WorkspaceState& state = view.state();
    return state.history.index == position && !state.cuts().empty();
}

std::string mainShareText(const ContentView& view, const EditRevision& edit)
{
    for (const UsageRow& row : usageRows(view, edit.cuts)) {
        if (row.camera == edit.settings.mainCamera)
            return row.share;
    }
    return "";
}

std::vector<std::string> shareTexts(const ContentView& view, const EditRevision& edit)
{
    std::vector<std::string> texts;
    for (const UsageRow& row : usageRows(view, edit.cuts))
        texts.push_back(row.label + ": " + row.share);
    return texts;
}

std::string shortestShotText(const ContentView& view, const EditRevision& edit, std::string_view decimalSign)
{
    const auto shortest = std::ranges::min_element(edit.cuts, {}, &Cut::duration);
    return shortest == edit.cuts.end() ? "" : durationLabel(view, *shortest, decimalSign) + " sec";
}

std::string editInWords(const ContentView& view, std::int64_t position, std::string_view decimalSign)
{
    const EditRevision& edit = *view.state().history.items.at(static_cast<std::size_t>(position));
    return "Edit " + std::to_string(position + 1) + (isOnScreen(view, position) ? ", on screen" : "") + ", made " +
           edit.created.localText() + ", " + std::to_string(edit.cuts.size()) + " cuts, main camera " +
           mainShareText(view, edit) + ", shortest shot " + shortestShotText(view, edit, decimalSign);
}

} // namespace corvane
