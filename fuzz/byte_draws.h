#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::test {

/// Makes choices from bytes, so that a fuzzer or a random generator that changes the bytes changes the choices. After
/// the last byte come zeros, so that every sequence of choices ends.
class ByteDraws {
public:
    explicit ByteDraws(std::string_view bytes) : bytes_(bytes) {}

    /// In [0, count); `count` is at least 1.
    std::int64_t below(std::int64_t count)
    {
        std::uint64_t drawn = 0;
        for (std::int64_t reach = 1; reach < count; reach *= 256)
            drawn = drawn * 256 + next();
        return static_cast<std::int64_t>(drawn % static_cast<std::uint64_t>(count));
    }
    /// In [from, to].
    std::int64_t between(std::int64_t from, std::int64_t to) { return from + below(to - from + 1); }
    bool oneIn(std::int64_t count) { return below(count) == count - 1; }
    /// In [0, 1).
    double uniform() { return static_cast<double>(below(std::int64_t{1} << 32)) * 0x1p-32; }
    template <class List>
    auto anyOf(const List& list)
    {
        return *(std::begin(list) + below(static_cast<std::int64_t>(std::size(list))));
    }
    [[nodiscard]] bool ended() const { return at_ >= bytes_.size(); }
    /// Up to `count` of the bytes themselves.
    std::string take(std::size_t count)
    {
        const std::string taken(bytes_.substr(at_ < bytes_.size() ? at_ : bytes_.size(), count));
        at_ += taken.size();
        return taken;
    }

private:
    std::uint64_t next() { return ended() ? 0 : static_cast<std::uint8_t>(bytes_[at_++]); }

    std::string_view bytes_;
    std::size_t at_ = 0;
};

} // namespace corvane::test
