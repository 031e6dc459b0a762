#pragma once

#include "engine/edit_settings.h"
#include "platform/identifier.h"
#include "platform/timestamp.h"

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

} // namespace corvane
