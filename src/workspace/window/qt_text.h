#pragma once

#include "base/text.h"

#include <QString>
#include <string>
#include <string_view>

namespace corvane {

/// The toolkit's text of a UTF-8 text, and back.
[[nodiscard]] inline QString qt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string utf8(const QString& text)
{
    return text.toStdString();
}

/// What is drawn of a text that comes from outside, such as a name.
[[nodiscard]] inline QString shown(std::string_view text)
{
    return qt(shownText(text));
}

} // namespace corvane
