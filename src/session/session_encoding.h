#pragma once

#include "session/edit_history.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The settings as the session file stores them: compact JSON, with keys in the order of the fields.
[[nodiscard]] std::string encodedSettings(const EditSettings& settings);
[[nodiscard]] std::string encodedRevision(const EditRevision& revision);

/// Encodes session files. Every change of a setting is saved, but revisions never change. So their encoded forms are
/// made once and kept, and a file consists of these parts one after the other.
class SessionEncoder {
public:
    /// The parts of the file; `encodedXML` is the project's document in Base64. They are valid until the next call, and
    /// as long as `encodedXML` is.
    [[nodiscard]] std::vector<std::string_view> encode(
        std::string_view encodedXML, const EditSettings& settings, const EditHistory& history);

private:
    struct KeptRevision {
        SharedRevision revision;
        std::string text;
    };

    std::vector<KeptRevision> revisions_; ///< of the history that was last saved, in its order
    std::string settings_;
    std::string ending_;
};

} // namespace corvane
