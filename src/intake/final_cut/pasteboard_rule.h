#pragma once

#include "intake/final_cut/pasteboard.h"
#include "intake/xml_inbox.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// The seven types as which Final Cut offers a project's XML, newest first.
[[nodiscard]] const std::vector<std::string>& finalCutXMLTypes();

/// The types for which the drop view registers: Final Cut's types and files.
[[nodiscard]] const std::vector<std::string>& registeredPasteboardTypes();

/// The XML of the newest version offered whose data is not empty; none if there is no such data. Throws
/// NoPasteboardAnswer.
[[nodiscard]] std::optional<std::string> xmlDataFromPasteboard(const Pasteboard& pasteboard);

/// True if the pasteboard offers a registered type; then the drop view is highlighted.
[[nodiscard]] bool offersProject(const Pasteboard& pasteboard);

/// Handles a drop on the drop view: puts Final Cut's XML or the single project file into the inbox. Otherwise, also if
/// the source does not answer, puts an error there and returns false.
[[nodiscard]] bool performDrag(const Pasteboard& pasteboard, XMLInbox& inbox);

} // namespace corvane
