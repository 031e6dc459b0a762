#pragma once

#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Exit statuses that every command has; a shell script may rely on them.
enum class ExitStatus {
    done = 0,
    failed = 1,   ///< nothing was written, or not everything; or a project cannot be cut over its whole length
    wrongUse = 2, ///< the arguments make no sense
};

/// How a command is called.
struct CommandSyntax {
    std::string_view name;     ///< "corvane-edit"
    std::string_view operands; ///< "PROJECT FOLDER [PRESET]"
    std::string_view purpose;  ///< a sentence
    std::size_t fewest = 1;    ///< operands
    std::size_t most = 1;
};

struct CommandLine {
    bool json = false; ///< facts for machines, one document per project and line
    std::vector<std::string> operands;
};

/// Runs a command. `--help` and `--version` are answered here, wrong use is refused here with one line that shows the
/// right one. What `run` throws is told in a sentence on standard error, as is a report that could not be written.
[[nodiscard]] int runCommand(
    const CommandSyntax& syntax, std::span<char*> arguments, std::string_view version,
    const std::function<ExitStatus(const CommandLine&)>& run);

/// "corvane-edit: Sunday.fcpxml: …" on standard error, as a terminal can show it, behind what is on standard output so
/// far. `path` is the project's.
void complain(const CommandSyntax& syntax, std::string_view path, std::string_view sentence);

} // namespace corvane
