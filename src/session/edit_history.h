#pragma once

#include "base/identifier.h"
#include "base/timestamp.h"
#include "engine/edit_settings.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace corvane {

/// One generated rough edit and the settings that produced it. Immutable: a changed edit is a new revision.
struct EditRevision {
    Identifier id;
    Timestamp created;
    EditSettings settings;
    std::vector<Cut> cuts;
    bool operator==(const EditRevision&) const = default;
};

/// Revisions are immutable, so showing, saving and exporting can share them.
using SharedRevision = std::shared_ptr<const EditRevision>;

/// The revisions of the loaded project, oldest first, and the index of the current one, which is -1 only if there are
/// none. A history read from a file may violate this; validateSession checks it.
struct EditHistory {
    std::vector<SharedRevision> items;
    std::int64_t index = -1;

    /// Adds the revision after the current one, drops all that came after that, and makes the new one current.
    void append(SharedRevision revision);
    /// None if `index` is out of range.
    [[nodiscard]] SharedRevision currentRevision() const;
    /// True if `position` is an index into `items`.
    [[nodiscard]] bool has(std::int64_t position) const;

    /// Equal only if both share the same revisions, not merely equal ones.
    bool operator==(const EditHistory&) const = default;
};

} // namespace corvane
