#include "tools/edit_job.h"

#include "analysis/names.h"
#include "base/error.h"
#include "base/text.h"
#include "engine/generation_inputs.h"
#include "export/rough_edit_writer.h"
#include "export/settings_record.h"
#include "export/source_items.h"
#include "import/final_cut_import_error.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

std::string quoted(std::string_view name)
{
    return "“" + std::string(name) + "”";
}

std::string joinedQuoted(std::vector<std::string> names)
{
    for (std::string& name : names)
        name = quoted(name);
    return joinedNames(names);
}

/// True if a fade is too long for its shot, and the length of that shot was chosen at random.
bool anotherDrawMayFit(const LoadedFile& file, const std::vector<Cut>& cuts)
{
    bool anyTooLong = false;
    bool allDrawn = true;
    forEachAudioFade(file.engine, file.settings.audio, [&](xml::Element fade) {
        const bool in = fade.named("fadeIn");
        const double seconds = fadeLength(fade);
        if (seconds <= file.engine.seconds((in ? cuts.front() : cuts.back()).duration))
            return;
        anyTooLong = true;
        const bool placed = in ? file.settings.openingEnabled : file.settings.closingEnabled;
        allDrawn = allDrawn && !placed && seconds <= file.engine.seconds(file.engine.length);
    });
    return anyTooLong && allDrawn;
}

} // namespace

EditPreset presetNamed(const std::vector<EditPreset>& saved, std::string_view name)
{
    const auto found =
        std::ranges::find_if(saved, [name](const EditPreset& preset) { return sameName(preset.name, name); });
    if (found != saved.end())
        return *found;
    std::vector<std::string> names(saved.size());
    std::ranges::transform(saved, names.begin(), &EditPreset::name);
    throw PlatformError(
        "There is no saved preset " + quoted(name) + ". " +
        (names.empty() ? "None has been saved in the window yet." : "Saved are " + joinedQuoted(names) + "."));
}

void applyWholePreset(const EditPreset& preset, LoadedFile& file)
{
    const auto missing = camerasNotIdentified(preset, file.project, file.engine);
    if (!missing.empty())
        throw PlatformError(
            "The preset " + quoted(preset.name) + " cannot be used here: " + joinedQuoted(missing) +
            (missing.size() == 1 ? " must be the name of just one angle."
                                 : " must each be the name of just one angle."));
    AppliedPreset applied = appliedPreset(preset, file.project, file.engine, file.settings);
    if (!applied.tookCameras)
        throw PlatformError(
            "The preset " + quoted(preset.name) +
            " does not say which cameras take part. Update it in the window while a project is open.");
    file.settings = std::move(applied.settings);
}

DrawnEdit drawEdit(const LoadedFile& file)
{
    const bool refusedAnyway = !refusedSources(file.engine, file.settings.audio, 1).empty();
    constexpr int mostDraws = 20;
    constexpr std::size_t mostCuts = 1'000'000; // in all; a project that long is not waited for twenty times
    std::size_t cuts = 0;
    for (int draws = 1;; ++draws) {
        DrawnEdit edit = {generateFromSettings(file.project, file.engine, file.settings), {}};
        try {
            edit.xml = roughEditXML(file.engine, edit.cuts, file.settings.audio);
            return edit;
        } catch (const FinalCutImportError&) {
            cuts += edit.cuts.size();
            if (refusedAnyway || draws == mostDraws || cuts > mostCuts || !anotherDrawMayFit(file, edit.cuts))
                throw;
        }
    }
}

ExportFiles writeEdit(const std::string& folder, const LoadedFile& file, const DrawnEdit& edit)
{
    const EditRevision revision = {randomIdentifiers()(), Timestamp::now(), file.settings, edit.cuts};
    const std::string record = settingsRecordText(file.project, file.engine, revision);
    return writeExportFiles(folder, edit.xml, record, file.project.name);
}

} // namespace corvane
