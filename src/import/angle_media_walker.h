#pragma once

#include "import/clip_attributes.h"
#include "import/compound_uses.h"
#include "import/media_resources.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Finds the stretches of an angle in which media can be seen or heard, and refuses what Corvane cannot follow
/// (speed changes, split audio, missing media, unknown kinds of clips). What a compound clip holds is walked once and
/// kept, so the cost does not grow with the number of its uses.
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

    explicit AngleMediaWalker(const MediaResources& resources);

    /// The spans of `element` and everything in it, in the time of its parent, in document order, neither sorted nor
    /// merged, until the next walk. `visited` are the compound clips on the way here; `depth` counts from 0 directly
    /// inside the mc-angle.
    [[nodiscard]] const std::vector<Span>& walk(
        xml::Element element, std::string_view angleName, const VisitedReferences& visited = {}, int depth = 0);

    /// Elements looked at so far.
    [[nodiscard]] std::int64_t visits() const { return visits_; }

private:
    /// A compound clip that was walked without a refusal. It holds itself nowhere, so its spans are the same wherever
    /// it is used; only its depth has to be looked at again, and whether it leads back to a reference that it is
    /// connected to.
    struct Compound {
        bool walked = false;
        std::vector<Span> spans; ///< in the time of its sequence
        int levels = 0;          ///< of elements below its spines
    };

    void append(xml::Element element, int depth);
    void appendMedia(xml::Element element, const ClipAttributes& clip, double start, std::optional<double>& duration);
    void enterCompound(const ClipAttributes& clip);
    void appendCompound(const ClipAttributes& clip, int depth);
    void appendCopy(const Compound& compound, int depth);
    [[nodiscard]] bool leadsInACircle(std::size_t compound);
    [[noreturn]] void refuseRepetition() const;
    void refuseUnsupportedSettings(xml::Element element, const ClipAttributes& clip) const;
    void mapIntoParent(
        std::size_t from, const ClipAttributes& clip, double offset, double start, std::optional<double> duration);
    [[noreturn]] void refuse(const std::string& afterCamera) const;

    const MediaResources& resources_;
    std::vector<Compound> compounds_; ///< by MediaEntry::index
    CompoundUses uses_;
    std::optional<std::size_t> inside_; ///< the innermost compound clip that is being walked
    std::string_view angleName_;
    VisitedReferences path_;
    std::vector<Span> spans_; ///< of the walk that is under way
    int deepest_ = 0;         ///< depth reached since the innermost compound clip was entered
    std::int64_t visits_ = 0;
    std::size_t copiedSpans_ = 0;
};

} // namespace corvane
