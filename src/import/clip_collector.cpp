#include "import/clip_collector.h"

#include "import/clip_attributes.h"

namespace corvane {

void ClipCollector::collect(
    xml::Element angle, std::string_view angleName, const std::function<void(const Clip&)>& found)
{
    angleName_ = angleName;
    visited_.clear();
    visit(angle, 0, found);
}

void ClipCollector::visit(xml::Element element, int level, const std::function<void(const Clip&)>& found)
{
    constexpr int deepestLevel = 1000; // well within the stack
    if (level > deepestLevel)
        budget_.left = 0; // so that the next visit is refused
    std::size_t effort = 0;
    const auto [enabled, name, offset, ref] =
        element.attributes(std::array<std::string_view, 4>{"enabled", "name", "offset", "ref"}, effort);
    budget_.spendOnAttributes(angleName_, effort);
    if (enabled == "0")
        return;
    if (isMediaClip(element.plainName()))
        return found({name, offset, ref});
    // The compound clip counts as visited also for clips connected to the reference; its own contents come after them.
    const auto compound = ref && element.named("ref-clip") ? resources_.media(ref) : std::nullopt;
    const bool entered = compound && visited_.insert(*ref).second;
    budget_.visitChildren(element, angleName_, [&](xml::Element child) { visit(child, level + 1, found); });
    if (!entered)
        return;
    budget_.visitChildren(*compound, angleName_, [&](xml::Element child) {
        if (child.named("sequence"))
            visit(child, level + 1, found);
    });
    visited_.erase(*ref);
}

} // namespace corvane
