#pragma once

#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace corvane {

/// A failure that the system or a library reports (file system, XML parser). what() is shown to the user unchanged.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A failure that the system or a library reports (file system, XML parser): what() is its own words.
class PlatformError : public Refusal {
public:
    using Refusal::Refusal;
};

/// What a person is told where there is not enough memory to `doWhat`.
[[nodiscard]] inline std::string notEnoughMemory(std::string_view doWhat)
{
    return "There is not enough memory to " + std::string(doWhat) + ". Close other programs and try again.";
}

/// Does the work. None when it is done, else what a person is told: the words of a refusal, or that there was not
/// enough memory to `doWhat`. Every other exception is a fault of this program and passes.
template <class Work>
[[nodiscard]] std::optional<std::string> failureOf(std::string_view doWhat, const Work& work)
{
    try {
        work();
        return std::nullopt;
    } catch (const Refusal& refusal) {
        return refusal.what();
    } catch (const std::bad_alloc&) {
        return notEnoughMemory(doWhat);
    }
}

} // namespace corvane
