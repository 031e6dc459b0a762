#pragma once

#include "import/clip_attributes.h"
#include "import/media_resources.h"
#include "import/visit_budget.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Finds the ranges of an angle that have video or audio, and refuses what Corvane does not support (speed changes,
/// split audio, missing media, unknown kinds of clips).
class AngleMediaWalker {
public:
    /// The half-open range [start, end) in seconds, in the time of the element that returned it.
    struct Span {
        double start = 0;
        double end = 0;
        bool video = false;
        bool audio = false;
        bool operator==(const Span&) const = default;
    };
    using VisitedReferences = std::set<std::string_view>;

    AngleMediaWalker(const MediaResources& resources, VisitBudget& budget) : resources_(resources), budget_(budget) {}

    /// The spans of `element` and everything in it, in its parent's time and in document order, neither sorted nor
    /// merged. `visited` holds the compound clips on the path to this element; `depth` is 0 directly inside the
    /// mc-angle.
    [[nodiscard]] std::vector<Span> walk(
        xml::Element element, std::string_view angleName, VisitedReferences visited = {}, int depth = 0);

private:
    void append(xml::Element element, int depth);
    void appendMedia(xml::Element element, const ClipAttributes& clip, double start, std::optional<double>& duration);
    [[nodiscard]] xml::Element enterCompound(const ClipAttributes& clip);
    void refuseUnsupportedSettings(xml::Element element, const ClipAttributes& clip);
    void mapIntoParent(
        std::size_t from, const ClipAttributes& clip, double offset, double start, std::optional<double> duration);
    [[noreturn]] void refuse(const std::string& afterCamera) const;

    const MediaResources& resources_;
    VisitBudget& budget_;
    std::string_view angleName_;
    VisitedReferences visited_;
    std::vector<Span> spans_; ///< of the current walk
    std::int64_t found_ = 0;  ///< number of spans in all walks
};

} // namespace corvane
