#include "base/base64.h"
#include "replay/story_stage.h"
#include "session/presets.h"
#include "workspace/captions.h"
#include "workspace/commands.h"

namespace corvane::replay {

namespace {

Json settingsForm(const EditSettings& settings)
{
    Json form = Json::parse(encodedSettings(settings));
    for (Json& section : form["sections"])
        section.erase("id");
    return form;
}

Json place(const std::vector<EditPreset>& presets, const std::string& id)
{
    const auto found = std::ranges::find(presets, id, [](const EditPreset& preset) { return preset.id.text(); });
    return found == presets.end() ? Json(nullptr) : Json(found - presets.begin());
}

Json fields(StoryStage& stage)
{
    const WorkspaceState& state = stage.account.state();
    Json cuts = Json::array();
    for (const Cut& cut : state.cuts())
        cuts.push_back({cut.angle, cut.start, cut.duration});
    return {
        {"showingHelp", state.showingHelp},
        {"showingAbout", state.showingAbout},
        {"didRestore", state.didRestore},
        {"sessionSaveError", orNull(state.sessionSaveError)},
        {"error", orNull(state.error)},
        {"status", state.status},
        {"dropTargeted", state.dropTargeted},
        {"showSavePreset", state.showSavePreset},
        {"presetName", state.presetName},
        {"presetNotice", state.presetNotice},
        {"sourceXML",
         state.loaded ? stage.documentPlace(base64Decoded(state.loaded->encodedXML).value()) : Json(nullptr)},
        {"history", {{"count", state.history.items.size()}, {"index", state.history.index}}},
        {"settings", settingsForm(state.settings)},
        {"restoredSettings", state.restoredSettings ? settingsForm(*state.restoredSettings) : Json(nullptr)},
        {"imported", state.loaded ? Json(state.loaded->imported.name) : Json(nullptr)},
        {"engine", state.loaded ? Json(state.loaded->engine.length) : Json(nullptr)},
        {"cuts", cuts},
        {"chosenPreset", place(stage.window().presets().presets(), state.chosenPreset)}};
}

Json derived(const ContentView& window)
{
    const auto enabled = [&window](Command command) { return !whyNot(command, {window}); };
    Json angles = Json::array();
    for (const ImportedAngle& angle : window.videoAngles())
        angles.push_back(angle.id);
    Json usage = Json::object();
    for (const UsageRow& row : usageRows(window))
        usage[row.camera] = {row.screenTime, row.share, row.shots};
    const auto gaps = videoGaps(window);
    constexpr const char* stages[] = {"empty", "loaded", "preview"};
    return {
        {"state", stages[static_cast<std::size_t>(stage(window))]},
        {"settingsMatchRevision", orNull(window.settingsMatchRevision())},
        {"videoAngles", angles},
        {"includedOtherCameras", window.includedOtherCameras()},
        {"audioLabel", window.angleLabel(window.state().settings.audio)},
        {"primaryButton", primaryButtonText(window)},
        {"includeCaption", asksForAnotherCamera(window)},
        {"enabled",
         {{"generate", enabled(Command::generate)},
          {"export", enabled(Command::exportEdit)},
          {"back", enabled(Command::back)},
          {"forward", enabled(Command::forward)},
          {"apply", enabled(Command::applyPreset)},
          {"saveAs", enabled(Command::savePresetAs)},
          {"update", enabled(Command::updatePreset)},
          {"delete", enabled(Command::deletePreset)},
          {"save", enabled(Command::savePreset)}}},
        {"position", orNull(positionCaption(window))},
        {"summary", orNull(summaryLine(window))},
        {"warning",
         window.state().loaded ? Json{{"warning", orNull(setupWarning(window))}, {"seconds", nullptr}} : Json(nullptr)},
        {"uncovered", gaps ? Json(gaps->size()) : Json(nullptr)},
        {"usage", usage}};
}

/// The index of the last step of that kind whose bytes are still stored, or null.
Json givenBy(const Json& steps, std::size_t done, const char* kind, const std::string& stored)
{
    for (std::size_t n = done + 1; n-- > 0;) {
        if (steps[n].at("do") == kind)
            return !steps[n].at("data").is_null() && bytes(steps[n].at("data")) == stored ? Json(n) : Json(nullptr);
    }
    return nullptr;
}

Json sessionForm(StoryStage& stage, const std::string& stored)
{
    const Json session = Json::parse(stored);
    Json settings = session.at("settings");
    const bool shown = settings == Json::parse(encodedSettings(stage.account.state().settings));
    for (Json& section : settings["sections"])
        section.erase("id");
    return {
        {"document", stage.documentPlace(bytes(session.at("sourceXML")))},
        {"settings", shown ? Json("shown") : settings},
        {"history",
         {{"count", session.at("history").at("items").size()}, {"index", session.at("history").at("index")}}}};
}

Json presetForms(const std::string& stored)
{
    Json forms = Json::array();
    try {
        for (const EditPreset& preset : decodePresets(stored))
            forms.push_back(presetForm(preset));
    } catch (const std::runtime_error&) {
        return nullptr;
    }
    for (Json& form : forms)
        form.erase("id");
    return forms;
}

Json storedThings(StoryStage& stage, const Json& steps, std::size_t done)
{
    const bool exists = somethingNamed(stage.account.sessionFile());
    const std::string session = exists ? readFile(stage.account.sessionFile()) : "";
    const Json sessionFrom = exists ? givenBy(steps, done, "replaceSession", session) : Json(nullptr);
    return {
        {"session", exists && sessionFrom.is_null() ? sessionForm(stage, session) : Json(nullptr)},
        {"sessionFrom", sessionFrom},
        {"presets", presetForms(stage.presets())},
        {"presetsFrom", givenBy(steps, done, "replacePresets", stage.presets())},
        {"folders", {{"out", stage.account.names("out")}, {"other", stage.account.names("other")}}}};
}

Json fileNames(const std::vector<std::string>& paths)
{
    Json names = Json::array();
    for (const std::string& path : paths)
        names.push_back(std::filesystem::path(path).filename());
    return names;
}

} // namespace

Json snapshot(StoryStage& stage, const Json& steps, std::size_t done)
{
    return {
        {"fields", fields(stage)},
        {"derived", derived(stage.window())},
        {"stored", storedThings(stage, steps, done)},
        {"drawsUsed", stage.drawsUsed},
        {"asked", stage.account.dialogs.asked > 0 && steps[done].at("do") == "exportRoughEdit"},
        {"opened", fileNames(stage.account.finalCut.opened)}};
}

} // namespace corvane::replay
