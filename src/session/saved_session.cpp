#include "session/saved_session.h"

#include "base/error.h"
#include "engine/coverage_report.h"
#include "engine/setting_fields.h"
#include "engine/validation.h"
#include "import/final_cut_import_error.h"
#include "import/project_loading.h"
#include "session/record_reading.h"

#include <algorithm>
#include <optional>

namespace corvane {

namespace {

void require(bool condition, const char* otherwise)
{
    if (!condition)
        throw FinalCutImportError::invalid(otherwise);
}

bool camerasKnown(const CutEngine& engine, const EditSettings& settings)
{
    const auto hasVideo = [&](const std::string& camera) { return !engine.videoRanges(camera).empty(); };
    return hasVideo(settings.mainCamera) && std::ranges::all_of(settings.otherCameras, hasVideo) &&
           std::ranges::all_of(settings.sections, hasVideo, &SectionDraft::camera) &&
           (!settings.openingEnabled || hasVideo(settings.openingCamera)) &&
           (!settings.closingEnabled || hasVideo(settings.closingCamera)) &&
           (settings.audio.empty() || engine.audioCoverage.contains(settings.audio));
}

void validateRecord(const CutEngine& engine, const EditSettings& settings)
{
    validateStoredSettings(settings);
    require(camerasKnown(engine, settings), "The saved session's cameras do not match its XML snapshot.");
}

void validateCuts(const CutEngine& engine, const std::vector<Cut>& cuts)
{
    const auto fault = cutListFault(engine, cuts);
    require(fault != CutListFault::invalidCut, "The saved edit history contains invalid cuts.");
    require(fault != CutListFault::incomplete, "The saved edit history has an incomplete timeline.");
}

/// None if the bytes are not a session file.
std::optional<SavedEditSession> decoded(std::string_view bytes)
{
    try {
        return decodeSession(bytes);
    } catch (const PlatformError&) {
        return std::nullopt;
    }
}

} // namespace

SavedEditSession decodeSession(std::string_view bytes)
{
    const JsonDocument document = parseJson(bytes, "The session");
    const JsonValue root = document.root();
    SavedEditSession session = {
        root.member("version").integer(), root.member("sourceXML").bytes(), root.member("sourceXML").text(),
        readSettings(root.member("settings")), readHistory(root.member("history"))};
    session.holdsMore = document.holdsMore();
    return session;
}

bool holdsGeneratedEdits(std::string_view bytes)
{
    const auto session = decoded(bytes);
    return session && !session->history.items.empty();
}

bool isKnownThroughout(std::string_view bytes)
{
    const auto session = decoded(bytes);
    return session && session->version == 1 && !session->holdsMore;
}

bool isKnownWithoutEdits(std::string_view bytes)
{
    const auto session = decoded(bytes);
    return session && session->version == 1 && !session->holdsMore && session->history.items.empty();
}

bool restoresThroughout(std::string_view bytes)
{
    const auto session = decoded(bytes);
    if (!session || session->holdsMore)
        return false;
    try {
        validateSession(*session, buildEngine(session->sourceXML));
        return true;
    } catch (const Refusal&) {
        return false;
    }
}

void validateSession(const SavedEditSession& session, const CutEngine& engine)
{
    const auto count = static_cast<std::int64_t>(session.history.items.size());
    const std::int64_t index = session.history.index;
    require(
        session.version == 1 && index >= -1 && index < count && (index == -1) == (count == 0),
        "The saved session could not be read. Its stored data has been kept.");
    validateRecord(engine, session.settings);
    for (const SharedRevision& revision : session.history.items)
        validateRecord(engine, revision->settings);
    for (const SharedRevision& revision : session.history.items) {
        checkContinuousAudio(engine, revision->settings.audio);
        validateCuts(engine, revision->cuts);
    }
}

void validateStoredSettings(const EditSettings& settings)
{
    require(areWithinLimits(settings), "The saved session contains invalid settings. Its stored data has been kept.");
}

} // namespace corvane
