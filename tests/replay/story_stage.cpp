#include "replay/story_stage.h"

#include "platform/error.h"

#include <stdlib.h>

#include <cerrno>
#include <fstream>

namespace corvane::replay {

namespace fs = std::filesystem;

class StoryStage::AnsweredDialogs : public Dialogs {
public:
    explicit AnsweredDialogs(StoryStage& stage) : stage_(stage) {}
    std::optional<std::string> chooseProject(const std::string&) override { return answer(); }
    std::optional<std::string> chooseFolder(const std::string&, const std::string&, const std::string&) override
    {
        stage_.asked = true;
        return answer();
    }

private:
    std::optional<std::string> answer()
    {
        return stage_.answer.is_null() ? std::nullopt : std::optional(stage_.path(stage_.answer));
    }
    StoryStage& stage_;
};

class StoryStage::StoredPresets : public UserDefaults {
public:
    explicit StoredPresets(StoryStage& stage) : stage_(stage) {}
    [[nodiscard]] std::string value(const std::string&) const override { return stage_.presets; }
    void setValue(const std::string&, std::string_view bytes) override { stage_.presets = bytes; }

private:
    StoryStage& stage_;
};

class StoryStage::SessionFileCalls : public FileCalls {
public:
    explicit SessionFileCalls(StoryStage& stage) : stage_(stage) {}
    std::ptrdiff_t write(int file, std::span<const std::string_view> parts) override
    {
        if (stage_.sessionStore == "works")
            return FileCalls::write(file, parts);
        errno = EIO;
        return -1;
    }
    int sync(int) override { return 0; } // thousands of saves, none of which has to outlive the machine

private:
    StoryStage& stage_;
};

class StoryStage::StagedServices : public WorkspaceServices {
public:
    explicit StagedServices(StoryStage& stage) : stage_(stage) {}
    [[nodiscard]] std::optional<std::string> application(const std::string&) const override
    {
        return stage_.finalCut == "missing" ? std::nullopt : std::optional<std::string>("Final Cut");
    }
    void open(const std::vector<std::string>& files, const std::string&, Report report) override
    {
        for (const std::string& file : files)
            stage_.opened.push_back(fs::path(file).filename());
        if (stage_.finalCut == "later")
            stage_.waitingReports.push_back(std::move(report));
        else if (stage_.finalCut == "found")
            report(std::nullopt);
        else
            report(ServiceError{"", 0, stage_.finalCut.at("refuses")});
    }

private:
    StoryStage& stage_;
};

StoryStage::StoryStage(const Json& story)
    : dialogs_(std::make_unique<AnsweredDialogs>(*this)),
      defaults_(std::make_unique<StoredPresets>(*this)),
      sessionCalls_(std::make_unique<SessionFileCalls>(*this)),
      services_(std::make_unique<StagedServices>(*this))
{
    std::string name = (fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path()) / "story-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr)
        throw PlatformError("no scratch folder");
    folder_ = name;
    for (const Json& document : story.at("documents"))
        documents_.push_back(bytes(document));
    for (const Json& draw : story.at("draws"))
        draws_.push_back(number(draw));
    for (const char* folder : {"support", "out", "other"})
        fs::create_directory(folder_ / folder);
    makeFiles();
    newWindow();
}

StoryStage::~StoryStage()
{
    window_.reset();
    fs::remove_all(folder_);
}

void StoryStage::makeFiles()
{
    std::ofstream(folder_ / "notes.txt") << "any text";
    fs::create_directory(folder_ / "folder.fcpxml");
    fs::create_directory(folder_ / "empty.fcpxmld");
}

void StoryStage::newWindow()
{
    window_.reset();
    waitingReports.clear();
    sessions_ = std::make_unique<SessionStore>(
        [this] {
            if (sessionStore == "unavailable")
                throw PlatformError("The application-support folder is not there.");
            return path("support");
        },
        *sessionCalls_);
    window_ = std::make_unique<ContentView>(WorkspaceServicesInUse{
        .dialogs = *dialogs_,
        .defaults = *defaults_,
        .sessions = *sessions_,
        .scope = SecurityScope::system(),
        .services = *services_,
        .inbox = inbox,
        .mainThread = [](const std::function<void()>& work) { work(); },
        .draws = [this] { return draws_[drawsUsed++ % draws_.size()]; }});
}

Json StoryStage::documentPlace(const std::string& bytes) const
{
    const auto found = std::ranges::find(documents_, bytes);
    return found == documents_.end() ? Json(nullptr) : Json(found - documents_.begin());
}

/// docN with any extension is document N; it is made when it is first named.
std::vector<std::string> StoryStage::paths(const Json& names) const
{
    std::vector<std::string> all;
    for (const std::string name : names) {
        const fs::path file = folder_ / name;
        all.push_back(name.find("://") == std::string::npos ? file.string() : name);
        if (!name.starts_with("doc") || fs::exists(file))
            continue;
        const std::string& document = documents_.at(std::stoul(name.substr(3)));
        std::string extension = file.extension();
        std::ranges::transform(extension, extension.begin(), [](unsigned char c) { return std::tolower(c); });
        const bool bundle = extension == ".fcpxmld";
        if (bundle)
            fs::create_directory(file);
        std::ofstream(bundle ? file / "Info.fcpxml" : file, std::ios::binary) << document;
    }
    return all;
}

} // namespace corvane::replay
