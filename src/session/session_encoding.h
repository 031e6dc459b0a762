#pragma once

#include "session/edit_history.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The forms in which the session file keeps the records: compact, keys in the order of the fields.
[[nodiscard]] std::string encodedSettings(const EditSettings& settings);
[[nodiscard]] std::string encodedRevision(const EditRevision& revision);

/// Makes the session file of one project, again and again. A save follows every change of a setting, and neither the
/// document nor a revision ever changes: their encoded forms are made once and kept, and a file is the parts one
/// after the other.
class SessionEncoder {
public:
    /// Forgets what was kept and takes another project's document.
    void setSource(std::string_view sourceXML);

    /// The parts of the file. They stay valid until the next call of either operation.
    [[nodiscard]] std::vector<std::string_view> encode(const EditSettings& settings, const EditHistory& history);

private:
    struct KeptRevision {
        SharedRevision revision;
        std::string text;
    };

    std::string beginning_;               ///< up to the settings: version and document
    std::vector<KeptRevision> revisions_; ///< of the history that was saved last, in its order
    std::string settings_;
    std::string ending_;
};

} // namespace corvane
