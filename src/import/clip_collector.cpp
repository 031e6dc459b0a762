#include "import/clip_collector.h"

#include "import/clip_attributes.h"

namespace corvane {

void ClipCollector::collect(
    xml::Element angle, std::string_view angleName, const std::function<void(xml::Element)>& found)
{
    angleName_ = angleName;
    visited_.clear();
    visit(angle, 0, found);
}

void ClipCollector::visit(xml::Element element, int level, const std::function<void(xml::Element)>& found)
{
    constexpr int deepestLevel = 1000; // well within the stack
    if (level > deepestLevel)
        budget_.left = 0; // so that the next visit is refused
    if (element.attribute("enabled") == "0")
        return;
    if (isMediaClip(element.plainName()))
        return found(element);
    // The compound clip counts as visited also for clips connected to the reference; its own contents come after them.
    const auto ref = element.named("ref-clip") ? element.attribute("ref") : std::nullopt;
    const auto compound = ref ? resources_.media(ref) : std::nullopt;
    const bool entered = compound && visited_.insert(*ref).second;
    for (const xml::Element child : element.children()) {
        budget_.spend(angleName_);
        visit(child, level + 1, found);
    }
    if (!entered)
        return;
    for (const xml::Element child : compound->children()) {
        budget_.spend(angleName_);
        if (child.named("sequence"))
            visit(child, level + 1, found);
    }
    visited_.erase(*ref);
}

} // namespace corvane
