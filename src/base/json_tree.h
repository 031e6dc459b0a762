#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What json_reading.h reads from: the values of a document in its order. A session has millions of them, so
/// that the width of a node decides how much memory a restore takes, and for how long.
namespace corvane {

struct JsonObject {};
struct JsonList {};

/// A text by where it stands in JsonTree::texts.
struct JsonText {
    std::uint32_t start = 0;
    std::uint32_t length = 0;
};

/// A value with all that is inside it: the nodes from its own up to `end`, where its neighbour follows.
struct JsonNode {
    std::variant<std::monostate, bool, std::int64_t, double, JsonText, JsonList, JsonObject> value;
    std::uint32_t end = 0;
    std::uint32_t name = 0; ///< of a member: its place in JsonTree::names
};

/// All values in the order of the document, which is the first of them.
struct JsonTree {
    std::string subject; ///< how complaints about the document begin: "The data"
    std::string texts;   ///< one after the other
    std::vector<std::string> names;
    std::deque<JsonNode> nodes;
    mutable std::vector<bool> asked; ///< for each node, whether it was read
};

/// Parses a whole document (RFC 8259, UTF-8 with or without a byte order mark, up to 2 GB). Fails with PlatformError.
[[nodiscard]] std::shared_ptr<const JsonTree> parseJsonTree(std::string_view bytes, std::string_view subject);

} // namespace corvane
