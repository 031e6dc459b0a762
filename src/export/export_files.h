#pragma once

#include "platform/files.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace corvane {

/// Paths of the two files of one export.
struct ExportFiles {
    std::string xmlURL;
    std::string settingsURL;
    bool operator==(const ExportFiles&) const = default;
};

/// The two file names of an export.
struct ExportNames {
    std::string xml;
    std::string settings;
    bool operator==(const ExportNames&) const = default;
};

/// The names for an export of the project: the first 100 characters of its name without path separators, " Corvane"
/// and, from the second export on, the first number for which neither name `isTaken`. Names longer than `longestName`
/// bytes lose whole characters. Refuses if 10,000 numbers are taken.
[[nodiscard]] ExportNames exportNames(
    std::string_view projectName, std::size_t longestName, const std::function<bool(const std::string&)>& isTaken);

/// Writes both files under free names in the folder, each completely or not at all, and never over another file. Throws
/// PlatformError if the document cannot be written. If the record cannot be written, the document stays and the refusal
/// says so.
[[nodiscard]] ExportFiles writeExportFiles(
    const std::string& folder, std::string_view xmlBytes, std::string_view recordText, std::string_view projectName,
    FileCalls& calls = FileCalls::system());

} // namespace corvane
