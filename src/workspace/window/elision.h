#pragma once

#include <QFontMetrics>
#include <QString>
#include <vector>

/// Shortens names that do not fit. Only the painted text is shortened, and always so that names which begin alike can
/// still be distinguished.
namespace corvane {

/// Where a name is in a text, and where it differs from other names.
struct NamePlace {
    qsizetype begin = 0;   ///< the text before this is not shortened
    qsizetype telling = 0; ///< the position of the first character that differs; 0 if no other name begins alike
};

/// For each name, the position of the character or number that distinguishes it from the name with the longest common
/// beginning.
[[nodiscard]] std::vector<qsizetype> tellingPlaces(const std::vector<QString>& names);

/// The text as painted in `width` pixels: all of it if it fits, otherwise with "…" in the middle of the name. Keeps the
/// note at its end, " (excluded)" or " (has gaps)", and the part that distinguishes the name from others.
[[nodiscard]] QString elided(const QFontMetrics& metrics, const QString& text, int width, const NamePlace& name);

} // namespace corvane
