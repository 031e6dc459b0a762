#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace corvane::bench {

/// Pseudo-random numbers that are the same in every run and on every machine, so that figures can be compared.
class RepeatableNumbers {
public:
    explicit RepeatableNumbers(std::uint64_t seed) : state_(seed) {}

    /// 64 bits.
    std::uint64_t next();
    /// In 0 … limit - 1, for a limit above 0.
    std::int64_t below(std::int64_t limit);
    /// In lowest … highest.
    std::int64_t between(std::int64_t lowest, std::int64_t highest);
    /// `count` Base64 characters, as in bookmarks and angle ids.
    std::string base64(std::size_t count);
    /// `count` upper-case hexadecimal digits.
    std::string digits(std::size_t count);

private:
    std::uint64_t state_;
};

} // namespace corvane::bench
