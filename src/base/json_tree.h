#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What json_reading.h reads from: the values of a document as they stand in it. A session has millions of them, so
/// that the width of a node decides how much memory a restore takes, and for how long.
namespace corvane {

struct JsonObject {};
struct JsonList {
    std::size_t count = 0; ///< items
};

/// A text by where it stands: JsonTree::text.
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
    std::string subject;   ///< how complaints about the document begin: "The data"
    std::string bytes;     ///< the document itself: most texts stay where they are written
    std::string unescaped; ///< the texts written with escapes, as they are meant; they count on from the end of `bytes`
    std::vector<std::string> names;
    std::deque<JsonNode> nodes;
    mutable std::vector<bool> asked; ///< for each node, whether it was read

    [[nodiscard]] std::string_view text(JsonText place) const;
};

/// Parses a whole document (RFC 8259, UTF-8 with or without a byte order mark, up to 2 GB). Fails with PlatformError.
[[nodiscard]] std::unique_ptr<const JsonTree> parseJsonTree(std::string bytes, std::string_view subject);

} // namespace corvane
