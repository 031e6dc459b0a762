#include "base/json_reading.h"

#include "base/base64.h"
#include "base/error.h"
#include "base/json_tree.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace corvane {

namespace {

[[noreturn]] void fail(const JsonTree& tree, std::string_view complaint)
{
    throw PlatformError(tree.subject + " cannot be read: " + std::string(complaint));
}

bool isPlainName(std::string_view name)
{
    return !name.empty() && std::ranges::all_of(name, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    });
}

} // namespace

JsonValue::JsonValue(const JsonTree& root) : tree_(root)
{
    tree_.asked[0] = true;
}

JsonValue::JsonValue(const JsonValue& parent, std::size_t node, std::size_t position)
    : tree_(parent.tree_), parent_(&parent), node_(node), position_(position)
{
    tree_.asked[node] = true;
}

std::string JsonValue::text() const
{
    return std::string(textView());
}

double JsonValue::number() const
{
    const auto& value = tree_.nodes[node_].value;
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return static_cast<double>(*whole);
    if (const auto* number = std::get_if<double>(&value)) // always finite
        return *number;
    refuse("is not a number.");
}

std::int64_t JsonValue::integer() const
{
    const auto& value = tree_.nodes[node_].value;
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return *whole;
    const auto* number = std::get_if<double>(&value);
    if (number == nullptr || std::trunc(*number) != *number || std::abs(*number) >= 0x1p63) // -2^63 may be rounded
        refuse("is not a whole number.");
    return static_cast<std::int64_t>(*number);
}

bool JsonValue::boolean() const
{
    const auto* value = std::get_if<bool>(&tree_.nodes[node_].value);
    if (value == nullptr)
        refuse("is neither true nor false.");
    return *value;
}

Identifier JsonValue::identifier() const
{
    const auto identifier = Identifier::parse(textView());
    if (!identifier)
        refuse("is not an identifier.");
    return *identifier;
}

std::string JsonValue::bytes() const
{
    auto decoded = base64Decoded(textView());
    if (!decoded)
        refuse("is not Base64 text.");
    return *std::move(decoded);
}

JsonValue JsonValue::member(std::string_view name) const&
{
    const std::size_t node = find(name, Null::isRefused);
    if (node == none)
        fail(tree_, (parent_ == nullptr ? "" : place() + ".") + std::string(name) + " is missing.");
    return {*this, node};
}

void JsonValue::refuse(std::string_view complaint) const
{
    fail(tree_, (parent_ == nullptr ? "it" : place()) + " " + std::string(complaint));
}

std::string_view JsonValue::textView() const
{
    const auto* value = std::get_if<JsonText>(&tree_.nodes[node_].value);
    if (value == nullptr)
        refuse("is not a text.");
    return std::string_view(tree_.texts).substr(value->start, value->length);
}

std::size_t JsonValue::itemsEnd() const
{
    if (!std::holds_alternative<JsonList>(tree_.nodes[node_].value))
        refuse("is not a list.");
    return nodeAfter(node_);
}

std::size_t JsonValue::membersEnd() const
{
    if (!std::holds_alternative<JsonObject>(tree_.nodes[node_].value))
        refuse("is not an object.");
    return nodeAfter(node_);
}

std::size_t JsonValue::find(std::string_view name, Null null) const
{
    const std::size_t end = membersEnd();
    std::size_t found = none;
    for (std::size_t node = node_ + 1; node < end; node = nodeAfter(node)) {
        if (nameOf(node) == name)
            found = node;
    }
    const bool isMissing =
        found != none && null == Null::isMissing && std::holds_alternative<std::monostate>(tree_.nodes[found].value);
    if (isMissing)
        tree_.asked[found] = true;
    return isMissing ? none : found;
}

std::size_t JsonValue::nodeAfter(std::size_t node) const
{
    return tree_.nodes[node].end;
}

const std::string& JsonValue::nameOf(std::size_t node) const
{
    return tree_.names[tree_.nodes[node].name];
}

std::string JsonValue::place() const
{
    constexpr std::size_t longest = 60; // bytes of a name
    const std::string before = parent_ == nullptr ? "" : parent_->place();
    if (position_ != none)
        return before + "[" + std::to_string(position_) + "]";
    if (parent_ == nullptr)
        return "";
    const std::string name(charactersWithin(nameOf(node_), longest));
    if (!isPlainName(name))
        return before + "[\"" + name + "\"]";
    return before.empty() ? name : before + "." + name;
}

bool JsonDocument::holdsMore() const
{
    return !std::ranges::all_of(tree_->asked, std::identity());
}

JsonDocument parseJson(std::string_view bytes, std::string_view subject)
{
    return JsonDocument(parseJsonTree(bytes, subject));
}

} // namespace corvane
