#pragma once

#include "base/text.h"

#include <QString>
#include <string>
#include <string_view>

namespace corvane {

/// Converts UTF-8 texts to the toolkit's texts and back.
[[nodiscard]] inline QString qt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string utf8(const QString& text)
{
    return text.toStdString();
}

/// How a text from outside, such as a name, is drawn.
[[nodiscard]] inline QString shown(std::string_view text)
{
    return qt(shownText(text));
}

} // namespace corvane
