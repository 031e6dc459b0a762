#pragma once

#include "import/media_resources.h"
#include "xml/document.h"

namespace corvane {

/// Where a document of the one accepted shape keeps what the import reads: one project whose timeline holds exactly
/// one multicam clip. Both passes over a document start from this, so that it is searched once.
struct ProjectOutline {
    xml::Document document;
    xml::Element root;
    xml::Element project;
    xml::Element sequence;
    xml::Element original; ///< the mc-clip in the spine
    MediaResources resources;
    xml::Element multicam;
    std::optional<xml::Element> format; ///< of the sequence
};

/// Refuses every document of another shape.
[[nodiscard]] ProjectOutline outlineProject(const xml::Document& document);

} // namespace corvane
