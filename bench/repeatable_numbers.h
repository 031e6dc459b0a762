#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace corvane::bench {

/// Numbers that look random and are the same in every run and on every machine, so that figures can be compared.
class RepeatableNumbers {
public:
    explicit RepeatableNumbers(std::uint64_t seed) : state_(seed) {}

    /// 64 bits.
    std::uint64_t next();
    /// In 0 … limit - 1, for a limit above 0.
    std::int64_t below(std::int64_t limit);
    /// In lowest … highest.
    std::int64_t between(std::int64_t lowest, std::int64_t highest);
    /// `count` characters of base 64, as bookmarks and the ids of angles have them.
    std::string base64(std::size_t count);
    /// `count` upper-case hexadecimal digits.
    std::string digits(std::size_t count);

private:
    std::uint64_t state_;
};

} // namespace corvane::bench
