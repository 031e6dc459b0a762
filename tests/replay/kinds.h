#pragma once

#include "replay/json_forms.h"

namespace corvane::replay {

/// Each function answers one case of its kind, with one member per operation.
[[nodiscard]] Json answerDocument(const Json& request);
[[nodiscard]] Json answerValues(const Json& request);
[[nodiscard]] Json answerRanges(const Json& request);
[[nodiscard]] Json answerNames(const Json& request);
[[nodiscard]] Json answerPresets(const Json& request);
[[nodiscard]] Json answerTopic(const Json& request);
[[nodiscard]] Json answerHistory(const Json& request);
[[nodiscard]] Json answerStory(const Json& request);

} // namespace corvane::replay
