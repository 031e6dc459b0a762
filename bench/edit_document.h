#pragma once

#include "engine/edit_settings.h"

#include <cstddef>
#include <string>
#include <vector>

namespace corvane::bench {

/// A project to export: its document and a cut list that tiles it.
struct EditDocument {
    std::string bytes;
    std::vector<Cut> cuts;
};

/// `clips` cuts of seven seconds on average among `cameras` cameras and a recorder, each of one file an hour; as many
/// markers, as many keywords, and a connected item for every tenth cut. The files are few, so that the edit and not
/// the copied resources makes up the finished document.
[[nodiscard]] EditDocument editDocument(std::size_t clips, std::size_t cameras = 7);

} // namespace corvane::bench
