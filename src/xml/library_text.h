#pragma once

#include <string_view>

namespace corvane::xml {

/// A text of libxml2, which ends with a zero byte; null is empty.
inline std::string_view view(const unsigned char* text)
{
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

} // namespace corvane::xml
