#include "base/base64.h"
#include "base/error.h"
#include "import/project_loading.h"
#include "intake/project_file.h"
#include "session/starting_settings.h"
#include "workspace/content_view.h"

#include <memory>

namespace corvane {

void ContentView::importXML(const std::string& data)
{
    if (notifying_) {
        waitingEdits_.emplace_back([this, data](WorkspaceState&) { importXML(data); });
        return;
    }
    edit([this, &data](WorkspaceState& state) {
        const auto sign = services_.busy("Reading the project…");
        std::shared_ptr<LoadedDocument> loaded;
        EditSettings settings;
        const auto failure = failureOf("import this project", [&] {
            auto [imported, engine] = loadProject(data);
            settings = startingSettings(imported, engine, state.settings);
            loaded = std::make_shared<LoadedDocument>(
                LoadedDocument{base64Encoded(data), std::move(imported), std::move(engine)});
        });
        if (failure) {
            fail(*failure);
            return;
        }
        keeper_.keepReplaced(onScreen());
        show(std::move(loaded));
        state.history = {};
        state.chosenPreset.clear();
        state.presetNotice.clear();
        state.settings = std::move(settings);
        state.preview.reset();
        state.status.clear();
        lookForPreviousSession();
        saveWanted_ = true;
    });
}

void ContentView::openProjectFile(const std::string& location)
{
    edit([this, location](WorkspaceState& state) {
        const ProjectFileContent file = readProjectFile(location, services_.scope);
        if (file.error) {
            fail(*file.error);
            return;
        }
        const auto before = state.loaded;
        importXML(file.bytes);
        if (state.loaded == before)
            return;
        state.sourceFile = location;
        services_.dialogs.rememberProject(location);
    });
}

bool ContentView::handleDroppedFiles(const std::vector<std::string>& locations)
{
    const bool isFile = locations.size() == 1 && locations.front().starts_with('/');
    const bool isProject = isFile && projectFileKind(locations.front());
    edit([=, this](WorkspaceState&) {
        if (!isFile)
            fail("Drop one Final Cut XML file or bundle at a time.");
        else if (!isProject)
            fail(std::string(chooseProjectFileText));
        else
            openProjectFile(locations.front());
    });
    return isProject;
}

void ContentView::chooseProjectFile()
{
    if (waiting_)
        return; // a dialog is already open
    const auto chosen =
        whileWaiting([this] { return services_.dialogs.chooseProject(std::string(chooseProjectFileText)); });
    if (chosen)
        openProjectFile(*chosen);
    react();
}

void ContentView::endQuestion()
{
    waiting_ = false;
    react();
}

/// Handles what has arrived in the inbox. A message is shown at once; a project waits while a dialog is open.
void ContentView::react()
{
    XMLInbox& inbox = services_.inbox;
    if (const auto message = inbox.importError()) {
        edit([this, message](WorkspaceState&) { fail(*message); });
        inbox.setImportError(std::nullopt);
    }
    while (!waiting_ && (inbox.xmlData() || inbox.url())) {
        whileWaiting([this, &inbox] {
            if (inbox.xmlData()) {
                const auto data = std::make_shared<const std::string>(inbox.takeXMLData());
                edit([this, data](WorkspaceState& state) {
                    state.didRestore = true;
                    importXML(*data);
                });
                inbox.setXMLData(std::nullopt);
            }
            if (const auto url = inbox.url()) {
                edit([this, url](WorkspaceState& state) {
                    state.didRestore = true;
                    openProjectFile(*url);
                });
                inbox.setURL(std::nullopt);
            }
        });
    }
}

} // namespace corvane
