#pragma once

#include <QFontMetrics>
#include <QString>
#include <vector>

/// Names in places that are too narrow for them. Only what is painted is cut, and only so that names which begin alike
/// can still be told apart.
namespace corvane {

/// Where in a text a name stands, and where in the text the name differs from others.
struct NamePlace {
    qsizetype begin = 0;   ///< what stands before it is not cut
    qsizetype telling = 0; ///< the character that no other name has there; 0 when none begins like it
};

/// For each name the place of the character, or of the number, that tells it from the one that begins most like it.
[[nodiscard]] std::vector<qsizetype> tellingPlaces(const std::vector<QString>& names);

/// What is painted of the text in so many pixels: all of it where it fits, else "…" in the middle of the name. The
/// note at its end, " (excluded)" or " (has gaps)", stays, and what tells the name from others.
[[nodiscard]] QString elided(const QFontMetrics& metrics, const QString& text, int width, const NamePlace& name);

} // namespace corvane
