#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The values of a document, in its order, from which json_reading.h reads. A session has millions of them, so the size
/// of a node decides how much memory and time a restore takes.
namespace corvane {

struct JsonObject {};
struct JsonList {};

/// A text, as a position in JsonTree::texts.
struct JsonText {
    std::uint32_t start = 0;
    std::uint32_t length = 0;
};

/// A value with everything inside it: the nodes from its own up to `end`, where the next value begins.
struct JsonNode {
    std::variant<std::monostate, bool, std::int64_t, double, JsonText, JsonList, JsonObject> value;
    std::uint32_t end = 0;
    std::uint32_t name = 0; ///< of a member: its index in JsonTree::names
};

/// All values in the order of the document; the first is the document itself.
struct JsonTree {
    std::string subject; ///< how error messages about the document begin: "The data"
    std::string texts;   ///< one after the other
    std::vector<std::string> names;
    std::deque<JsonNode> nodes;
    mutable std::vector<bool> asked; ///< for each node, whether it was read
};

/// Parses a whole document (RFC 8259, UTF-8 with or without a byte order mark, up to 2 GB). Throws PlatformError.
[[nodiscard]] std::shared_ptr<const JsonTree> parseJsonTree(std::string_view bytes, std::string_view subject);

} // namespace corvane
