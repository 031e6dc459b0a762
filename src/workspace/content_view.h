#pragma once

#include "base/observers.h"
#include "base/timestamp.h"
#include "engine/cut_generation.h"
#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"
#include "intake/xml_inbox.h"
#include "platform/dialogs.h"
#include "platform/security_scope.h"
#include "platform/user_defaults.h"
#include "platform/workspace_services.h"
#include "session/edit_history.h"
#include "session/preset_library.h"
#include "session/session_keeper.h"
#include "workspace/undo_steps.h"

#include <bitset>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Everything that the window shows. Anyone may read it; it is changed only inside ContentView::edit.
struct WorkspaceState {
    bool showingHelp = false;
    bool showingAbout = false;
    bool didRestore = false;   ///< the session was restored, or a project arrived before that
    bool dropTargeted = false; ///< a file drag hovers over the window
    bool showSavePreset = false;

    std::shared_ptr<const LoadedDocument> loaded; ///< none in an empty window
    EditHistory history;
    SharedRevision preview; ///< the revision whose cuts are on screen; none if the cut list is empty
    EditSettings settings;
    std::optional<std::string> sourceFile;        ///< the file from which the loaded project was read, if any
    std::optional<std::string> lastExport;        ///< the last exported XML
    bool canReopen = false;                       ///< a previous project existed at the last check
    std::optional<EditSettings> restoredSettings; ///< the settings on screen after a restore, until the next change

    std::optional<std::string> error; ///< the alert's message
    std::string status;               ///< the line below the cut list; hidden if empty
    std::optional<std::string> sessionSaveError;

    std::string chosenPreset; ///< the id of the preset in the picker; empty for none
    std::string presetName;   ///< the name typed in the save sheet
    std::string presetNotice;
    int storedPresets = 0; ///< the number of changes to the stored list

    [[nodiscard]] const std::vector<Cut>& cuts() const;
    bool operator==(const WorkspaceState&) const = default;
};

/// Which parts of the state changed.
enum class Changed { settings, loaded, history, cuts, alerts, texts, presets, view, count };
using Changes = std::bitset<static_cast<std::size_t>(Changed::count)>;

/// Shows the user what is being done as long as the result exists.
using BusySign = std::function<std::shared_ptr<void>(const std::string& text)>;

/// What the controller needs from outside.
struct WorkspaceServicesInUse {
    Dialogs& dialogs;
    UserDefaults& defaults;
    SessionStore& sessions;
    SecurityScope& scope;
    WorkspaceServices& services;
    XMLInbox& inbox;
    MainThread mainThread;
    RandomNumbers randomNumbers = secureRandomNumbers();
    IdentifierSource identifiers = randomIdentifiers();
    std::function<Timestamp()> now = Timestamp::now;
    FileCalls& files = FileCalls::system();
    BusySign busy = [](const std::string&) { return nullptr; };
};

/// The main window's controller: the loaded project, the settings, the cut list, the history and every message. It does
/// not depend on a toolkit; a window or a test shows its state and calls its operations on the interface thread.
///
/// Every operation is an edit. When the outermost edit ends, settingsChanged runs once if the settings have changed,
/// all requested saves become one, and observers get one notice.
class ContentView {
public:
    explicit ContentView(WorkspaceServicesInUse services);
    ContentView(const ContentView&) = delete;
    ContentView& operator=(const ContentView&) = delete;
    ~ContentView() = default;

    [[nodiscard]] const WorkspaceState& state() const { return state_; }

    /// Changes the state. Throws what `change` throws, and then has changed nothing; if memory ran out, shows a message
    /// instead of throwing. An edit made inside a notice is postponed until the notice ends.
    void edit(const std::function<void(WorkspaceState&)>& change);

    /// Calls `notice` after each edit that changed something, with what changed.
    [[nodiscard]] Subscription observe(Observers<Changes>::Notice notice)
    {
        return observers_.observe(std::move(notice));
    }

    // Only `edit` throws. If any other operation is refused or fails, it shows an alert and changes nothing else.
    // Operations called inside a notice are postponed until the notice ends.

    // The start, projects and files
    /// Call this if a project was given at the start and will be opened later: the stored session is then not restored.
    void expectProject();
    /// Handles what has already arrived, or else restores the stored session. Only the first call restores.
    void windowAppeared();
    /// Loads a project from its document. Refuses anything but a project of one uncut multicam clip with two video
    /// angles.
    void importXML(const std::string& data);
    /// The same for a file or bundle. Refuses other kinds of files, and files that cannot be read.
    void openProjectFile(const std::string& location);
    /// Takes the drop and returns true if it is a single project file, which may still turn out to be unreadable.
    bool handleDroppedFiles(const std::vector<std::string>& locations);
    /// Asks for a file and opens it. Does nothing while a dialog is open, or if no file is chosen.
    void chooseProjectFile();
    /// Shows the previous session, and keeps the one on screen as the previous one. Refuses if there is none.
    void reopenPreviousSession();
    /// Tries again to save what could not be saved.
    void saveAgain();
    /// True while a session with edits is not saved: the one on screen, or one that an import has replaced.
    [[nodiscard]] bool holdsUnsaved() const;
    /// Between beginQuestion and endQuestion, projects that arrive wait, as they do while a dialog is open.
    void beginQuestion() { waiting_ = true; }
    void endQuestion();

    // Messages. Alerts that have not been seen wait behind the first, each text once and up to a limit; `error` is the
    // latest one alone.
    [[nodiscard]] const std::deque<std::string>& alerts() const { return alerts_; }
    /// Removes the first alert; does nothing if there is none.
    void dismissError();

    // Settings. Any value is accepted here; generating refuses invalid cameras and numbers.

    /// The previous main camera becomes an included camera if it is a video angle.
    void selectMainCamera(const std::string& id);
    enum class Inclusion { included, excluded };
    /// Accepts any id; only those of other video angles have an effect.
    void setCameraIncluded(const std::string& id, Inclusion inclusion);
    /// Sets one of the four bounds to `seconds`; the other bound of its pair follows.
    void setBound(double EditSettings::* bound, double seconds);
    /// Adds a fixed section of 30 seconds after the last one. Does nothing without a project. Refuses if there is no
    /// room.
    void addSection();
    /// Does nothing if the position is out of range.
    void removeSection(std::size_t position);

    // Undo. Each edit that changes settings is one step. Those of the project are forgotten when another one is shown.

    /// From here on, changes of the same setting are one step: a drag, or what is typed while a field has the focus.
    void beginAction() noexcept;
    /// From here on, each change is a step again.
    void endAction() noexcept;
    /// Takes the last step back. A changed setting gets its earlier value, and the cut list becomes empty; the other
    /// settings stay. Does nothing if there is no step or if it has a reason not to.
    void undo();
    /// The same for the step that was taken back last.
    void redo();
    struct NextStep {
        std::string_view name;
        std::optional<std::string> whyNot; ///< the reason why it cannot be taken; none if it can
    };
    /// What undo (`before`) or redo (`after`) would do; none if there is nothing. Steps that would change nothing now
    /// are passed over.
    [[nodiscard]] std::optional<NextStep> nextStep(UndoStep::Side side) const;

    // The history

    /// Generates and shows an edit, which replaces those after the current one. Does nothing without a project. Refuses
    /// what validateInputs and generateCuts refuse.
    void generateRoughEdit();
    /// Adds fixed sections with the name "Held" for cuts on screen, and generates an edit with them, all at once.
    /// `chosen` are positions in the cut list; opening, closing and fixed shots are left out. Does nothing if none is
    /// left. Refuses what generating refuses, and shots whose timecodes a section cannot have.
    void hold(const std::vector<std::size_t>& chosen);
    /// Removes the fixed sections that are chosen cuts, and generates an edit without them, as `hold` does.
    void release(const std::vector<std::size_t>& chosen);
    /// Shows the edit at this position and its settings. Does nothing if the position is out of range.
    void restoreRevision(std::int64_t position);
    /// Shows the previous edit, or the current one if settings have changed since. Does nothing at the first edit.
    void stepBack();
    /// Shows the next edit. Does nothing at the last one.
    void stepForward();

    // Presets. An operation that is refused leaves the stored list unchanged.

    [[nodiscard]] const PresetLibrary& presets() const { return presets_; }
    /// None if no preset is chosen, or if it no longer exists.
    [[nodiscard]] std::optional<EditPreset> chosenPreset() const { return presets_.preset(state_.chosenPreset); }
    /// Call this if another process has changed the stored list.
    void readPresets();
    /// Opens the save sheet.
    void beginSavePreset();
    enum class PresetSave { asNew, update };
    /// Saves the setup on screen, under the name in the save sheet or in the chosen preset. Does nothing for a blank
    /// name or without a chosen preset. Refuses a name that is already used, and a list that cannot be read or written.
    void savePreset(PresetSave kind);
    /// Applies a preset, as far as its cameras are found. Accepts any preset.
    void applyPreset(const EditPreset& preset);
    /// Deletes the chosen preset; does nothing without one. Refuses a list that cannot be read or written.
    void deletePreset();
    /// Keeps an unreadable list aside and begins an empty one; does nothing if the list can be read.
    void startNewPresetList();

    // The export

    /// Asks for a folder, writes the edit on screen and its record there, and passes it to Final Cut. Does nothing
    /// while a dialog is open, or if the cut list on screen is not the current edit's. Refuses what roughEditXML
    /// refuses.
    void exportRoughEdit();
    /// Saves the picture of the edit on screen as a new file. `decimalSign` is the user's.
    void savePicture(const std::string& decimalSign = ".");

    // Derived values

    /// The angles with video, in project order; none without a project.
    [[nodiscard]] std::vector<ImportedAngle> videoAngles() const;
    /// The ids of the included other cameras, in project order; none without a project.
    [[nodiscard]] std::vector<std::string> includedOtherCameras() const;
    /// The angle's name with its camera names, if any, in brackets; the id itself if the angle is unknown.
    [[nodiscard]] std::string angleLabel(std::string_view id) const;
    /// None without a current revision.
    [[nodiscard]] std::optional<bool> settingsMatchRevision() const;

private:
    void changeAndSave(const std::function<void(WorkspaceState&)>& change, WorkspaceState& before);
    void endEdit() noexcept;
    void settle(const WorkspaceState& before);
    [[nodiscard]] UndoSteps::Update stepUpdate(const WorkspaceState& before, std::string_view setting);
    void settingsChanged(WorkspaceState& state);
    void notify(const WorkspaceState& before);
    void fail(const std::string& message);

    [[nodiscard]] bool generateWith(EditSettings settings);
    void generateInPlace(std::string_view action, EditSettings settings);

    void react();
    void show(std::shared_ptr<const LoadedDocument> loaded) noexcept;
    [[nodiscard]] SessionKeeper::OnScreen onScreen() const;
    /// Runs a dialog or handles a delivery. Deliveries that arrive meanwhile wait.
    template <class Work>
    auto whileWaiting(const Work& work)
    {
        struct Waiting {
            explicit Waiting(bool& flag) : waiting(flag) { waiting = true; }
            Waiting(const Waiting&) = delete;
            Waiting& operator=(const Waiting&) = delete;
            ~Waiting() { waiting = false; }
            bool& waiting;
        };
        const Waiting guard(waiting_);
        return work();
    }

    void saveSession();
    void restoreSession();
    /// A session, with everything else that is needed to show it.
    struct StoredSession {
        SessionKeeper::Restored session;
        EditSettings restoredSettings;
        std::string status;
    };
    [[nodiscard]] static StoredSession forScreen(SessionKeeper::Restored session);
    void show(StoredSession&& stored) noexcept;
    void lookForPreviousSession();

    [[nodiscard]] bool isTaken(const UndoStep& step, UndoStep::Side side) const;
    [[nodiscard]] std::size_t stepsToTake(UndoStep::Side side) const;
    void takeStep(UndoStep::Side side);
    [[nodiscard]] bool take(const UndoStep& step, UndoStep::Side side);
    [[nodiscard]] bool bringBack(const EditPreset& deleted);
    [[nodiscard]] bool deleteAgain(const EditPreset& preset);

    [[nodiscard]] std::vector<EditPreset> currentPresets();
    [[nodiscard]] std::vector<EditPreset> presetsOrCloseSheet();
    void storePresets(std::vector<EditPreset> presets);

    void exportTo(
        const std::string& folder, const std::shared_ptr<const std::string>& xml, const std::string& record,
        const std::string& projectName);
    void exportFinished(const std::optional<ServiceError>& error, const std::string& xmlURL);

    WorkspaceServicesInUse services_;
    WorkspaceState state_;
    PresetLibrary presets_;
    SessionKeeper keeper_;
    std::deque<std::string> alerts_;
    std::size_t alertsNoticed_ = 0;
    std::size_t lastAlertStandsFor_ = 1; ///< how many messages the last alert stands for
    int editDepth_ = 0;
    bool saveWanted_ = false;
    UndoSteps steps_;
    std::string_view actionName_;                 ///< of the running edit, if it is an action of its own; a literal
    std::optional<UndoSteps::Update> stepUpdate_; ///< of the running edit, unless its changed settings decide
    bool actionIsOpen_ = false;
    bool notifying_ = false;
    bool waiting_ = false; ///< a dialog is open or a delivery is being handled: other deliveries wait
    std::deque<std::function<void(WorkspaceState&)>> waitingEdits_;
    Observers<Changes> observers_;
    Subscription inboxSubscription_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true); ///< for reports that may arrive too late
};

} // namespace corvane
