#include "bench/fresh_process.h"

#include "base/numbers.h"
#include "bench/stopwatch.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <vector>

namespace corvane::bench {

namespace {

void require(bool condition, const char* otherwise)
{
    if (!condition)
        throw std::runtime_error(otherwise);
}

class Pipe {
public:
    Pipe() { require(pipe2(ends_.data(), O_CLOEXEC) == 0, "No pipe can be opened."); }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe()
    {
        closeWriting();
        close(ends_[0]);
    }

    [[nodiscard]] int writing() const { return ends_[1]; }

    /// Everything that arrives until the other side closes.
    [[nodiscard]] std::string readAll()
    {
        closeWriting();
        std::string text;
        std::array<char, 256> buffer{};
        for (ssize_t got = 0; (got = read(ends_[0], buffer.data(), buffer.size())) > 0;)
            text.append(buffer.data(), static_cast<std::size_t>(got));
        return text;
    }

private:
    void closeWriting()
    {
        if (ends_[1] >= 0)
            close(ends_[1]);
        ends_[1] = -1;
    }

    std::array<int, 2> ends_{-1, -1};
};

class FileActions {
public:
    explicit FileActions(int output)
    {
        require(posix_spawn_file_actions_init(&actions_) == 0, "No process can be prepared.");
        posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
    }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }

    [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

/// What a program printed, and when it closed its output.
struct Output {
    std::string text;
    double seconds = 0;
};

/// The first argument is the program to run.
Output outputOf(std::vector<std::string> arguments)
{
    const Stopwatch watch;
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    Pipe output;
    const FileActions actions(output.writing());
    pid_t child = 0;
    require(
        posix_spawn(&child, arguments.front().c_str(), actions.get(), nullptr, pointers.data(), environ) == 0,
        "A process of its own cannot be started.");
    Output printed = {output.readAll(), watch.seconds()};
    int status = 0;
    require(waitpid(child, &status, 0) == child && status == 0, "A process of its own failed.");
    return printed;
}

} // namespace

double secondsToFirstWindow()
{
    const Output output = outputOf({CORVANE_START_ONCE});
    require(output.text == "painted\n", "The program has painted no window.");
    return output.seconds;
}

double secondsInFreshProcess(FreshWork work, const std::string& file)
{
    std::string text = outputOf({CORVANE_IMPORT_ONCE, work == FreshWork::parse ? "parse" : "import", file}).text;
    if (!text.empty() && text.back() == '\n')
        text.pop_back();
    const auto nanoseconds = readInteger(text);
    if (!nanoseconds)
        throw std::runtime_error("The import's own process printed no time.");
    return static_cast<double>(*nanoseconds) / 1e9;
}

} // namespace corvane::bench
