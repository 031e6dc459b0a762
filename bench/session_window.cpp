#include "bench/session_window.h"

#include "base/base64.h"
#include "bench/edit_document.h"
#include "bench/repeatable_numbers.h"
#include "import/project_loading.h"
#include "session/starting_settings.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <vector>

namespace corvane::bench {

namespace {

/// Cuts of about the same length among all cameras; the generated project's cameras have footage throughout.
std::vector<Cut> tilingCuts(const LoadedProject& project, std::size_t count, RepeatableNumbers& numbers)
{
    const IdentifierSource identifiers = randomIdentifiers();
    std::vector<std::string> cameras;
    for (const auto& [camera, stretches] : project.engine.coverage) {
        if (!stretches.empty())
            cameras.push_back(camera);
    }
    const Frames share = project.engine.length / static_cast<Frames>(count);
    std::vector<Cut> cuts(count);
    Frames start = 0;
    for (std::size_t n = 0; n < count; ++n) {
        const bool isLast = n + 1 == count;
        const Frames end =
            isLast ? project.engine.length : static_cast<Frames>(n + 1) * share - numbers.below(share / 2);
        cuts[n] = {identifiers(), cameras[n % cameras.size()], start, end - start};
        start = end;
    }
    return cuts;
}

void require(bool condition, const char* otherwise)
{
    if (!condition)
        throw std::runtime_error(otherwise);
}

} // namespace

LargeSession largeSession(const SessionSize& size)
{
    constexpr std::size_t few = 1000;
    const std::size_t bytesOfFew = editDocument(few).bytes.size();
    LargeSession session;
    session.sourceXML = editDocument(size.documentBytes * few / bytesOfFew).bytes;
    const LoadedProject project = loadProject(session.sourceXML);
    session.settings = startingSettings(project.imported, project.engine);
    RepeatableNumbers numbers(4);
    for (std::size_t n = 0; n < size.revisions; ++n) {
        session.settings.averageShot = 4 + static_cast<double>(n % 160) / 10;
        session.history.append(std::make_shared<const EditRevision>(EditRevision{
            randomIdentifiers()(), Timestamp::now(), session.settings, tilingCuts(project, size.cuts, numbers)}));
    }
    return session;
}

std::string storedSession(const SessionSize& size)
{
    const std::string folder = pathIn(CORVANE_BENCH_SESSIONS, std::to_string(size.cuts));
    makeFolders(folder);
    const LargeSession session = largeSession(size);
    SessionEncoder encoder;
    const std::string document = base64Encoded(session.sourceXML);
    replaceFile(pathIn(folder, "session-v1.json"), encoder.encode(document, session.settings, session.history));
    return folder;
}

SessionWindow::SessionWindow(const std::string& folder)
    : defaults_(folder),
      sessions_([folder] { return folder; }),
      view_(WorkspaceServicesInUse{
          .dialogs = dialogs_,
          .defaults = defaults_,
          .sessions = sessions_,
          .scope = SecurityScope::system(),
          .services = services_,
          .inbox = inbox_,
          .mainThread = [](const std::function<void()>& work) { work(); }})
{
    dialogs_.folder = folder;
}

void SessionWindow::appear()
{
    view_.windowAppeared();
    requireNoComplaint();
    require(state().loaded != nullptr, "The stored session was not restored.");
}

void SessionWindow::setMainShare(double percent)
{
    view_.edit([percent](WorkspaceState& state) { state.settings.mainShare = percent; });
    requireNoComplaint();
}

void SessionWindow::requireNoComplaint() const
{
    if (state().error)
        throw std::runtime_error(*state().error);
    if (state().sessionSaveError)
        throw std::runtime_error(*state().sessionSaveError);
}

void writeBare(const std::string& folder, const std::string& name, std::string_view bytes)
{
    const std::string path = folder + "/" + name;
    const std::string temporary = path + ".new";
    // NOLINTBEGIN(cppcoreguidelines-pro-type-vararg)
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // NOLINTEND(cppcoreguidelines-pro-type-vararg)
    const bool isWritten =
        file >= 0 && opened >= 0 && ::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
        ::fsync(file) == 0 && std::rename(temporary.c_str(), path.c_str()) == 0 && ::fsync(opened) == 0;
    ::close(file);
    ::close(opened);
    require(isWritten, "The bare write failed.");
}

} // namespace corvane::bench
