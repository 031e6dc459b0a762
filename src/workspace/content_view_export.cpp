#include "analysis/edit_picture.h"
#include "base/error.h"
#include "base/text.h"
#include "export/export_files.h"
#include "export/hand_off.h"
#include "export/rough_edit_writer.h"
#include "export/settings_record.h"
#include "platform/application_support.h"
#include "workspace/content_view.h"

#include <filesystem>
#include <memory>
#include <string_view>

namespace corvane {

namespace {

/// The folder that contains the file or bundle.
std::string folderBeside(std::string_view location)
{
    while (location.size() > 1 && location.back() == '/')
        location.remove_suffix(1);
    return std::filesystem::path(location).parent_path().string();
}

/// "Sermon Corvane.html", after the same rules as an export's names.
std::string pictureName(const std::string& projectName)
{
    constexpr std::size_t longestName = 255;
    const std::string name = exportNames(projectName, longestName, [](const std::string&) { return false; }).xml;
    return std::filesystem::path(name).replace_extension(".html").string();
}

std::string withPageExtension(const std::string& path)
{
    const std::string extension = lowerCased(std::filesystem::path(path).extension().string());
    return extension == ".html" || extension == ".htm" ? path : path + ".html";
}

} // namespace

void ContentView::exportRoughEdit()
{
    const SharedRevision revision = state_.history.currentRevision();
    const std::shared_ptr<const LoadedDocument> loaded = state_.loaded;
    if (waiting_ || !loaded || !revision || revision->settings != state_.settings || state_.cuts().empty())
        return;
    // Everything that will be written is built before asking for a folder, so that nothing that happens meanwhile
    // changes it.
    const auto failure = failureOf("export the project", [&] {
        const auto xml = std::make_shared<const std::string>(
            roughEditXML(loaded->engine, revision->cuts, revision->settings.audio, services_.identifiers));
        const std::string record = settingsRecordText(loaded->imported, loaded->engine, *revision);
        whileWaiting([&] {
            const auto folder = services_.dialogs.chooseFolder(
                "Export",
                "Choose a folder for the XML and settings record. The XML will then open in Final Cut Pro. "
                "Existing exports will be kept.",
                state_.sourceFile ? folderBeside(*state_.sourceFile) : "");
            if (folder)
                exportTo(*folder, xml, record, loaded->imported.name);
        });
    });
    if (failure)
        edit([this, failure](WorkspaceState&) { fail(*failure); });
    else
        react();
}

void ContentView::savePicture(const std::string& decimalSign)
{
    const SharedRevision revision = state_.preview;
    const std::shared_ptr<const LoadedDocument> loaded = state_.loaded;
    if (waiting_ || !loaded || !revision)
        return;
    const auto failure = failureOf("save the picture", [&] {
        const std::string page = editPicture(loaded->imported, loaded->engine, *revision, decimalSign);
        whileWaiting([&] {
            const auto chosen = services_.dialogs.chooseNewFile(
                "Save Picture of Edit", "The picture is a page that any browser shows and prints.",
                pictureName(loaded->imported.name));
            if (!chosen)
                return;
            const std::string path = withPageExtension(*chosen);
            const SecurityScopedAccess access(services_.scope, path);
            if (somethingNamed(path))
                throw PlatformError(
                    "There is already a file named " + std::string(lastComponent(path)) +
                    " in this folder. Choose another name: the picture never replaces a file.");
            writeNewFile(path, page, services_.files);
            services_.dialogs.rememberNewFile(path);
            const std::string folder = shortPath(folderOf(path));
            edit([&](WorkspaceState& state) {
                state.status = "Saved " + std::string(lastComponent(path)) + " in " +
                               (folder == "~" ? "your home folder" : folder) + ".";
            });
        });
    });
    if (failure) {
        edit([this, &failure](WorkspaceState&) { fail(*failure); });
        return;
    }
    react();
}

void ContentView::exportTo(
    const std::string& folder, const std::shared_ptr<const std::string>& xml, const std::string& record,
    const std::string& projectName)
{
    edit([this, folder, xml, record, projectName](WorkspaceState& state) {
        const SecurityScopedAccess access(services_.scope, folder);
        const auto failure = failureOf("export the project", [&] {
            const ExportFiles files = writeExportFiles(folder, *xml, record, projectName, services_.files);
            state.status = "Saved " + std::string(lastComponent(files.xmlURL)) + " and " +
                           std::string(lastComponent(files.settingsURL)) + ". Opening Final Cut Pro…";
            state.lastExport = files.xmlURL;
            services_.dialogs.rememberFolder(folder);
            const std::weak_ptr<const bool> alive = alive_;
            openInFinalCut(
                files.xmlURL, services_.services, services_.scope, services_.mainThread,
                [this, alive, xmlURL = files.xmlURL](const std::optional<ServiceError>& error) {
                    if (!alive.expired()) // the window may have closed meanwhile
                        exportFinished(error, xmlURL);
                });
        });
        if (failure)
            fail(*failure);
    });
}

void ContentView::exportFinished(const std::optional<ServiceError>& error, const std::string& xmlURL)
{
    edit([this, error, xmlURL](WorkspaceState& state) {
        if (!error) {
            state.status = "XML and settings saved. Sent the XML to Final Cut Pro for import.";
            return;
        }
        state.status = "XML and settings were saved. Final Cut Pro could not be opened.";
        fail(std::string(exportSaved) + xmlURL + ". Open it in Final Cut manually. " + error->description);
    });
}

} // namespace corvane
