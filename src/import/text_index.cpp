#include "import/text_index.h"

#include <algorithm>

namespace corvane {

namespace {

std::uint64_t headOf(std::string_view text)
{
    constexpr std::size_t bytes = 8;
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < bytes; ++i)
        head = head << 8U | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    return head;
}

} // namespace

void TextIndex::add(std::string_view text, std::size_t place)
{
    entries_.push_back({headOf(text), text, place});
}

void TextIndex::sort()
{
    std::ranges::sort(entries_);
}

std::optional<std::size_t> TextIndex::find(std::string_view text) const
{
    const auto found = std::ranges::lower_bound(entries_, Entry{headOf(text), text, 0});
    return found != entries_.end() && found->text == text ? std::optional(found->place) : std::nullopt;
}

} // namespace corvane
