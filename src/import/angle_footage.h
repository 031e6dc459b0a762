#pragma once

#include "import/angle_media_walker.h"

#include <exception>
#include <string_view>
#include <vector>

namespace corvane {

/// What the angles of a multicam hold for the engine, found child by child while the summary is made: a large
/// document does not fit in the processor's cache, so each clip is read by both before the next one is fetched.
/// A refusal waits here until the engine comes to its angle, because everything that the summary refuses stands before
/// it; nothing more is read after one.
class AngleFootage {
public:
    struct Angle {
        std::string_view id;
        std::vector<AngleMediaWalker::Span> spans; ///< of its children, neither sorted nor merged
        std::exception_ptr refusal;                ///< of the last angle only: what ended its reading
    };

    explicit AngleFootage(const MediaResources& resources) : walker_(resources) {}

    /// Starts the next mc-angle.
    void begin(xml::Element angle);
    /// Reads a child of the angle that began last.
    void add(xml::Element child);

    /// In document order.
    [[nodiscard]] const std::vector<Angle>& angles() const { return angles_; }

private:
    AngleMediaWalker walker_;
    std::vector<Angle> angles_;
    std::string_view angleName_;
    bool refused_ = false;
};

} // namespace corvane
