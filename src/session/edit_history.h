#pragma once

#include "base/identifier.h"
#include "base/timestamp.h"
#include "engine/edit_settings.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace corvane {

/// One generated rough edit and the settings that produced it. It never changes: a changed edit is a new revision.
struct EditRevision {
    Identifier id;
    Timestamp created;
    EditSettings settings;
    std::vector<Cut> cuts;
    bool operator==(const EditRevision&) const = default;
};

/// Revisions never change, so whoever shows, saves or exports one shares it.
using SharedRevision = std::shared_ptr<const EditRevision>;

/// The revisions of the loaded project, oldest first, and the position of the current one: -1 exactly when there are
/// none. A record read from a file may break that; validateSession tells.
struct EditHistory {
    std::vector<SharedRevision> items;
    std::int64_t index = -1;

    /// Makes the revision the current one. What stood after the old current one is dropped.
    void append(SharedRevision revision);
    /// None when `index` is out of range.
    [[nodiscard]] SharedRevision currentRevision() const;
    /// True for a position in `items`.
    [[nodiscard]] bool has(std::int64_t position) const;

    /// The same revisions, not only equal ones.
    bool operator==(const EditHistory&) const = default;
};

} // namespace corvane
