// The input is what a person does at the window. Nothing may throw, and every restart must restore the project, the
// settings and all edits as they were last saved.

#include "fuzz/byte_draws.h"
#include "fuzz/target.h"
#include "import/project_import.h"
#include "support/documents.h"
#include "support/test_window.h"

#include <array>
#include <exception>

namespace {

using namespace corvane;
using test::angle;
using test::clip;

/// Files without syncing, or a disk that accepts no session.
struct QuickFiles : FileCalls {
    bool full = false;

    std::ptrdiff_t write(int file, std::span<const std::string_view> parts) override
    {
        errno = ENOSPC;
        return full ? -1 : FileCalls::write(file, parts);
    }
    int sync(int) override { return 0; }
};

/// What a restart must restore.
struct Kept {
    std::string encodedXML;
    EditSettings settings;
    std::vector<EditRevision> revisions;
    std::int64_t index = -1;
    bool operator==(const Kept&) const = default;
};

const std::vector<std::string>& projects()
{
    static const std::string whole = clip("0s", "40s");
    static const std::vector<std::string> all = {
        test::document(),
        test::document(
            {.angles = angle("C", whole) + angle("D", clip("0s", "12s") + clip("14s", "26s")) + angle("E", whole)}),
        test::document(
            {.angles = angle("F", clip("0s", "39s")) + angle("B", clip("1s", "39s")) + angle("G", whole) +
                       angle("sound", clip("0s", "40s", "a"))}),
        "<fcpxml/>"};
    return all;
}

/// Names as people type and paste them.
constexpr std::array<const char*, 8> names = {
    "", "Song", "SONG ", "Sermon 10", "\t\u00a0", "\"日\\\u2028\x01", "👨‍👩‍👧 é", "e\u0301"};

class Work {
public:
    explicit Work(std::string_view bytes) : draws_(bytes)
    {
        window_.sessionCalls = &files_;
        window_.start();
        window_.view().windowAppeared();
    }

    /// The promise that was broken; empty if none was.
    std::string run()
    {
        while (!draws_.ended() && broken_.empty()) {
            try {
                (this->*draws_.anyOf(doings))();
            } catch (const std::exception& escaped) {
                return std::string("an operation throws: ") + escaped.what();
            }
            if (window_.state().loaded && !window_.state().sessionSaveError)
                kept_ = shown();
        }
        return broken_;
    }

private:
    using Doing = void (Work::*)();

    ContentView& view() { return window_.view(); }
    [[nodiscard]] std::string camera()
    {
        const auto angles = view().videoAngles();
        return angles.empty() || draws_.oneIn(20) ? "" : draws_.anyOf(angles).id;
    }
    double number(std::int64_t from, std::int64_t to) { return static_cast<double>(draws_.between(from, to)); }
    Kept shown()
    {
        const WorkspaceState& state = window_.state();
        Kept kept = {state.loaded->encodedXML, state.settings, {}, state.history.index};
        for (const SharedRevision& revision : state.history.items)
            kept.revisions.push_back(*revision);
        return kept;
    }
    void require(bool holds, const std::string& promise)
    {
        if (!holds)
            broken_ = promise;
    }

    void importProject() { view().importXML(draws_.anyOf(projects())); }
    void setNumber()
    {
        const std::string id = camera();
        const auto which = draws_.below(7);
        view().edit([&](WorkspaceState& state) {
            EditSettings& settings = state.settings;
            if (which == 0)
                settings.mainShare = number(10, 90);
            else if (which == 1)
                settings.averageShot = number(4, 20);
            else if (which == 2)
                settings.openingSeconds = number(1, 120);
            else if (which == 3)
                settings.closingSeconds = number(1, 120);
            else if (which == 4)
                settings.frequencies[id] = number(1, 10);
            else if (which == 5)
                settings.returnTimes[id] = number(0, 600);
            else
                settings.doubleMain = !settings.doubleMain;
        });
    }
    void setBookends()
    {
        const std::string id = camera();
        const auto which = draws_.below(5);
        view().edit([&](WorkspaceState& state) {
            EditSettings& settings = state.settings;
            if (which == 0)
                settings.openingEnabled = !settings.openingEnabled;
            else if (which == 1)
                settings.closingEnabled = !settings.closingEnabled;
            else if (!id.empty() && which == 2)
                settings.openingCamera = id;
            else if (!id.empty() && which == 3)
                settings.closingCamera = id;
            else
                settings.openingSeconds = settings.closingSeconds = number(1, 5);
        });
    }
    void setBound()
    {
        constexpr std::array<double EditSettings::*, 4> bounds = {
            &EditSettings::mainMinimum, &EditSettings::mainMaximum, &EditSettings::otherMinimum,
            &EditSettings::otherMaximum};
        view().setBound(draws_.anyOf(bounds), number(1, draws_.oneIn(2) ? 120 : 6));
    }
    void setAudio()
    {
        if (!window_.state().loaded)
            return;
        const ImportedAngle chosen = draws_.anyOf(window_.state().loaded->imported.angles);
        view().edit([&](WorkspaceState& state) { state.settings.audio = draws_.oneIn(8) ? "" : chosen.id; });
    }
    void chooseMain()
    {
        if (const std::string id = camera(); !id.empty())
            view().selectMainCamera(id);
    }
    void include()
    {
        using Inclusion = ContentView::Inclusion;
        if (const std::string id = camera(); !id.empty())
            view().setCameraIncluded(id, draws_.oneIn(2) ? Inclusion::excluded : Inclusion::included);
    }
    void sections()
    {
        constexpr std::array<const char*, 6> times = {"00:00:05:00", "0:0:10:0",    "00:00:20:24",
                                                      "00:00:39:24", "00:00:40:00", "half past nine"};
        const auto count = static_cast<std::int64_t>(window_.state().settings.sections.size());
        if (count == 0 || draws_.oneIn(4))
            return view().addSection();
        const auto position = static_cast<std::size_t>(draws_.below(count));
        if (draws_.oneIn(4))
            return view().removeSection(position);
        const std::string id = camera();
        view().edit([&](WorkspaceState& state) {
            SectionDraft& section = state.settings.sections.at(position);
            section.name = draws_.anyOf(names);
            section.start = draws_.anyOf(times);
            section.end = draws_.anyOf(times);
            if (!id.empty())
                section.camera = id;
        });
    }
    void generate() { view().generateRoughEdit(); }
    void step()
    {
        const auto which = draws_.below(3);
        if (which == 0)
            view().stepBack();
        else if (which == 1)
            view().stepForward();
        else
            view().restoreRevision(draws_.between(-1, 6));
    }
    void savePreset()
    {
        view().beginSavePreset();
        view().edit([&](WorkspaceState& state) { state.presetName = draws_.anyOf(names); });
        view().savePreset(draws_.oneIn(3) ? ContentView::PresetSave::update : ContentView::PresetSave::asNew);
    }
    void usePreset()
    {
        const auto presets = view().presets().presets();
        if (presets.empty())
            return;
        const EditPreset preset = draws_.anyOf(presets);
        view().edit([&](WorkspaceState& state) { state.chosenPreset = preset.id.text(); });
        if (draws_.oneIn(4))
            view().deletePreset();
        else
            view().applyPreset(preset);
    }
    void undo() { view().undo(); }
    void exportEdit()
    {
        window_.dialogs.answer =
            draws_.oneIn(6) ? std::nullopt : std::optional(window_.folder.file(draws_.oneIn(6) ? "gone" : "exports"));
        window_.finalCut.installed = !draws_.oneIn(3);
        view().exportRoughEdit();
    }
    void report()
    {
        auto& reports = window_.finalCut.reports;
        if (reports.empty())
            return;
        const auto now = reports.begin() + draws_.below(std::ssize(reports));
        const auto report = *now;
        reports.erase(now);
        report(draws_.oneIn(2) ? std::nullopt : std::optional(ServiceError{"d", 1, "No."}));
    }
    void deliver()
    {
        if (draws_.oneIn(3))
            window_.inbox.setImportError("A message.");
        else
            window_.inbox.setXMLData(draws_.anyOf(projects()));
    }
    void dismiss() { view().dismissError(); }
    void reopen() { view().reopenPreviousSession(); }
    void fillDisk()
    {
        files_.full = draws_.oneIn(2);
        wasFull_ = wasFull_ || files_.full;
    }
    void restart()
    {
        files_.full = false;
        while (!view().alerts().empty())
            view().dismissError();
        const bool hadCuts = kept_ && window_.state().loaded && kept_ == shown() && window_.state().preview;
        window_.restart();
        const WorkspaceState& state = window_.state();
        require(!state.error, "a restart finds what was saved: " + state.error.value_or(""));
        require((state.loaded != nullptr) == kept_.has_value(), "a restart shows a project when one was saved");
        if (state.loaded && kept_) {
            require(kept_ == shown(), "a restart shows what was saved last");
            require(!hadCuts || state.preview, "a restart shows the cuts that were on screen");
        }
        for (const std::string& name : window_.names("Corvane"))
            require(
                name == "session-v1.json" || name.starts_with("session-v1 (previous)") ||
                    (wasFull_ && name.starts_with("session-v1 (kept")),
                "nothing else is left: " + name);
    }

    static constexpr std::array<Doing, 26> doings = {
        &Work::importProject, &Work::setNumber, &Work::setNumber, &Work::setBookends, &Work::setBound,  &Work::setAudio,
        &Work::chooseMain,    &Work::include,   &Work::sections,  &Work::sections,    &Work::generate,  &Work::generate,
        &Work::generate,      &Work::step,      &Work::step,      &Work::savePreset,  &Work::usePreset, &Work::undo,
        &Work::exportEdit,    &Work::report,    &Work::deliver,   &Work::dismiss,     &Work::reopen,    &Work::fillDisk,
        &Work::restart,       &Work::restart};

    test::ByteDraws draws_;
    QuickFiles files_;
    test::TestWindow window_;
    std::optional<Kept> kept_;
    bool wasFull_ = false; ///< then what could not be saved in its place was kept beside it
    std::string broken_;
};

} // namespace

std::string runFuzzInput(std::string_view bytes)
{
    return Work(bytes).run();
}
