#include "replay/story_stage.h"

#include "base/error.h"

#include <cerrno>
#include <fstream>

namespace corvane::replay {

namespace fs = std::filesystem;

std::ptrdiff_t StoryStage::SessionCalls::write(int file, std::span<const std::string_view> parts)
{
    if (*store == "works")
        return FileCalls::write(file, parts);
    errno = EIO;
    return -1;
}

StoryStage::StoryStage(const Json& story)
{
    for (const Json& document : story.at("documents"))
        documents_.push_back(bytes(document));
    for (const Json& draw : story.at("draws"))
        draws_.push_back(number(draw));
    for (const char* folder : {"out", "other", "folder.fcpxml", "empty.fcpxmld"})
        fs::create_directory(path(folder));
    std::ofstream(path("notes.txt")) << "any text";
    calls_.store = &sessionStore;
    account.sessionCalls = &calls_;
    account.sessionFolder = [this] {
        if (sessionStore == "unavailable")
            throw PlatformError("The application-support folder is not there.");
        return path("Corvane");
    };
    account.randomNumbers = [this] { return draws_[drawsUsed++ % draws_.size()]; };
    account.quit();
    account.start();
}

Json StoryStage::documentPlace(const std::string& bytes) const
{
    const auto found = std::ranges::find(documents_, bytes);
    return found == documents_.end() ? Json(nullptr) : Json(found - documents_.begin());
}

std::string StoryStage::file(const std::string& name) const
{
    if (name.find("://") != std::string::npos)
        return name;
    const fs::path file = path(name);
    if (name.starts_with("doc") && !fs::exists(file)) {
        std::string extension = file.extension();
        std::ranges::transform(extension, extension.begin(), [](unsigned char c) { return std::tolower(c); });
        const bool bundle = extension == ".fcpxmld";
        if (bundle)
            fs::create_directory(file);
        std::ofstream(bundle ? file / "Info.fcpxml" : file, std::ios::binary)
            << documents_.at(std::stoul(name.substr(3)));
    }
    return file;
}

} // namespace corvane::replay
