// The input is a session file: it is read, checked against its own project, and saved again.

#include "fuzz/target.h"
#include "import/project_loading.h"
#include "session/saved_session.h"
#include "session/session_encoding.h"

std::string runFuzzInput(std::string_view bytes)
{
    using namespace corvane;
    const SavedEditSession session = decodeSession(bytes);
    if (holdsGeneratedEdits(bytes) != !session.history.items.empty())
        return "what holds edits is told without reading all";
    SessionEncoder encoder;
    std::string saved;
    for (const std::string_view part : encoder.encode(session.encodedXML, session.settings, session.history))
        saved += part;
    const SavedEditSession again = decodeSession(saved);
    if (again.sourceXML != session.sourceXML || again.settings != session.settings ||
        again.history.index != session.history.index || again.history.items.size() != session.history.items.size())
        return "what was saved is read again";
    for (std::size_t number = 0; number < again.history.items.size(); ++number) {
        if (*again.history.items[number] != *session.history.items[number])
            return "a revision that was saved is read again";
    }
    validateSession(session, buildEngine(session.sourceXML));
    return "";
}
