#include "xml/document.h"

#include "xml/library_text.h"
#include "xml/reading.h"

#include <libxml/tree.h>

#include <algorithm>

namespace corvane::xml {

bool hasPrefix(const xmlNs* space)
{
    return space != nullptr && space->prefix != nullptr;
}

std::string Element::name() const
{
    std::string text(view(node_->name));
    if (hasPrefix(node_->ns))
        text.insert(0, std::string(view(node_->ns->prefix)) + ":");
    return text;
}

std::string_view Element::plainName() const
{
    return hasPrefix(node_->ns) ? std::string_view() : view(node_->name);
}

std::optional<std::string_view> Element::attribute(std::string_view name) const
{
    std::optional<std::string_view> value;
    (void)readAttributes({&name, 1}, {&value, 1});
    return value;
}

std::size_t Element::readAttributes(
    std::span<const std::string_view> names, std::span<std::optional<std::string_view>> values) const
{
    constexpr std::size_t bytesAtOnce = 16;
    std::size_t effort = 0;
    std::size_t left = names.size(); // none comes twice
    for (const xmlAttr* attribute = node_->properties; attribute != nullptr && left > 0; attribute = attribute->next) {
        ++effort;
        const std::string_view attributeName = view(attribute->name);
        effort += attributeName.size() / bytesAtOnce;
        const auto asked = std::ranges::find(names, attributeName);
        if (asked == names.end() || hasPrefix(attribute->ns))
            continue; // does not read this attribute's value
        // Entities are substituted while parsing, so that a value is a single text node, or none if it is empty.
        const xmlNode* text = attribute->children;
        auto& value = values[static_cast<std::size_t>(asked - names.begin())];
        value = text == nullptr ? std::string_view() : view(text->content);
        effort += value->size() / bytesAtOnce;
        --left;
    }
    return effort;
}

std::optional<Element> Element::parent() const
{
    _xmlNode* above = node_->parent;
    return above != nullptr && above->type == XML_ELEMENT_NODE ? std::optional(Element(above)) : std::nullopt;
}

ElementRange Element::children() const
{
    return {ElementIterator(node_->children, nullptr)};
}

std::optional<Element> Element::firstChild(std::string_view name) const
{
    for (const Element child : children()) {
        if (child.named(name))
            return child;
    }
    return std::nullopt;
}

ElementRange Element::descendants() const
{
    return {ElementIterator(node_->children, node_)};
}

ElementIterator::ElementIterator(_xmlNode* first, const _xmlNode* below) : node_(first), below_(below)
{
    settle();
}

ElementIterator& ElementIterator::operator++()
{
    step();
    settle();
    return *this;
}

void ElementIterator::settle()
{
    for (; node_ != nullptr && node_->type != XML_ELEMENT_NODE; step())
        ++passed_;
}

void ElementIterator::step()
{
    if (below_ == nullptr) {
        node_ = node_->next;
        return;
    }
    if (node_->type == XML_ELEMENT_NODE && node_->children != nullptr) {
        node_ = node_->children;
        return;
    }
    while (node_ != below_ && node_->next == nullptr)
        node_ = node_->parent;
    node_ = node_ == below_ ? nullptr : node_->next;
}

Document Document::parse(std::string_view bytes)
{
    return Document(readDocument(bytes));
}

std::optional<Element> Document::root() const
{
    xmlNode* root = xmlDocGetRootElement(document_.get());
    return root == nullptr ? std::nullopt : std::optional(Element(root));
}

} // namespace corvane::xml
