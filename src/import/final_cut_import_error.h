#pragma once

#include "base/error.h"

#include <string>

namespace corvane {

/// A refusal: Corvane does not accept something in a document, in typed text or in the settings. what() is the complete
/// sentence for the user, without a prefix or a code.
class FinalCutImportError : public Refusal {
public:
    [[nodiscard]] static FinalCutImportError invalid(const std::string& message)
    {
        return FinalCutImportError(message);
    }

private:
    using Refusal::Refusal;
};

} // namespace corvane
