#pragma once

#include "import/clip_attributes.h"
#include "import/media_resources.h"
#include "import/visit_budget.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Finds the stretches of an angle in which media can be seen or heard, and refuses what Corvane cannot follow
/// (speed changes, split audio, missing media, unknown kinds of clips).
class AngleMediaWalker {
public:
    /// [start, end) in seconds, in the time of the element that returned it.
    struct Span {
        double start = 0;
        double end = 0;
        bool video = false;
        bool audio = false;
        bool operator==(const Span&) const = default;
    };
    using VisitedReferences = std::set<std::string_view>;

    AngleMediaWalker(const MediaResources& resources, VisitBudget& budget) : resources_(resources), budget_(budget) {}

    /// The spans of `element` and everything in it, in the time of its parent, in document order, neither sorted nor
    /// merged. `visited` are the compound clips on the way here; `depth` counts from 0 directly inside the mc-angle.
    [[nodiscard]] std::vector<Span> walk(
        xml::Element element, std::string_view angleName, VisitedReferences visited = {}, int depth = 0);

private:
    void append(xml::Element element, int depth);
    void appendMedia(xml::Element element, const ClipAttributes& clip, double start, std::optional<double>& duration);
    [[nodiscard]] xml::Element enterCompound(const ClipAttributes& clip);
    void refuseUnsupportedSettings(xml::Element element, const ClipAttributes& clip) const;
    void mapIntoParent(
        std::size_t from, const ClipAttributes& clip, double offset, double start, std::optional<double> duration);
    [[noreturn]] void refuse(const std::string& afterCamera) const;

    const MediaResources& resources_;
    VisitBudget& budget_;
    std::string_view angleName_;
    VisitedReferences visited_;
    std::vector<Span> spans_; ///< of the walk that is under way
    std::int64_t found_ = 0;  ///< spans, in all walks
};

} // namespace corvane
