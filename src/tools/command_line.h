#pragma once

#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The exit statuses of every command, on which scripts can rely.
enum class ExitStatus {
    done = 0,
    failed = 1,   ///< something was not written, or a project cannot be cut over its whole length
    wrongUse = 2, ///< the arguments are invalid
};

/// How a command is used.
struct CommandSyntax {
    std::string_view name;     ///< "corvane-edit"
    std::string_view operands; ///< "PROJECT FOLDER [PRESET]"
    std::string_view purpose;  ///< one sentence
    std::size_t fewest = 1;    ///< the number of operands
    std::size_t most = 1;
};

struct CommandLine {
    bool json = false; ///< reports as JSON, one document per project, each on one line
    std::vector<std::string> operands;
};

/// Runs a command. Handles `--help` and `--version`, and refuses wrong usage with a line that shows the right usage.
/// Prints what `run` throws, or that the report could not be written, as a sentence on standard error.
[[nodiscard]] int runCommand(
    const CommandSyntax& syntax, std::span<char*> arguments, std::string_view version,
    const std::function<ExitStatus(const CommandLine&)>& run);

/// Prints "corvane-edit: Sunday.fcpxml: …" on standard error, safe for a terminal, after flushing standard output.
/// `path` is the project's.
void complain(const CommandSyntax& syntax, std::string_view path, std::string_view sentence);

} // namespace corvane
