// corvane-check: says whether projects can be cut, before anyone opens them.
#include "base/error.h"
#include "tools/command_line.h"
#include "tools/json_report.h"
#include "tools/text_report.h"

#include <iostream>
#include <limits>
#include <optional>

using namespace corvane;

namespace {

constexpr CommandSyntax syntax = {
    .name = "corvane-check",
    .operands = "PROJECT…",
    .purpose = "Says whether each multicam project can be cut over its whole length.",
    .fewest = 1,
    .most = std::numeric_limits<std::size_t>::max()};

/// Why the project cannot be cut and exported over its whole length; none if it can.
std::optional<std::string> verdict(const LoadedFile& file, const ProjectCheck& check)
{
    if (!check.usable || !check.usable->wholeProject) {
        const std::string usable = check.usable ? usableLine(file.engine, file.settings, *check.usable) : "";
        return "It cannot be cut over its whole length." + (usable.empty() ? "" : " " + usable + ".");
    }
    if (!check.refusals.empty())
        return check.refusals.front();
    return std::nullopt;
}

/// True if the project can be cut over its whole length.
bool checkFile(const std::string& path, bool json)
{
    ProjectFacts facts;
    facts.path = path;
    std::optional<LoadedFile> file;
    std::optional<ProjectCheck> check;
    facts.refusal = failureOf("check a project", [&] {
        facts.file = &file.emplace(loadFile(path));
        facts.check = &check.emplace(checkProject(file->project, file->engine, file->settings));
    });
    if (!facts.refusal)
        facts.refusal = verdict(*file, *check);
    if (json) {
        std::cout << jsonReport(facts) << "\n";
    } else if (check) {
        printProject(std::cout, *file);
        printCheck(std::cout, *file, *check);
        std::cout << "\n";
    }
    std::cout.flush();
    if (facts.refusal)
        complain(syntax, shownPath(path), *facts.refusal);
    return !facts.refusal;
}

ExitStatus run(const CommandLine& line)
{
    bool all = true;
    for (const std::string& path : line.operands)
        all = checkFile(path, line.json) && all;
    return all ? ExitStatus::done : ExitStatus::failed;
}

} // namespace

int main(int argc, char** argv)
{
    return runCommand(syntax, {argv, static_cast<std::size_t>(argc)}, CORVANE_VERSION, run);
}
