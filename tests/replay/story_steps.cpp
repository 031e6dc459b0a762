#include "base/text.h"
#include "replay/kinds.h"
#include "replay/story_stage.h"

#include <fstream>

namespace corvane::replay {

namespace {

using Step = void (*)(StoryStage&, const Json&);

template <auto operation>
void plain(StoryStage& stage, const Json&)
{
    (stage.window().*operation)();
}

template <auto numbers>
void setByCamera(StoryStage& stage, const Json& step)
{
    stage.account.set([&](auto& settings) { (settings.*numbers)[step.at("id")] = number(step.at("value")); });
}

/// The settings that stories call by other names.
const std::map<std::string, std::string> otherNames = {{"aShare", "mainShare"}, {"audioAngle", "audio"}};
const std::map<std::string, bool WorkspaceState::*> viewSwitches = {
    {"showSavePreset", &WorkspaceState::showSavePreset},
    {"showingHelp", &WorkspaceState::showingHelp},
    {"showingAbout", &WorkspaceState::showingAbout}};
const std::map<std::string, std::string SectionDraft::*> sectionFields = {
    {"name", &SectionDraft::name},
    {"camera", &SectionDraft::camera},
    {"start", &SectionDraft::start},
    {"end", &SectionDraft::end}};

void setField(StoryStage& stage, const Json& step)
{
    const std::string name = step.at("field");
    const std::string field = otherNames.contains(name) ? otherNames.at(name) : name;
    const Json& value = step.at("value");
    stage.window().edit([&](WorkspaceState& state) {
        if (putSetting(state.settings, field, value))
            return;
        if (viewSwitches.contains(field))
            state.*viewSwitches.at(field) = value.get<bool>();
        else
            state.presetName = value.get<std::string>();
    });
}

void setSection(StoryStage& stage, const Json& step)
{
    stage.window().edit([&](WorkspaceState& state) {
        const std::size_t position = step.at("position");
        if (position < state.settings.sections.size())
            state.settings.sections[position].*sectionFields.at(step.at("field")) = step.at("value").get<std::string>();
    });
}

void choosePreset(StoryStage& stage, const Json& step)
{
    const auto stored = stage.window().presets().presets();
    const Json& position = step.at("position");
    stage.window().edit([&](WorkspaceState& state) {
        state.chosenPreset = position.is_null() ? "" : stored.at(position.get<std::size_t>()).id.text();
    });
}

void deliver(StoryStage& stage, const Json& step)
{
    if (step.contains("xmlData"))
        stage.account.inbox.setXMLData(stage.document(step.at("xmlData")));
    else if (step.contains("url"))
        stage.account.inbox.setURL(stage.file(step.at("url")));
    else
        stage.account.inbox.setImportError(step.at("importError").get<std::string>());
}

void restart(StoryStage& stage, const Json& step)
{
    stage.account.quit();
    stage.account.finalCut.reports.clear();
    stage.account.start();
    if (!step.at("arrived").is_null())
        deliver(stage, step.at("arrived"));
    stage.window().windowAppeared();
}

void answerDialog(StoryStage& stage, const Json& path)
{
    stage.account.dialogs.answer = path.is_null() ? std::nullopt : std::optional(stage.file(path));
}

void chooseProjectFile(StoryStage& stage, const Json& step)
{
    answerDialog(stage, step.at("file"));
    stage.window().chooseProjectFile();
}

void report(StoryStage& stage, std::size_t number, const Json& error)
{
    auto& waiting = stage.account.finalCut.reports;
    if (number >= waiting.size())
        return;
    const auto answer = waiting[number];
    waiting.erase(waiting.begin() + static_cast<std::ptrdiff_t>(number));
    answer(error.is_null() ? std::nullopt : std::optional(ServiceError{"", 0, error}));
}

void exportEdit(StoryStage& stage, const Json& step)
{
    answerDialog(stage, step.at("folder"));
    const Json& finalCut = step.at("finalCut");
    stage.account.finalCut.installed = finalCut != "missing";
    const std::size_t waiting = stage.account.finalCut.reports.size();
    stage.window().exportRoughEdit();
    if (finalCut == "found")
        report(stage, waiting, nullptr);
    else if (finalCut.is_object())
        report(stage, waiting, finalCut.at("refuses"));
}

void handleDroppedFiles(StoryStage& stage, const Json& step)
{
    std::vector<std::string> files;
    for (const std::string name : step.at("files"))
        files.push_back(stage.file(name));
    stage.window().handleDroppedFiles(files);
}

void replaceSession(StoryStage& stage, const Json& step)
{
    std::filesystem::remove(stage.account.sessionFile());
    if (!step.at("data").is_null())
        std::ofstream(stage.account.sessionFile(), std::ios::binary) << bytes(step.at("data"));
}

std::string placeOf(StoryStage& stage, const Json& step)
{
    return stage.path(step.at("folder").get<std::string>() + "/" + step.at("name").get<std::string>());
}

const std::map<std::string, Step> steps = {
    {"restart", restart},
    {"windowAppeared", plain<&ContentView::windowAppeared>},
    {"importXML", [](auto& stage, auto& step) { stage.window().importXML(stage.document(step.at("document"))); }},
    {"openProjectFile", [](auto& stage, auto& step) { stage.window().openProjectFile(stage.file(step.at("file"))); }},
    {"chooseProjectFile", chooseProjectFile},
    {"handleDroppedFiles", handleDroppedFiles},
    {"inbox", deliver},
    {"selectMainCamera", [](auto& stage, auto& step) { stage.window().selectMainCamera(step.at("id")); }},
    {"setCameraIncluded",
     [](auto& stage, auto& step) {
         using Inclusion = ContentView::Inclusion;
         const auto inclusion = step.at("included") ? Inclusion::included : Inclusion::excluded;
         stage.window().setCameraIncluded(step.at("id"), inclusion);
     }},
    {"set", setField},
    {"setBound",
     [](auto& stage, auto& step) {
         stage.window().setBound(numberSetting(step.at("field").template get<std::string>()), number(step.at("value")));
     }},
    {"setReturnTime", setByCamera<&EditSettings::returnTimes>},
    {"setFrequency", setByCamera<&EditSettings::frequencies>},
    {"addSection", plain<&ContentView::addSection>},
    {"removeSection", [](auto& stage, auto& step) { stage.window().removeSection(step.at("position")); }},
    {"setSection", setSection},
    {"generateRoughEdit", plain<&ContentView::generateRoughEdit>},
    {"stepBack", plain<&ContentView::stepBack>},
    {"stepForward", plain<&ContentView::stepForward>},
    {"restoreRevision", [](auto& stage, auto& step) { stage.window().restoreRevision(step.at("position")); }},
    {"choosePreset", choosePreset},
    {"beginSavePreset", plain<&ContentView::beginSavePreset>},
    {"applyPreset",
     [](auto& stage, auto&) {
         if (const auto preset = stage.window().chosenPreset())
             stage.window().applyPreset(*preset);
     }},
    {"deletePreset", plain<&ContentView::deletePreset>},
    {"savePreset",
     [](auto& stage, auto& step) {
         using Save = ContentView::PresetSave;
         stage.window().savePreset(step.at("updating") ? Save::update : Save::asNew);
     }},
    {"exportRoughEdit", exportEdit},
    {"finalCutReports", [](auto& stage, auto& step) { report(stage, 0, step.at("error")); }},
    {"dismissError", plain<&ContentView::dismissError>},
    {"sessionStore", [](auto& stage, auto& step) { stage.sessionStore = step.at("state"); }},
    {"replaceSession", replaceSession},
    {"replacePresets",
     [](auto& stage, auto& step) {
         stage.presets() = bytes(step.at("data"));
         stage.window().readPresets();
     }},
    {"placeFile", [](auto& stage, auto& step) { std::ofstream(placeOf(stage, step)) << "a file"; }},
    {"removeFile", [](auto& stage, auto& step) { std::filesystem::remove(placeOf(stage, step)); }},
};

} // namespace

void runStep(StoryStage& stage, const Json& step)
{
    stage.account.dialogs.asked = 0;
    stage.account.finalCut.opened.clear();
    steps.at(step.at("do"))(stage, step);
}

Json answerStory(const Json& request)
{
    StoryStage stage(request);
    const Json& all = request.at("steps");
    Json snapshots = Json::array();
    for (std::size_t done = 0; done < all.size(); ++done) {
        runStep(stage, all[done]);
        snapshots.push_back(snapshot(stage, all, done));
    }
    std::string text = snapshots.dump();
    const std::string& scratch = stage.account.folder.path();
    for (std::size_t at = text.find(scratch); at != std::string::npos; at = text.find(scratch, at))
        text.replace(at, scratch.size(), "{scratch}");
    return {{"snapshots", Json::parse(text)}};
}

} // namespace corvane::replay
