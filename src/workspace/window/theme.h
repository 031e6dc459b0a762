#pragma once

#include <QApplication>
#include <QColor>
#include <QIcon>
#include <QString>
#include <string>

/// The dark colours and other properties that all windows share.
namespace corvane::theme {

inline const QColor background = QColor::fromRgbF(0.16F, 0.16F, 0.16F);
inline const QColor lighterGrey = QColor::fromRgbF(0.205F, 0.205F, 0.205F);
inline const QColor orange = QColor::fromRgbF(1.0F, 0.5F, 0.17F);
inline const QColor warmWhite = QColor::fromRgbF(1.0F, 0.95F, 0.86F);
inline const QColor mutedBeige = QColor::fromRgbF(0.75F, 0.71F, 0.65F);
inline const QColor fieldGrey = QColor(0x1f, 0x1f, 0x1f);  ///< what can be typed into, and the ground of pictures
inline const QColor shortShot = QColor(0xff, 0x6b, 0x5a);  ///< of shots below their minimum
inline const QColor outline = QColor(0x50, 0x4d, 0x49);    ///< borders of what can be used
inline const QColor usable = QColor(0x8f, 0xb9, 0x6a);     ///< of what can be cut
inline const QColor unusedGrey = QColor(0x77, 0x74, 0x70); ///< footage of cameras that are not in use

/// Sets the style, palette and style sheet of the program.
void apply(QApplication& application);

/// The program's icon.
[[nodiscard]] QIcon icon();

/// The user's decimal sign.
[[nodiscard]] std::string decimalSign();

} // namespace corvane::theme
