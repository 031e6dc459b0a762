#pragma once

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

} // namespace corvane
