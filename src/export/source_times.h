#pragma once

#include "import/cut_engine.h"
#include "xml/document.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What an export reads of the source document, whatever the cuts are. Each reader refuses what it cannot read; the
/// writer goes through the same readers as whoever asks before there is anything to write.
namespace corvane {

/// True for the children of the multicam clip that go to one piece whole.
[[nodiscard]] bool isConnectedItem(std::string_view elementName);
/// True for those that go to the pieces that they touch.
[[nodiscard]] bool isAnnotation(std::string_view elementName);

/// Seconds of source time.
[[nodiscard]] double connectedOffset(xml::Element item);

/// Source frames. Only keywords, ratings and analysis markers are ranges, and only with a duration above 0.
struct AnnotationTimes {
    Frames start = 0;
    Frames duration = 0;
    bool isRange = false;
};
[[nodiscard]] AnnotationTimes annotationTimes(const CutEngine& engine, xml::Element annotation);

/// Calls `visit` with each fadeIn and fadeOut that the audio angle's sources hold, in document order.
void forEachAudioFade(
    const CutEngine& engine, std::string_view audioAngle, const std::function<void(xml::Element)>& visit);
/// Seconds.
[[nodiscard]] double fadeLength(xml::Element fade);

/// What stands at the top of every written document.
struct SourceHead {
    std::string_view version;
    xml::Element resources;
};
[[nodiscard]] SourceHead sourceHead(const CutEngine& engine);

/// Something of the source that an export refuses.
struct RefusedSource {
    std::optional<xml::Element> item; ///< none: the document
    std::string_view attribute;       ///< that cannot be taken: "start", "duration", "offset" or "version"
    std::string refusal;              ///< the sentence of the export
};

/// All of it, in the order in which exports refuse it. None for an engine of numbers.
[[nodiscard]] std::vector<RefusedSource> refusedSources(const CutEngine& engine, std::string_view audioAngle);

} // namespace corvane
