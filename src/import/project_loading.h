#pragma once

#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <string_view>

namespace corvane {

namespace xml {
class Document;
}

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

} // namespace corvane
