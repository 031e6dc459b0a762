#pragma once

#include "xml/document.h"

#include <optional>

namespace corvane {

/// The source document, and the elements in it that the writer copies.
struct SourceDocument {
    xml::Document document;
    xml::Element project;
    xml::Element sequence;
    xml::Element original; ///< the mc-clip in the spine
    xml::Element multicam;
    std::optional<xml::Element> audioSource; ///< the mc-source that supplies the clip's audio, if there is exactly one
};

} // namespace corvane
