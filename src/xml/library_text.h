#pragma once

#include <string_view>

struct _xmlNs;

namespace corvane::xml {

/// A zero-terminated text of libxml2; a null pointer gives an empty text.
inline std::string_view view(const unsigned char* text)
{
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

/// True for the namespace of a name that is written with a prefix; null is none.
[[nodiscard]] bool hasPrefix(const _xmlNs* space);

} // namespace corvane::xml
