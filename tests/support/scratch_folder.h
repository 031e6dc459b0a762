#pragma once

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvane::test {

/// A new folder that is removed at the end of the scope.
class ScratchFolder {
public:
    ScratchFolder() : path_((std::filesystem::temp_directory_path() / "corvane-test-XXXXXX").string())
    {
        if (::mkdtemp(path_.data()) == nullptr)
            throw std::runtime_error("no scratch folder");
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() { std::filesystem::remove_all(path_); }

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string file(const std::string& name) const { return path_ + "/" + name; }
    /// The sorted names of everything in the folder, or in a folder inside it.
    [[nodiscard]] std::vector<std::string> names(const std::string& inside = "") const
    {
        std::vector<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(file(inside)))
            all.push_back(entry.path().filename().string());
        std::ranges::sort(all);
        return all;
    }

private:
    std::string path_;
};

} // namespace corvane::test
