#include "tools/command_line.h"

#include "base/error.h"
#include "base/text.h"
#include "platform/files.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>
#include <optional>

namespace corvane {

namespace {

std::string usage(const CommandSyntax& syntax)
{
    return "Usage: " + std::string(syntax.name) + " [--json] " + std::string(syntax.operands);
}

/// None for wrong usage. Options come first; "--" ends them, for a file whose name begins like an option.
std::optional<CommandLine> commandLine(const CommandSyntax& syntax, std::span<char*> arguments)
{
    CommandLine line;
    auto next = arguments.begin();
    for (; next != arguments.end() && std::string_view(*next).starts_with("--"); ++next) {
        const std::string_view option = *next;
        if (option == "--") {
            ++next;
            break;
        }
        if (option != "--json")
            return std::nullopt;
        line.json = true;
    }
    line.operands.assign(next, arguments.end());
    const bool empty = std::ranges::any_of(line.operands, &std::string::empty);
    if (empty || line.operands.size() < syntax.fewest || line.operands.size() > syntax.most)
        return std::nullopt;
    return line;
}

/// Prints each report in one piece, so that processes that share their output, for example under xargs -P, do not mix
/// their reports.
void keepReportsTogether()
{
    constexpr std::size_t bufferSize = std::size_t{16} << 20U;
    static const std::unique_ptr<char[]> buffer(new char[bufferSize]); // only pages in use take memory
    (void)std::setvbuf(stdout, buffer.get(), _IOFBF, bufferSize);
}

ExitStatus runAndReport(
    const CommandSyntax& syntax, const CommandLine& line, const std::function<ExitStatus(const CommandLine&)>& run)
{
    ExitStatus status = ExitStatus::failed;
    if (const auto failure = failureOf("do this", [&] { status = run(line); }))
        std::cerr << syntax.name << ": " << shownText(*failure) << "\n";
    if (!std::cout.flush()) {
        std::cerr << syntax.name << ": The report could not be written to standard output.\n";
        return ExitStatus::failed;
    }
    return status;
}

} // namespace

int runCommand(
    const CommandSyntax& syntax, std::span<char*> arguments, std::string_view version,
    const std::function<ExitStatus(const CommandLine&)>& run)
{
    surviveFileSizeLimit();
    keepReportsTogether();
    const std::span<char*> given = arguments.empty() ? arguments : arguments.subspan(1);
    const std::string_view only = given.size() == 1 ? given.front() : "";
    if (only == "--help") {
        std::cout << usage(syntax) << "\n" << syntax.purpose << " See " << syntax.name << "(1).\n";
        return 0;
    }
    if (only == "--version") {
        std::cout << syntax.name << " " << version << "\n";
        return 0;
    }
    const auto line = commandLine(syntax, given);
    if (!line) {
        std::cerr << usage(syntax) << "\n";
        return static_cast<int>(ExitStatus::wrongUse);
    }
    return static_cast<int>(runAndReport(syntax, *line, run));
}

void complain(const CommandSyntax& syntax, std::string_view path, std::string_view sentence)
{
    std::cout.flush();
    std::cerr << syntax.name << ": " << shownText(path) << ": " << shownText(sentence) << "\n";
}

} // namespace corvane
