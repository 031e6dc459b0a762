#pragma once

#include "import/compound_uses.h"
#include "import/media_resources.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// The media clips of one angle, as the import's summary counts them.
struct AngleClips {
    std::int64_t count = 0;             ///< a compound clip used twice counts its clips twice
    std::optional<double> firstOffset;  ///< seconds, the smallest "offset"; none without clips
    std::set<std::string_view> cameras; ///< camera names of the clips' assets
};

/// Collects the clips of the angles of one document, through gaps, spines and compound clips. Everything but the
/// count is the same however often a compound clip is used, so each is walked once for an angle and its count kept:
/// compound clips that each use the next one several times cost no more than their size. Only compound clips that
/// lead back to a reference on the way to them are walked anew, up to a limit; beyond it the angle is refused.
class ClipCollector {
public:
    explicit ClipCollector(const MediaResources& resources);

    /// Starts an angle; `angleName` names the camera where the limit is reached.
    void begin(xml::Element angle, std::string_view angleName);
    /// Collects from the angle's next child, and from everything in it. Refuses unreadable offsets.
    void add(xml::Element child);
    /// What was added since the angle began.
    [[nodiscard]] AngleClips finish() { return std::move(clips_); }

    /// Names of clips and assets of which no media file is located, over all angles so far.
    [[nodiscard]] const std::set<std::string_view>& missingLocations() const { return missing_; }

    /// Elements looked at so far.
    [[nodiscard]] std::int64_t visits() const { return visits_; }

private:
    struct Compound {
        bool open = false;   ///< being walked: a reference to it leads in a circle
        bool walked = false; ///< in this or an earlier angle
        std::int64_t count = 0;
        std::int64_t countedInAngle = 0; ///< `count` is known when this is the number of the angle being collected
    };

    struct Frame {
        xml::Element element; ///< its children are being visited
        xml::ElementIterator next;
        const MediaEntry* media = nullptr;  ///< set where the children are the sequences of a compound clip
        const MediaEntry* refers = nullptr; ///< set for a reference that opened this compound clip
        std::int64_t countBefore = 0;
        bool circular = false; ///< a reference was left out that another way into this compound clip would follow
    };

    void visit(xml::Element element);
    void addClip(xml::Element clip);
    void addCount(std::int64_t clips);
    void visitReference(xml::Element element);
    void leave(const Frame& frame);
    void enterCompound(const MediaEntry& media);
    void close(const MediaEntry& media);
    [[nodiscard]] bool isKnown(const MediaEntry& media);
    [[nodiscard]] Frame* innermostCompound();
    void markCircular();
    [[noreturn]] void refuse() const;

    const MediaResources& resources_;
    std::vector<Compound> compounds_; ///< by MediaEntry::index
    CompoundUses uses_;
    std::vector<Frame> stack_;            ///< explicit: compound clips nest without limit here
    std::vector<const MediaEntry*> path_; ///< the compound clips that are open, outermost first
    std::set<std::string_view> missing_;
    AngleClips clips_;
    std::string_view angleName_;
    bool angleDisabled_ = false;
    std::int64_t angleNumber_ = 0;
    std::int64_t visits_ = 0;
    std::int64_t repeatedVisits_ = 0;
    std::int64_t repeating_ = 0; ///< open compound clips that were walked before
};

} // namespace corvane
