#pragma once

#include "engine/edit_settings.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane::test {

/// What the written edit of a randomDocument() breaks of all that is promised of it; empty when nothing. A reader that
/// knows nothing of the writer: the pieces are put together again and held against the source and the cut list.
[[nodiscard]] std::string brokenWrittenPromise(
    std::string_view source, std::string_view written, const std::vector<Cut>& cuts, std::string_view audio);

} // namespace corvane::test
