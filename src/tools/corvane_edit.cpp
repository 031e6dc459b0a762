// corvane-edit: an exported project in, a rough edit out, without the window.
#include "base/error.h"
#include "platform/user_defaults.h"
#include "session/preset_library.h"
#include "tools/command_line.h"
#include "tools/edit_job.h"
#include "tools/json_report.h"
#include "tools/text_report.h"

#include <iostream>
#include <optional>

using namespace corvane;

namespace {

constexpr CommandSyntax syntax = {
    .name = "corvane-edit",
    .operands = "PROJECT FOLDER [PRESET]",
    .purpose = "Makes a rough edit of the multicam project PROJECT and writes it, with its record, into FOLDER.",
    .fewest = 2,
    .most = 3};

EditPreset savedPreset(const std::string& name)
{
    FileUserDefaults defaults(FileUserDefaults::usualFolder());
    return presetNamed(PresetLibrary(defaults).current(), name);
}

/// Reports results as they become known. Text is printed at once, so that a refusal comes after the facts that explain
/// it; JSON is printed at the end.
struct Progress {
    ProjectFacts facts;
    std::optional<LoadedFile> file;
    std::optional<ProjectCheck> check;
    std::optional<DrawnEdit> edit;
};

void makeEdit(const CommandLine& line, Progress& progress)
{
    ProjectFacts& facts = progress.facts;
    LoadedFile& file = progress.file.emplace(loadFile(line.operands[0]));
    facts.file = &file;
    if (!line.json)
        printProject(std::cout, file);
    if (line.operands.size() > 2)
        applyWholePreset(savedPreset(line.operands[2]), file);
    facts.check = &progress.check.emplace(checkProject(file.project, file.engine, file.settings));
    if (!line.json) {
        printCheck(std::cout, file, *progress.check);
        printTrial(std::cout, file);
    }
    const DrawnEdit& edit = progress.edit.emplace(drawEdit(file));
    facts.cuts = &edit.cuts;
    if (!line.json) {
        printUsage(std::cout, file, edit.cuts);
        printCarryOver(std::cout, file.engine);
    }
    facts.files = writeEdit(line.operands[1], file, edit);
    if (!line.json)
        printFiles(std::cout, *facts.files);
}

ExitStatus run(const CommandLine& line)
{
    Progress progress;
    progress.facts.path = line.operands[0];
    progress.facts.refusal = failureOf("make an edit", [&] { makeEdit(line, progress); });
    if (progress.facts.refusal)
        complain(syntax, shownPath(line.operands[0]), *progress.facts.refusal);
    if (line.json)
        std::cout << jsonReport(progress.facts) << "\n";
    return progress.facts.refusal ? ExitStatus::failed : ExitStatus::done;
}

} // namespace

int main(int argc, char** argv)
{
    return runCommand(syntax, {argv, static_cast<std::size_t>(argc)}, CORVANE_VERSION, run);
}
