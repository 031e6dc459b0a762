#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// The files that come with the program.
class Resources {
public:
    Resources() = default;
    Resources(const Resources&) = delete;
    Resources& operator=(const Resources&) = delete;
    virtual ~Resources() = default;

    /// Where the file "name.extension" is; none if it is not installed.
    [[nodiscard]] virtual std::optional<std::string> path(std::string_view name, std::string_view extension) const = 0;
};

/// Looks for files in several folders, in order; the first folder that has the file wins.
class ResourceFolders : public Resources {
public:
    explicit ResourceFolders(std::vector<std::string> folders) : folders_(std::move(folders)) {}

    [[nodiscard]] std::optional<std::string> path(std::string_view name, std::string_view extension) const override;

private:
    std::vector<std::string> folders_;
};

} // namespace corvane
