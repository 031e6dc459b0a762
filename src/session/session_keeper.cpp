#include "session/session_keeper.h"

#include "base/error.h"
#include "import/project_loading.h"
#include "session/saved_session.h"

#include <utility>

namespace corvane {

namespace {

const std::string previousNotKept = "The previous session could not be kept: ";

std::string joined(const std::vector<std::string_view>& parts)
{
    std::string whole;
    for (const std::string_view part : parts)
        whole += part;
    return whole;
}

} // namespace

SessionKeeper::SessionKeeper(SessionStore& store, Reading reading) : store_(store), reading_(std::move(reading)) {}

/// Reads and validates a session. Sets `isWhole` to false if the bytes contain more than a save would write.
SessionKeeper::Restored SessionKeeper::read(std::string bytes, bool& isWhole) const
{
    const auto sign = reading_();
    SavedEditSession session = decodeSession(std::exchange(bytes, {})); // frees the bytes before the project is read
    auto [imported, engine] = loadProject(session.sourceXML);
    validateSession(session, engine);
    isWhole = !session.holdsMore;
    return {
        std::make_shared<LoadedDocument>(
            LoadedDocument{std::move(session.encodedXML), std::move(imported), std::move(engine)}),
        std::move(session.settings), std::move(session.history)};
}

std::optional<SessionKeeper::Restored> SessionKeeper::restore()
{
    storedRefused_ = true; // until it is restored
    auto bytes = store_.read();
    std::optional<Restored> session;
    if (bytes) {
        bool isWhole = false;
        session = read(std::move(*bytes), isWhole);
        if (isWhole)
            store_.accept();
    }
    storedRefused_ = false;
    return session;
}

std::vector<std::string_view> SessionKeeper::encoded(const OnScreen& session)
{
    return encoder_.encode(session.loaded->encodedXML, session.settings, session.history);
}

std::optional<std::string> SessionKeeper::save(const OnScreen& session)
{
    const std::optional<std::string> notKept = std::exchange(keepingFailed_, std::nullopt);
    std::optional<std::string> problem = notKept;
    const auto failure = failureOf("save the session", [&] {
        store_.write(encoded(session));
        if (!notKept)
            problem = keepUnkept();
    });
    return failure ? std::string(sessionNotSaved) + *failure + (notKept ? " " + *notKept : "") : problem;
}

void SessionKeeper::keepReplaced(const OnScreen& session)
{
    const bool hasEdits = session.loaded != nullptr && !session.history.items.empty();
    const auto failure = failureOf("write it", [&] {
        if (hasEdits) {
            store_.writePrevious(encoded(session));
        } else if (session.loaded == nullptr && !storedRefused_) {
            const auto bytes = store_.read();
            if (bytes && holdsGeneratedEdits(*bytes))
                store_.keepAsPrevious(*bytes);
        }
    });
    if (!failure)
        return;
    keepingFailed_ = previousNotKept + *failure;
    if (hasEdits && failureOf("write it", [&] { store_.write(encoded(session)); })) // then it is the disk
        unkept_ = joined(encoded(session));
    store_.disown();
}

/// Tries again to keep the replaced session. Returns the message if that fails; none if nothing is left to keep.
std::optional<std::string> SessionKeeper::keepUnkept()
{
    if (!unkept_)
        return std::nullopt;
    const auto failure = failureOf("write it", [&] {
        const std::string_view part = *unkept_;
        store_.writePrevious({&part, 1});
        unkept_.reset();
    });
    return failure ? std::optional(previousNotKept + *failure) : std::nullopt;
}

bool SessionKeeper::hasPrevious() const
{
    return unkept_ || somethingNamed(store_.previousFilePath());
}

SessionKeeper::Previous SessionKeeper::readPrevious() const
{
    std::string bytes = unkept_ ? *unkept_ : readFile(store_.previousFilePath(), largestSession);
    bool isWhole = false;
    Restored session = read(bytes, isWhole);
    return {std::move(bytes), std::move(session)};
}

void SessionKeeper::changePlaces(std::string_view previousBytes, const OnScreen& session)
{
    if (session.loaded != nullptr) {
        store_.write(encoded(session));
        (void)keepUnkept(); // otherwise the session on screen would replace the previous file as it is
        store_.changePlaces(previousBytes);
    }
    unkept_.reset();
}

} // namespace corvane
