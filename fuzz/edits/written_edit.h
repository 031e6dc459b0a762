#pragma once

#include "engine/edit_settings.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane::test {

/// The first promise that the written edit of a randomDocument() breaks; empty if it keeps them all. Independent of the
/// writer: puts the clips together again and compares them with the source and the cut list.
[[nodiscard]] std::string brokenWrittenPromise(
    std::string_view source, std::string_view written, const std::vector<Cut>& cuts, std::string_view audio);

} // namespace corvane::test
