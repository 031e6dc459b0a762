#include "export/export_files.h"

#include "base/error.h"
#include "base/text.h"
#include "import/final_cut_import_error.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr int mostExports = 10'000;
constexpr std::string_view xmlExtension = ".fcpxml";
constexpr std::string_view settingsExtension = ".settings.txt";

std::string nameBase(std::string_view projectName, std::size_t longestName)
{
    std::string name(projectName);
    std::ranges::replace_if(name, [](char c) { return c == '/' || c == ':' || c == '\\'; }, '_');
    constexpr std::size_t mostCharacters = 100;
    constexpr std::string_view suffix = " Corvane";
    const std::size_t rest = suffix.size() + std::string_view(" 10000").size() + settingsExtension.size();
    std::string_view kept = firstCharacters(name, mostCharacters);
    kept = charactersWithin(kept, longestName > rest ? longestName - rest : 0);
    return (kept.empty() ? "Project" : std::string(kept)).append(suffix);
}

} // namespace

ExportNames exportNames(
    std::string_view projectName, std::size_t longestName, const std::function<bool(const std::string&)>& isTaken)
{
    const std::string base = nameBase(projectName, longestName);
    for (int n = 1; n <= mostExports; ++n) {
        const std::string stem = n == 1 ? base : base + " " + std::to_string(n);
        ExportNames names{stem + std::string(xmlExtension), stem + std::string(settingsExtension)};
        if (!isTaken(names.xml) && !isTaken(names.settings))
            return names;
    }
    throw FinalCutImportError::invalid("Choose another folder or clear space for a new export name.");
}

ExportFiles writeExportFiles(
    const std::string& folder, std::string_view xmlBytes, std::string_view recordText, std::string_view projectName,
    FileCalls& calls)
{
    const ExportNames names = exportNames(projectName, longestNameIn(folder), [&](const std::string& name) {
        return somethingNamed(pathIn(folder, name));
    });
    ExportFiles files{pathIn(folder, names.xml), pathIn(folder, names.settings)};
    writeNewFile(files.xmlURL, xmlBytes, calls);
    if (const auto failure = failureOf("write it", [&] { writeNewFile(files.settingsURL, recordText, calls); }))
        throw FinalCutImportError::invalid(
            "The XML was saved as " + names.xml + ", but the settings record could not be saved: " + *failure);
    return files;
}

} // namespace corvane
