#pragma once

#include "platform/user_defaults.h"

#include <QByteArray>
#include <QList>
#include <QMargins>
#include <QRect>
#include <QSplitter>
#include <string>

/// Restores the position of the window and its parts. The data comes from a file, and a wrong byte must not put the
/// window where nobody can see it.
namespace corvane {

/// The position of a window without its frame: `inner` if one screen shows all of it including the frame, otherwise a
/// position nearby on the screen that shows most of it, with room for any usual frame. `smallest` is the window's
/// minimum size; `screens` are the rectangles that windows may use, at least one.
[[nodiscard]] QRect placeOnScreen(
    const QRect& inner, const QMargins& frame, const QSize& smallest, const QList<QRect>& screens);

/// The data of QWidget::saveGeometry, with every position in it moved onto a screen. Empty if it cannot be read.
[[nodiscard]] QByteArray placeWithinScreens(
    const QByteArray& saved, const QSize& smallest, const QList<QRect>& screens);

/// The part of each screen that windows may use. Wayland does not say how much its panels take, so room for one of the
/// usual height is left free.
[[nodiscard]] QList<QRect> usableScreens();

/// The size, without its frame, of a window that has no saved position, if windows may use `screen`.
[[nodiscard]] QSize firstSize(const QSize& screen);
/// The same for the primary screen.
[[nodiscard]] QSize firstWindowSize();

/// Only the widths, or heights, from the data of QSplitter::saveState; none if they cannot be read or are not `count`
/// values.
[[nodiscard]] QList<int> savedWidths(const QByteArray& saved, int count);

/// The stored widths or heights of a splitter; none if there are none or they cannot be read, in which case the
/// defaults are good enough.
[[nodiscard]] QList<int> savedSizes(const UserDefaults& defaults, const std::string& key, const QSplitter& split);
/// Stores them. If that fails, the next window has the default ones.
void saveSizes(UserDefaults& defaults, const std::string& key, const QSplitter& split);

} // namespace corvane
