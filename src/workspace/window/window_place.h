#pragma once

#include "platform/user_defaults.h"

#include <QByteArray>
#include <QList>
#include <QMargins>
#include <QRect>
#include <QSplitter>
#include <string>

/// Where the window and its parts were. What is read comes from a file: a wrong byte must not put the window where
/// nobody sees it.
namespace corvane {

/// The place of a window without its frame: the one given where some screen shows it with the frame as a whole,
/// otherwise one near it on the screen that shows most of it, with room for any usual frame. `smallest` is the window's
/// own bound; `screens` are the rectangles that windows may use, at least one.
[[nodiscard]] QRect placeOnScreen(
    const QRect& inner, const QMargins& frame, const QSize& smallest, const QList<QRect>& screens);

/// What QWidget::saveGeometry has saved, with every place in it brought onto a screen. Empty when it cannot be read.
[[nodiscard]] QByteArray placeWithinScreens(
    const QByteArray& saved, const QSize& smallest, const QList<QRect>& screens);

/// What windows may use of each screen. Wayland does not tell what its panels take: one of a usual height is left free.
[[nodiscard]] QList<QRect> usableScreens();

/// How large a window without a saved place is, without its frame, on a screen of which windows may use `screen`.
[[nodiscard]] QSize firstSize(const QSize& screen);
/// The same on the screen at hand.
[[nodiscard]] QSize firstWindowSize();

/// The widths, or heights, that QSplitter::saveState has saved, and nothing else of it; none when they cannot be read
/// or are not `count` widths.
[[nodiscard]] QList<int> savedWidths(const QByteArray& saved, int count);

/// The widths or heights that were stored for a splitter; none when there are none, or they cannot be read: the usual
/// ones will do.
[[nodiscard]] QList<int> savedSizes(const UserDefaults& defaults, const std::string& key, const QSplitter& split);
/// Stores them; where that fails, the next window has the usual ones.
void saveSizes(UserDefaults& defaults, const std::string& key, const QSplitter& split);

} // namespace corvane
