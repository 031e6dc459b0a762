#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace corvane {

/// Estimates the size of the project before it is written: every clip repeats parts of the multicam clip, so that a
/// small document may become gigabytes. Times are not counted.
class WrittenSize {
public:
    /// `clips` is the number of clips in the written project.
    explicit WrittenSize(std::size_t clips) : clips_(clips) {}

    /// Adds an item of the multicam clip that is written `times` times.
    void add(std::string_view kind, std::size_t bytes, std::size_t times);
    /// Adds what is written only once, outside the clips.
    void addOnce(std::size_t bytes) { bytes_ += bytes; }

    /// True if the size is above xml::mostWritten.
    [[nodiscard]] bool isTooLarge() const;
    /// Refuses if the estimate, or the `written` size so far, is too large, and says which kind of item makes it so
    /// large.
    void check(std::size_t written = 0) const;

    [[nodiscard]] std::size_t bytes() const { return bytes_; }

private:
    struct Kind {
        std::size_t items = 0;
        std::size_t bytes = 0; ///< of all items, once
        std::size_t written = 0;
    };

    std::size_t clips_;
    std::size_t bytes_ = 0;
    std::map<std::string, Kind, std::less<>> kinds_;
};

} // namespace corvane
