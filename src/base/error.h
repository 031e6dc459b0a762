#pragma once

#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

namespace corvane {

/// A failure that the system or a library reports (file system, XML parser). what() is shown to the user unchanged.
class PlatformError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The sentence that tells the user about a failure: the exception's own text, or that there is not enough memory to
/// `doWhat`.
[[nodiscard]] inline std::string failureText(const std::exception& failure, std::string_view doWhat)
{
    if (dynamic_cast<const std::bad_alloc*>(&failure) == nullptr)
        return failure.what();
    return "There is not enough memory to " + std::string(doWhat) + ". Close other programs and try again.";
}

} // namespace corvane
