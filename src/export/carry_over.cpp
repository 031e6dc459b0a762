#include "export/carry_over.h"

#include "export/clip_annotations.h"
#include "export/clip_parts.h"
#include "import/source_document.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

bool isShape(xml::Element element)
{
    return element.named("tracking-shape") && element.attribute("id");
}

/// A child of the multicam clip as people would call it.
std::string label(xml::Element child, const std::map<std::string_view, std::string_view>& angleNames)
{
    if (!child.named("mc-source"))
        return child.name() + " " + std::string(child.attribute("name").value_or("without a name"));
    const std::string_view id = child.attribute("angleID").value_or("");
    const auto named = angleNames.find(id);
    return "angle " + std::string(named == angleNames.end() ? id : named->second);
}

/// True if something in `child` follows a shape that belongs to another angle source.
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

/// Collects names in the order in which they come, each once.
class NamesOnce {
public:
    void add(std::string name)
    {
        if (known_.insert(name).second)
            names.push_back(std::move(name));
    }

    std::vector<std::string> names;

private:
    std::set<std::string> known_;
};

} // namespace

CarryOver carryOver(const CutEngine& engine)
{
    if (!engine.source)
        return {};
    const xml::Element original = engine.source->original;
    std::set<std::string_view> shapes;
    for (const xml::Element source : original.children()) {
        for (const xml::Element element : source.descendants()) {
            if (source.named("mc-source") && isShape(element))
                shapes.insert(*element.attribute("id"));
        }
    }
    std::map<std::string_view, std::string_view> angleNames;
    for (const xml::Element angle : engine.source->multicam.children()) {
        const auto id = angle.attribute("angleID");
        if (angle.named("mc-angle") && id)
            angleNames.emplace(*id, angle.attribute("name").value_or(*id));
    }
    NamesOnce leftOut;
    NamesOnce lostTracking;
    for (const xml::Element child : original.children()) {
        if (!isCarriedOver(child.plainName()) && !isSharedOut(child.plainName()))
            leftOut.add(child.name());
        else if (followsForeignShape(child, shapes))
            lostTracking.add(label(child, angleNames));
    }
    return {std::move(leftOut.names), std::move(lostTracking.names)};
}

} // namespace corvane
