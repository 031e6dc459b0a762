#pragma once

#include <stdexcept>

namespace corvane {

/// A failure that the system or a library reports (file system, XML parser): what() is its own words, shown to the
/// user as they stand.
class PlatformError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace corvane
