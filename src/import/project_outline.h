#pragma once

#include "import/media_resources.h"
#include "xml/document.h"

namespace corvane {

/// The elements that the import reads from a document of the one accepted shape: one project whose timeline contains
/// exactly one multicam clip. Both passes over a document start from these, so that it is searched only once.
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

/// Refuses documents of any other shape.
[[nodiscard]] ProjectOutline outlineProject(const xml::Document& document);

} // namespace corvane
