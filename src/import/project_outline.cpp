#include "import/project_outline.h"

#include "import/final_cut_import_error.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace corvane {

namespace {

void require(bool condition, const char* otherwise)
{
    if (!condition)
        throw FinalCutImportError::invalid(otherwise);
}

void addChildren(std::vector<xml::Element>& found, xml::Element parent, std::string_view name)
{
    for (const xml::Element child : parent.children()) {
        if (child.named(name))
            found.push_back(child);
    }
}

/// The projects in events in libraries, in events at the top level, and at the top level itself: Final Cut exports all
/// three.
std::vector<xml::Element> projects(xml::Element root)
{
    std::vector<xml::Element> parents = {root};
    for (const xml::Element child : root.children()) {
        if (child.named("event"))
            parents.push_back(child);
        else if (child.named("library"))
            addChildren(parents, child, "event");
    }
    std::vector<xml::Element> found;
    for (const xml::Element parent : parents)
        addChildren(found, parent, "project");
    return found;
}

} // namespace

ProjectOutline outlineProject(const xml::Document& document)
{
    const auto root = document.root();
    require(root && root->named("fcpxml"), "This file is not a Final Cut XML export.");
    const auto found = projects(*root);
    require(found.size() == 1, "Export one project from Final Cut Pro, rather than a whole event or library.");
    const xml::Element project = found.front();
    const auto sequence = project.firstChild("sequence");
    require(sequence.has_value(), "The project has no timeline to inspect.");
    const auto spine = sequence->firstChild("spine");
    const auto original = spine ? spine->firstChild("mc-clip") : std::nullopt;
    require(
        original && std::ranges::distance(spine->children().begin(), xml::ElementRange::end()) == 1,
        "For this prototype, export a timeline containing one uncut multicam clip.");
    const auto resourcesElement = root->firstChild("resources");
    require(resourcesElement.has_value(), "The export has no media resources.");
    MediaResources resources(*resourcesElement);
    const auto media = resources.media(original->attribute("ref"));
    const auto multicam = media ? media->firstChild("multicam") : std::nullopt;
    require(multicam.has_value(), "The multicam definition is missing from this export.");
    const auto format = resources.format(sequence->attribute("format"));
    return {document, *root, project, *sequence, *original, std::move(resources), *multicam, format};
}

} // namespace corvane
