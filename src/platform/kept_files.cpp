#include "platform/kept_files.h"

#include "base/error.h"
#include "base/numbers.h"
#include "platform/file_errors.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <tuple>

namespace corvane {

namespace {

/// The parts of a name before and after "(kept)".
struct NameParts {
    std::string before;
    std::string_view after;
};

NameParts partsAround(std::string_view path)
{
    constexpr std::string_view ending = ".json";
    const std::string_view after = path.ends_with(ending) ? ending : "";
    path.remove_suffix(after.size());
    return {std::string(path) + " (kept", after};
}

/// The n-th name for kept files, counting from 1.
std::string keptName(const NameParts& parts, std::int64_t n)
{
    std::string name = parts.before + (n == 1 ? "" : " " + std::to_string(n)) + ")";
    return name += parts.after;
}

std::string freeName(const std::string& path)
{
    const NameParts parts = partsAround(path);
    for (std::int64_t n = 1;; ++n) {
        std::string name = keptName(parts, n);
        if (!somethingNamed(name))
            return name;
    }
}

/// True for a name that keptName returns for some n.
bool isKeptName(const NameParts& parts, std::string_view name)
{
    if (name == keptName(parts, 1))
        return true;
    if (!name.starts_with(parts.before + " "))
        return false;
    const std::string_view number = name.substr(parts.before.size() + 1);
    const auto n = readInteger(number.substr(0, number.find(')')));
    return n && *n > 1 && name == keptName(parts, *n);
}

} // namespace

std::string moveAside(const std::string& path, FileCalls& calls)
{
    std::string kept = freeName(path);
    if (calls.renameToNew(path, kept) != 0)
        refuseFile("Cannot write", kept, errno);
    return kept;
}

std::string keepAside(const std::string& path, std::uint64_t most, FileCalls& calls)
{
    std::string kept = freeName(path);
    std::string bytes;
    try {
        bytes = readFile(path, most);
    } catch (const PlatformError&) {
        std::error_code none;
        const auto kind = std::filesystem::symlink_status(path, none).type();
        if (kind == std::filesystem::file_type::directory || kind == std::filesystem::file_type::symlink ||
            calls.renameToNew(path, kept) != 0)
            throw;
        return kept;
    }
    writeNewFile(kept, bytes, calls);
    return kept;
}

std::vector<std::string> keptBeside(const std::string& path)
{
    const NameParts parts = partsAround(path);
    std::error_code none; // ignored: a file that cannot be examined counts as the oldest
    std::vector<std::tuple<std::filesystem::file_time_type, std::string>> found;
    for (const std::string& each : namesIn(folderOf(path))) {
        const std::string name = pathIn(folderOf(path), each);
        if (isKeptName(parts, name))
            found.emplace_back(std::filesystem::last_write_time(name, none), name);
    }
    std::ranges::sort(found);
    std::vector<std::string> paths(found.size());
    std::ranges::transform(found, paths.begin(), [](const auto& entry) { return std::get<std::string>(entry); });
    return paths;
}

} // namespace corvane
