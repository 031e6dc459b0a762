#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane {

/// The places of texts that a document may contain in any number, such as ids. The texts must outlive the index. It is
/// not a hash table, for which a document could contain texts that collide.
class TextIndex {
public:
    void add(std::string_view text, std::size_t place);
    /// After the last add(), before the first find().
    void sort();
    /// Where the text was added first; none if it never was.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view text) const;

private:
    struct Entry {
        std::uint64_t head = 0; ///< the first eight bytes, which decide most comparisons without reading the text
        std::string_view text;
        std::size_t place = 0;

        auto operator<=>(const Entry&) const = default;
    };
    std::vector<Entry> entries_;
};

} // namespace corvane
