#pragma once

#include "import/cut_engine.h"
#include "xml/document.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What an export reads from the source document, whatever the cuts are. Each function refuses what it cannot read. The
/// writer uses the same functions as the checks before an export.
namespace corvane {

/// True for the children of the multicam clip that go to a single clip unchanged.
[[nodiscard]] bool isConnectedItem(std::string_view elementName);
/// True for those that go to every clip that they touch.
[[nodiscard]] bool isAnnotation(std::string_view elementName);

/// The item's offset in seconds of source time.
[[nodiscard]] double connectedOffset(xml::Element item);

/// The position or range of an annotation, in source frames. Only keywords, ratings and analysis markers are ranges,
/// and only with a duration above 0.
struct AnnotationTimes {
    Frames start = 0;
    Frames duration = 0;
    bool isRange = false;
};
[[nodiscard]] AnnotationTimes annotationTimes(const CutEngine& engine, xml::Element annotation);

/// Calls `visit` with each fadeIn and fadeOut in the audio angle's sources, in document order.
void forEachAudioFade(
    const CutEngine& engine, std::string_view audioAngle, const std::function<void(xml::Element)>& visit);
/// The length of a fade in seconds.
[[nodiscard]] double fadeLength(xml::Element fade);
/// How much longer than its clip, in seconds, a fade may be because of rounding.
inline constexpr double fadeTolerance = 0.00000001;

/// What is at the top of every written document.
struct SourceHead {
    std::string_view version;
    xml::Element resources;
};
[[nodiscard]] SourceHead sourceHead(const CutEngine& engine);

/// An item of the source that an export refuses.
struct RefusedSource {
    std::optional<xml::Element> item; ///< none if it is the document itself
    std::string_view attribute;       ///< the invalid attribute: "start", "duration", "offset" or "version"
    std::string refusal;              ///< the export's message
};

/// The first such items, in the order in which exports refuse them. None for an engine made without a document.
[[nodiscard]] std::vector<RefusedSource> refusedSources(
    const CutEngine& engine, std::string_view audioAngle, std::size_t most);

} // namespace corvane
