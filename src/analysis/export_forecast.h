#pragma once

#include "engine/edit_settings.h"
#include "import/cut_engine.h"
#include "import/imported_project.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// One sentence for each item in the document that an export with this audio angle will refuse, whatever the cuts are.
/// Says where it is and what to do. In the order in which exports refuse them; after a thousand the last one says that
/// the list ends.
[[nodiscard]] std::vector<std::string> announcedRefusals(
    const ImportedProject& project, const CutEngine& engine, std::string_view audioAngle);

/// "A fade of 3 s on Choir needs an opening of at least 3 s.": whether an edit with this fade can be exported depends
/// on its cuts. None if the opening or closing shot is already long enough.
[[nodiscard]] std::vector<std::string> fadeAdvice(
    const ImportedProject& project, const CutEngine& engine, const EditSettings& settings,
    std::string_view decimalSign = ".");

/// True when sound of the angle is faded in or out.
[[nodiscard]] bool hasAudioFades(const CutEngine& engine, std::string_view audioAngle);

} // namespace corvane
