#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace corvane {

/// Which compound clips use which, as far as a walk has met them. A ref-clip's connected clips are walked before what
/// it refers to, and the reference counts as visited there already: while they are walked, what was kept of another
/// compound clip holds only if it does not lead back to this one. Compound clips are numbered by MediaEntry::index.
class CompoundUses {
public:
    explicit CompoundUses(std::size_t compounds) : compounds_(compounds) {}

    /// Something in `user` refers to `used`. What repeats itself one after the other is kept once.
    void add(std::size_t user, std::size_t used);

    /// The connected clips of a reference to it are walked from here on; leaveConnected() ends the innermost one.
    void enterConnected(std::size_t compound);
    void leaveConnected();
    void leaveAll();

    /// True when `from` uses one whose connected clips are being walked, itself or through others.
    [[nodiscard]] bool leadToConnected(std::size_t from);

    /// Compound clips looked at by leadToConnected() so far.
    [[nodiscard]] std::int64_t steps() const { return steps_; }

private:
    struct Compound {
        std::vector<std::size_t> used;
        std::optional<std::size_t> lastUser;
        int connected = 0;     ///< references whose connected clips are being walked
        std::int64_t seen = 0; ///< by the search of this number
    };

    std::vector<Compound> compounds_;
    std::vector<std::size_t> connected_;
    std::vector<std::size_t> toSearch_;
    std::int64_t search_ = 1; ///< what a search has seen in vain need not be searched again until one more is entered
    std::int64_t steps_ = 0;
};

} // namespace corvane
