#pragma once

#include "import/frame_range.h"
#include "import/project_import.h"
#include "xml/document.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Camera id → where it has footage, in project frames, normalised (normalizeRanges).
using Coverage = std::map<std::string, std::vector<FrameRange>, std::less<>>;

/// The source document and the elements of it that the writer copies.
struct SourceDocument {
    xml::Document document;
    xml::Element project;
    xml::Element sequence;
    xml::Element original; ///< the mc-clip in the spine
    xml::Element multicam;
    std::optional<xml::Element> audioSource; ///< the mc-source that supplies the clip's sound, when just one does
};

/// The frame-exact model of a project: numbers, ids and coverage for everything but the writer. One frame lasts
/// frameNumerator ÷ frameDenominator seconds; both lie in 1 … 1,000,000.
struct CutEngine {
    std::int64_t frameNumerator = 1;
    std::int64_t frameDenominator = 25;
    Frames length = 0;        ///< of the multicam clip, which is the whole project
    Frames sourceStart = 0;   ///< the multicam clip's "start": the source time of project frame 0
    Frames timelineStart = 0; ///< the timecode of project frame 0
    bool dropFrame = false;   ///< the sequence's "tcFormat" is "DF"; whether labels drop depends on the rate too
    Coverage coverage;        ///< video; every angle has an entry, possibly empty
    std::string audioID;      ///< angle that supplies the multicam clip's sound; empty when not unique
    Coverage audioCoverage;
    std::shared_ptr<const SourceDocument> source; ///< none for an engine of numbers

    /// Frames × frameNumerator ÷ frameDenominator.
    [[nodiscard]] double seconds(Frames frames) const;
    /// Seconds × frameDenominator ÷ frameNumerator, not rounded.
    [[nodiscard]] double frames(double seconds) const;
    /// The camera's video coverage; empty for an unknown one.
    [[nodiscard]] const std::vector<FrameRange>& stretches(std::string_view camera) const;
    [[nodiscard]] const std::vector<FrameRange>& audioStretches(std::string_view camera) const;
};

/// Builds the engine of a document. Everything that importProject refuses is refused with the same words; beyond it
/// the multicam clip must fill the project untouched, on frame boundaries, in the project's own format.
[[nodiscard]] CutEngine buildEngine(std::string_view bytes);
[[nodiscard]] CutEngine buildEngine(const xml::Document& document);

/// Both passes over a document that is parsed and searched once. Fails as importProject and then buildEngine would.
struct LoadedProject {
    ImportedProject imported;
    CutEngine engine;
};
[[nodiscard]] LoadedProject loadProject(std::string_view bytes);
[[nodiscard]] LoadedProject loadProject(const xml::Document& document);

/// True when two `format` elements agree in frame duration, dimensions, field order, pixel aspect and colour.
[[nodiscard]] bool formatsMatch(xml::Element a, xml::Element b);

/// An attribute of a `format` with the defaults that FCPXML gives it; a colour space without its remark in brackets.
[[nodiscard]] std::optional<std::string_view> formatAttribute(xml::Element format, std::string_view name);

} // namespace corvane
