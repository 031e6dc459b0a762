#include "platform/text.h"
#include "replay/kinds.h"
#include "replay/story_stage.h"

#include <fstream>

namespace corvane::replay {

namespace {

using Step = void (*)(StoryStage&, const Json&);

const std::map<std::string, double EditSettings::*> bounds = {
    {"mainMinimum", &EditSettings::mainMinimum},
    {"mainMaximum", &EditSettings::mainMaximum},
    {"otherMinimum", &EditSettings::otherMinimum},
    {"otherMaximum", &EditSettings::otherMaximum}};
const std::map<std::string, double EditSettings::*> numbers = {
    {"aShare", &EditSettings::mainShare},
    {"openingSeconds", &EditSettings::openingSeconds},
    {"closingSeconds", &EditSettings::closingSeconds}};
const std::map<std::string, bool EditSettings::*> switches = {
    {"doubleMain", &EditSettings::doubleMain},
    {"openingEnabled", &EditSettings::openingEnabled},
    {"closingEnabled", &EditSettings::closingEnabled}};
const std::map<std::string, std::string EditSettings::*> cameras = {
    {"audioAngle", &EditSettings::audio},
    {"openingCamera", &EditSettings::openingCamera},
    {"closingCamera", &EditSettings::closingCamera}};
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
    const std::string field = step.at("field");
    const Json& value = step.at("value");
    stage.window().edit([&](WorkspaceState& state) {
        if (numbers.contains(field))
            state.settings.*numbers.at(field) = number(value);
        else if (switches.contains(field))
            state.settings.*switches.at(field) = value.get<bool>();
        else if (cameras.contains(field))
            state.settings.*cameras.at(field) = value.get<std::string>();
        else if (viewSwitches.contains(field))
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
    const auto stored = stage.window().storedPresets();
    const Json& position = step.at("position");
    stage.window().edit([&](WorkspaceState& state) {
        state.chosenPreset = position.is_null() ? "" : stored.at(position.get<std::size_t>()).id.text();
    });
}

void deliver(StoryStage& stage, const Json& step)
{
    if (step.contains("xmlData"))
        stage.inbox.setXMLData(stage.document(step.at("xmlData")));
    else if (step.contains("url"))
        stage.inbox.setURL(stage.paths({step.at("url")}).front());
    else
        stage.inbox.setImportError(step.at("importError").get<std::string>());
}

void restart(StoryStage& stage, const Json& step)
{
    stage.newWindow();
    if (!step.at("arrived").is_null())
        deliver(stage, step.at("arrived"));
    stage.window().windowAppeared();
}

void exportEdit(StoryStage& stage, const Json& step)
{
    stage.answer = step.at("folder");
    stage.finalCut = step.at("finalCut");
    stage.window().exportRoughEdit();
}

void finalCutReports(StoryStage& stage, const Json& step)
{
    if (stage.waitingReports.empty())
        return;
    const auto report = stage.waitingReports.front();
    stage.waitingReports.erase(stage.waitingReports.begin());
    const Json& error = step.at("error");
    report(error.is_null() ? std::nullopt : std::optional(ServiceError{"", 0, error}));
}

void replaceSession(StoryStage& stage, const Json& step)
{
    std::filesystem::remove(stage.sessionPath());
    if (!step.at("data").is_null())
        std::ofstream(stage.sessionPath(), std::ios::binary) << bytes(step.at("data"));
}

const std::map<std::string, Step> steps = {
    {"restart", restart},
    {"windowAppeared", [](StoryStage& stage, const Json&) { stage.window().windowAppeared(); }},
    {"importXML",
     [](StoryStage& stage, const Json& step) { stage.window().importXML(stage.document(step.at("document"))); }},
    {"openProjectFile",
     [](StoryStage& stage, const Json& step) {
         stage.window().openProjectFile(stage.paths({step.at("file")}).front());
     }},
    {"chooseProjectFile",
     [](StoryStage& stage, const Json& step) {
         stage.answer = step.at("file");
         if (!stage.answer.is_null())
             (void)stage.paths({stage.answer});
         stage.window().chooseProjectFile();
     }},
    {"handleDroppedFiles",
     [](StoryStage& stage, const Json& step) { stage.window().handleDroppedFiles(stage.paths(step.at("files"))); }},
    {"inbox", deliver},
    {"selectMainCamera", [](StoryStage& stage, const Json& step) { stage.window().selectMainCamera(step.at("id")); }},
    {"setCameraIncluded",
     [](StoryStage& stage, const Json& step) {
         stage.window().setCameraIncluded(
             step.at("id"), step.at("included") ? ContentView::Inclusion::included : ContentView::Inclusion::excluded);
     }},
    {"set", setField},
    {"setBound",
     [](StoryStage& stage, const Json& step) {
         stage.window().setBound(bounds.at(step.at("field")), number(step.at("value")));
     }},
    {"setReturnTime",
     [](StoryStage& stage, const Json& step) {
         stage.window().edit([&](WorkspaceState& state) {
             state.settings.returnTimes[step.at("id").get<std::string>()] = number(step.at("value"));
         });
     }},
    {"setFrequency",
     [](StoryStage& stage, const Json& step) {
         stage.window().edit([&](WorkspaceState& state) {
             state.settings.frequencies[step.at("id").get<std::string>()] = number(step.at("value"));
         });
     }},
    {"addSection", [](StoryStage& stage, const Json&) { stage.window().addSection(); }},
    {"removeSection", [](StoryStage& stage, const Json& step) { stage.window().removeSection(step.at("position")); }},
    {"setSection", setSection},
    {"generateRoughEdit", [](StoryStage& stage, const Json&) { stage.window().generateRoughEdit(); }},
    {"stepBack", [](StoryStage& stage, const Json&) { stage.window().stepBack(); }},
    {"stepForward", [](StoryStage& stage, const Json&) { stage.window().stepForward(); }},
    {"restoreRevision",
     [](StoryStage& stage, const Json& step) { stage.window().restoreRevision(step.at("position")); }},
    {"choosePreset", choosePreset},
    {"beginSavePreset", [](StoryStage& stage, const Json&) { stage.window().beginSavePreset(); }},
    {"applyPreset",
     [](StoryStage& stage, const Json&) {
         if (const auto preset = stage.window().chosenPresetRecord())
             stage.window().applyPreset(*preset);
     }},
    {"deletePreset", [](StoryStage& stage, const Json&) { stage.window().deletePreset(); }},
    {"savePreset",
     [](StoryStage& stage, const Json& step) {
         stage.window().savePreset(
             step.at("updating") ? ContentView::PresetSave::update : ContentView::PresetSave::asNew);
     }},
    {"exportRoughEdit", exportEdit},
    {"finalCutReports", finalCutReports},
    {"dismissError", [](StoryStage& stage, const Json&) { stage.window().dismissError(); }},
    {"sessionStore", [](StoryStage& stage, const Json& step) { stage.sessionStore = step.at("state"); }},
    {"replaceSession", replaceSession},
    {"replacePresets", [](StoryStage& stage, const Json& step) { stage.presets = bytes(step.at("data")); }},
    {"placeFile",
     [](StoryStage& stage, const Json& step) {
         std::ofstream(stage.path(step.at("folder").get<std::string>() + "/" + step.at("name").get<std::string>()))
             << "a file";
     }},
    {"removeFile",
     [](StoryStage& stage, const Json& step) {
         std::filesystem::remove(
             stage.path(step.at("folder").get<std::string>() + "/" + step.at("name").get<std::string>()));
     }},
};

} // namespace

void runStep(StoryStage& stage, const Json& step)
{
    stage.asked = false;
    stage.opened.clear();
    steps.at(step.at("do"))(stage, step);
}

Json answerStory(const Json& request)
{
    StoryStage stage(request);
    const Json& all = request.at("steps");
    Json snapshots = Json::array();
    for (std::size_t done = 0; done < all.size(); ++done) {
        runStep(stage, all[done]);
        snapshots.push_back(snapshot(stage, stage.window(), all, done));
    }
    std::string text = snapshots.dump();
    const std::string scratch = stage.scratch();
    for (std::size_t at = text.find(scratch); at != std::string::npos; at = text.find(scratch, at))
        text.replace(at, scratch.size(), "{scratch}");
    return {{"snapshots", Json::parse(text)}};
}

} // namespace corvane::replay
