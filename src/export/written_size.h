#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace corvane {

/// How large the written project becomes, before it is written: every clip repeats parts of the multicam clip, and a
/// small document may come to gigabytes. Times are not counted.
class WrittenSize {
public:
    /// `clips`: how many the project is written in.
    explicit WrittenSize(std::size_t clips) : clips_(clips) {}

    /// An item of the multicam clip that is written `times`.
    void add(std::string_view kind, std::size_t bytes, std::size_t times);
    /// What stands around the clips.
    void addOnce(std::size_t bytes) { bytes_ += bytes; }

    /// True beyond xml::mostWritten.
    [[nodiscard]] bool isTooLarge() const;
    /// Refuses what is too large, or has become it while it was `written`, and says which kind of item makes it so.
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
