#pragma once

#include "import/media_resources.h"
#include "import/visit_budget.h"

#include <functional>
#include <optional>
#include <set>
#include <string_view>

namespace corvane {

/// Finds the media clips of an angle for the import's summary, also inside gaps, spines and compound clips. The clips
/// of a compound clip are counted as often as it is used. A reference back to a compound clip on the current path is
/// skipped.
class ClipCollector {
public:
    /// What the summary needs of a clip.
    struct Clip {
        std::optional<std::string_view> name;
        std::optional<std::string_view> offset; ///< FCPXML time
        std::optional<std::string_view> ref;
    };

    ClipCollector(const MediaResources& resources, VisitBudget& budget) : resources_(resources), budget_(budget) {}

    /// Calls `found` with each clip, in document order.
    void collect(xml::Element angle, std::string_view angleName, const std::function<void(const Clip&)>& found);

private:
    void visit(xml::Element element, int level, const std::function<void(const Clip&)>& found);

    const MediaResources& resources_;
    VisitBudget& budget_;
    std::string_view angleName_;
    std::set<std::string_view> visited_; ///< the compound clips on the current path
};

} // namespace corvane
