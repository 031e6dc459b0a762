#include "export/carry_over.h"

#include "export/piece_annotations.h"
#include "export/piece_parts.h"
#include "import/source_document.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

namespace corvane {

namespace {

bool isShape(xml::Element element)
{
    return element.named("tracking-shape") && element.attribute("id");
}

/// How a person would name a child of the multicam clip.
std::string label(xml::Element child, xml::Element multicam)
{
    if (!child.named("mc-source"))
        return child.name() + " " + std::string(child.attribute("name").value_or("without a name"));
    const auto id = child.attribute("angleID");
    for (const xml::Element angle : multicam.children()) {
        if (angle.named("mc-angle") && angle.attribute("angleID") == id)
            return "angle " + std::string(angle.attribute("name").value_or(id.value_or("")));
    }
    return "angle " + std::string(id.value_or(""));
}

/// True when something in `child` follows a shape of another angle source.
bool followsForeignShape(xml::Element child, const std::set<std::string_view>& allShapes)
{
    std::set<std::string_view> own;
    for (const xml::Element element : child.descendants()) {
        if (isShape(element))
            own.insert(*element.attribute("id"));
    }
    return std::ranges::any_of(child.descendants().begin(), xml::ElementRange::end(), [&](xml::Element element) {
        const auto tracking = element.attribute("tracking");
        return tracking && allShapes.contains(*tracking) && !own.contains(*tracking);
    });
}

void addOnce(std::vector<std::string>& names, std::string name)
{
    if (std::ranges::find(names, name) == names.end())
        names.push_back(std::move(name));
}

} // namespace

CarryOver carryOver(const CutEngine& engine)
{
    CarryOver result;
    if (!engine.source)
        return result;
    const xml::Element original = engine.source->original;
    std::set<std::string_view> shapes;
    for (const xml::Element source : original.children()) {
        for (const xml::Element element : source.descendants()) {
            if (source.named("mc-source") && isShape(element))
                shapes.insert(*element.attribute("id"));
        }
    }
    for (const xml::Element child : original.children()) {
        if (!isCarriedOver(child.plainName()) && !isSharedOut(child.plainName()))
            addOnce(result.leftOut, child.name());
        else if (followsForeignShape(child, shapes))
            addOnce(result.lostTracking, label(child, engine.source->multicam));
    }
    return result;
}

} // namespace corvane
