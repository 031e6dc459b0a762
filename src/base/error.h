#pragma once

#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace corvane {

/// Something that cannot be done. what() is the whole sentence for the user, shown unchanged.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A failure that the system or a library reports (file system, XML parser), in its own words.
class PlatformError : public Refusal {
public:
    using Refusal::Refusal;
};

/// The sentence for the user when there is not enough memory to `doWhat`.
[[nodiscard]] inline std::string notEnoughMemory(std::string_view doWhat)
{
    return "There is not enough memory to " + std::string(doWhat) + ". Close other programs and try again.";
}

/// Does the work. Returns nothing if it succeeds, otherwise the sentence for the user: that of the refusal, or that
/// there is not enough memory to `doWhat`. Any other exception is a fault of this program and is passed on.
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
