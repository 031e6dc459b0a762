#pragma once

#include "intake/final_cut/pasteboard.h"
#include "intake/xml_inbox.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// The seven types under which Final Cut offers a project's XML, the newest first.
[[nodiscard]] const std::vector<std::string>& finalCutXMLTypes();

/// The types for which the drop view registers: Final Cut's and files.
[[nodiscard]] const std::vector<std::string>& registeredPasteboardTypes();

/// The XML of the newest version on offer whose data are not empty; none when there is no such. Throws
/// NoPasteboardAnswer.
[[nodiscard]] std::optional<std::string> xmlDataFromPasteboard(const Pasteboard& pasteboard);

/// True when the pasteboard offers a registered type: the drop view lights up.
[[nodiscard]] bool offersProject(const Pasteboard& pasteboard);

/// A drop on the drop view: puts Final Cut's XML or the one project file into the inbox. Otherwise, also when the
/// source does not answer, an error goes there, and the answer is false.
[[nodiscard]] bool performDrag(const Pasteboard& pasteboard, XMLInbox& inbox);

} // namespace corvane
