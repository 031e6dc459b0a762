#pragma once

#include "import/media_resources.h"
#include "import/visit_budget.h"

#include <functional>
#include <set>
#include <string_view>

namespace corvane {

/// Finds the media clips of an angle that the import's summary counts: through gaps, spines and compound clips, those
/// of a compound clip as often as it is used. A reference that leads back to a compound clip on the way is left out.
class ClipCollector {
public:
    ClipCollector(const MediaResources& resources, VisitBudget& budget) : resources_(resources), budget_(budget) {}

    /// Calls `found` with each clip, in document order.
    void collect(xml::Element angle, std::string_view angleName, const std::function<void(xml::Element)>& found);

private:
    void visit(xml::Element element, int level, const std::function<void(xml::Element)>& found);

    const MediaResources& resources_;
    VisitBudget& budget_;
    std::string_view angleName_;
    std::set<std::string_view> visited_; ///< the compound clips on the way to what is visited
};

} // namespace corvane
