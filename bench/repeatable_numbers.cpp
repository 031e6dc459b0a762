#include "bench/repeatable_numbers.h"

#include <string_view>

namespace corvane::bench {

namespace {

std::string characters(RepeatableNumbers& numbers, std::size_t count, std::string_view alphabet)
{
    std::string text(count, ' ');
    for (char& character : text)
        character = alphabet[static_cast<std::size_t>(numbers.next() >> 32U) % alphabet.size()];
    return text;
}

} // namespace

std::uint64_t RepeatableNumbers::next()
{
    // SplitMix64: one addition per step, then the bits are mixed.
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
}

std::int64_t RepeatableNumbers::below(std::int64_t limit)
{
    return static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(limit));
}

std::int64_t RepeatableNumbers::between(std::int64_t lowest, std::int64_t highest)
{
    return lowest + below(highest - lowest + 1);
}

std::string RepeatableNumbers::base64(std::size_t count)
{
    return characters(*this, count, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
}

std::string RepeatableNumbers::digits(std::size_t count)
{
    return characters(*this, count, "0123456789ABCDEF");
}

} // namespace corvane::bench
