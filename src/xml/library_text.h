#pragma once

#include <string_view>

namespace corvane::xml {

/// A zero-terminated text of libxml2; a null pointer gives an empty text.
inline std::string_view view(const unsigned char* text)
{
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

} // namespace corvane::xml
