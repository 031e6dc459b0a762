#pragma once

#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <string_view>

namespace corvane {

namespace xml {
class Document;
}

/// Builds the engine of a document. Refuses what importProject refuses, with the same words. In addition, the multicam
/// clip must fill the project unchanged, on frame boundaries, in the project's own format.
[[nodiscard]] CutEngine buildEngine(std::string_view bytes);

/// The results of importProject and buildEngine for a document that is parsed and searched only once. Refuses what
/// these refuse, in that order.
struct LoadedProject {
    ImportedProject imported;
    CutEngine engine;
};
[[nodiscard]] LoadedProject loadProject(std::string_view bytes);
[[nodiscard]] LoadedProject loadProject(const xml::Document& document);

} // namespace corvane
