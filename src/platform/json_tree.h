#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <variant>

/// What json_reading.h reads from: the values of a document as they stand in it.
namespace corvane {

struct JsonObject {};
struct JsonList {
    std::size_t count = 0; ///< items
};

/// A value with all that is inside it: the nodes from its own up to `end`, where its neighbour follows.
struct JsonNode {
    std::variant<std::monostate, bool, std::int64_t, double, std::string_view, JsonList, JsonObject> value;
    std::size_t end = 0;
    const std::string* name = nullptr; ///< of a member
};

/// All values in the order of the document, which is the first of them. Nodes point into the rest.
struct JsonTree {
    std::string subject;           ///< how complaints about the document begin: "The data"
    std::string bytes;             ///< the document itself: most texts stay where they are written
    std::deque<std::string> texts; ///< those written with escapes, as they are meant
    std::set<std::string, std::less<>> names;
    std::deque<JsonNode> nodes;
};

/// Parses a whole document (RFC 8259, UTF-8 with or without a byte order mark). Fails with PlatformError.
[[nodiscard]] std::unique_ptr<const JsonTree> parseJsonTree(std::string bytes, std::string_view subject);

} // namespace corvane
