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

/// Encodes the session file of one project. Every change of a setting is saved, but the document and the revisions
/// never change. So their encoded forms are made once and kept, and a file consists of these parts one after the other.
class SessionEncoder {
public:
    /// Discards the encoded parts and sets another project's document.
    void setSource(std::string_view sourceXML);

    /// The parts of the file, which are valid until the next call of encode or setSource.
    [[nodiscard]] std::vector<std::string_view> encode(const EditSettings& settings, const EditHistory& history);

private:
    struct KeptRevision {
        SharedRevision revision;
        std::string text;
    };

    std::string beginning_;               ///< everything before the settings: version and document
    std::vector<KeptRevision> revisions_; ///< of the history that was last saved, in its order
    std::string settings_;
    std::string ending_;
};

} // namespace corvane
