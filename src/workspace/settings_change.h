#pragma once

#include "engine/edit_settings.h"

#include <cstddef>
#include <string_view>

namespace corvane {

/// The difference between two sets of settings, and nothing else of either: of a number or text both values, of a set
/// or map the entries that differ, of the fixed sections those between the first and the last that differ.
class SettingsChange {
public:
    SettingsChange(const EditSettings& before, const EditSettings& after);

    enum class Side { before, after };

    /// Gives what differs the values of this side. What is alike on both sides stays as it is in `settings`. A section
    /// is known by its id; one that is no longer there returns to its old place, or to the end of a shorter list.
    void put(EditSettings& settings, Side side) const;
    /// True if `put` would change nothing.
    [[nodiscard]] bool isPut(const EditSettings& settings, Side side) const;
    /// True if both sides are the same.
    [[nodiscard]] bool isEmpty() const { return before_ == after_; }
    /// About how much memory it takes.
    [[nodiscard]] std::size_t bytes() const;

private:
    [[nodiscard]] const EditSettings& from(Side side) const { return side == Side::before ? after_ : before_; }
    [[nodiscard]] const EditSettings& to(Side side) const { return side == Side::before ? before_ : after_; }

    EditSettings before_; ///< fields, entries and sections that are alike on both sides are left out
    EditSettings after_;
    std::size_t sectionsAt_ = 0; ///< the position of the first section in both lists
};

/// What the first field that differs is called, in capitals like a command: "Main Share". Empty if none differs.
[[nodiscard]] std::string_view changedSetting(const EditSettings& before, const EditSettings& after);

} // namespace corvane
