#include "workspace/window/window_place.h"

#include "base/error.h"

#include <QDataStream>
#include <QGuiApplication>
#include <QIODevice>
#include <QScreen>
#include <algorithm>

namespace corvane {

namespace {

constexpr quint32 placeMagic = 0x1D9D0CB; // the first value in data saved by the toolkit
constexpr quint16 placeVersion = 3;
constexpr int widthsMagic = 0xff;
const QMargins usualFrame = {8, 40, 8, 8};

/// A rectangle from any four numbers, limited so that arithmetic cannot overflow.
QRect tame(const QRect& rect)
{
    const auto within = [](int coordinate) {
        constexpr int far = 1 << 20;
        return std::clamp(coordinate, -far, far);
    };
    const QPoint corner(within(rect.left()), within(rect.top()));
    return {corner, QPoint(std::max(within(rect.right()), corner.x()), std::max(within(rect.bottom()), corner.y()))};
}

/// The window's frame, as far as the saved rectangles show it. The toolkit assumes a title bar of 20 pixels.
QMargins frameAround(const QRect& inner, const QRect& outer)
{
    const QMargins frame(
        inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
        outer.bottom() - inner.bottom());
    constexpr int most = 100;
    for (const int width : {frame.left(), frame.top(), frame.right(), frame.bottom()}) {
        if (width < 0 || width > most)
            return usualFrame;
    }
    return frame | QMargins(0, 20, 0, 0);
}

struct Side {
    int start;
    int length;
};
struct Borders {
    int before;
    int after;
};

/// Fits one dimension of a window into that of a screen, with room for any usual frame if the screen is large enough:
/// the saved frame may be as wrong as the position.
Side within(const Side& inner, const Side& screen, const Borders& frame, const Borders& usual)
{
    Borders room = {std::max(frame.before, usual.before), std::max(frame.after, usual.after)};
    if (inner.length + room.before + room.after > screen.length &&
        inner.length + frame.before + frame.after <= screen.length)
        room = frame;
    const int length = std::clamp(screen.length - room.before - room.after, 1, inner.length);
    const int first = screen.start + room.before;
    const int last = screen.start + screen.length - room.after - length;
    return {std::clamp(inner.start, first, std::max(first, last)), length};
}

int distance(const QRect& a, const QRect& b)
{
    return (a.center() - b.center()).manhattanLength();
}

int overlap(const QRect& a, const QRect& b)
{
    const QRect both = a & b;
    return both.width() * both.height(); // no screen is too large for an int
}

} // namespace

QRect placeOnScreen(const QRect& inner, const QMargins& frame, const QSize& smallest, const QList<QRect>& screens)
{
    const QRect outer = inner.marginsAdded(frame);
    const bool large = inner.width() >= smallest.width() && inner.height() >= smallest.height();
    if (large && std::ranges::any_of(screens, [&outer](const QRect& screen) { return screen.contains(outer); }))
        return inner;
    const QRect wanted(inner.topLeft(), inner.size().expandedTo(smallest));
    const QRect screen = *std::ranges::max_element(screens, [&wanted](const QRect& a, const QRect& b) {
        const int shownOfA = overlap(wanted, a);
        const int shownOfB = overlap(wanted, b);
        return shownOfA != shownOfB ? shownOfA < shownOfB : distance(wanted, a) > distance(wanted, b);
    });
    const Side across = within(
        {wanted.left(), wanted.width()}, {screen.left(), screen.width()}, {frame.left(), frame.right()},
        {usualFrame.left(), usualFrame.right()});
    const Side down = within(
        {wanted.top(), wanted.height()}, {screen.top(), screen.height()}, {frame.top(), frame.bottom()},
        {usualFrame.top(), usualFrame.bottom()});
    return {across.start, down.start, across.length, down.length};
}

QByteArray placeWithinScreens(const QByteArray& saved, const QSize& smallest, const QList<QRect>& screens)
{
    QDataStream in(saved);
    in.setVersion(QDataStream::Qt_4_0); // like the toolkit
    quint32 magic = 0;
    quint16 major = 0, minor = 0;
    QRect outer, normal, inner;
    qint32 screen = 0, screenWidth = 0;
    quint8 maximized = 0, fullScreen = 0;
    in >> magic >> major >> minor >> outer >> normal >> screen >> maximized >> fullScreen >> screenWidth >> inner;
    if (in.status() != QDataStream::Ok || magic != placeMagic || major != placeVersion)
        return {};
    constexpr quint8 yes = 1; // other values are damage, which must not lead to a full screen that nobody can leave
    maximized = maximized == yes ? yes : 0;
    fullScreen = fullScreen == yes ? yes : 0;
    const QMargins frame = frameAround(tame(inner), tame(outer));
    inner = placeOnScreen(tame(inner), frame, smallest, screens);
    normal = placeOnScreen(tame(normal), frame, smallest, screens);
    QByteArray place;
    QDataStream out(&place, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_4_0);
    out << magic << major << minor << inner.marginsAdded(frame) << normal << screen << maximized << fullScreen
        << screenWidth << inner;
    return place;
}

QList<QRect> usableScreens()
{
    constexpr int panel = 40;
    const bool untold = QGuiApplication::platformName().startsWith("wayland");
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const bool whole = screen->availableGeometry() == screen->geometry();
        screens << screen->availableGeometry().adjusted(0, 0, 0, untold && whole ? -panel : 0);
    }
    return screens;
}

QSize firstSize(const QSize& screen)
{
    return QSize(960, 860).boundedTo(QRect({}, screen).marginsRemoved(usualFrame).size());
}

QSize firstWindowSize()
{
    const QList<QRect> screens = usableScreens(); // the primary one first
    return firstSize(screens.isEmpty() ? QSize(1280, 800) : screens.front().size());
}

QList<int> savedWidths(const QByteArray& saved, int count)
{
    QDataStream in(saved);
    qint32 magic = 0, version = 0;
    quint32 size = 0;
    in >> magic >> version >> size;
    if (in.status() != QDataStream::Ok || magic != widthsMagic || size != static_cast<quint32>(count))
        return {};
    QList<int> widths;
    for (int i = 0; i < count; ++i) {
        qint32 width = 0;
        in >> width;
        constexpr int widest = 1 << 15;
        widths << std::clamp(width, 0, widest);
    }
    return in.status() == QDataStream::Ok ? widths : QList<int>();
}

QList<int> savedSizes(const UserDefaults& defaults, const std::string& key, const QSplitter& split)
{
    try {
        return savedWidths(QByteArray::fromStdString(defaults.value(key)), split.count());
    } catch (const PlatformError&) {
        return {};
    }
}

void saveSizes(UserDefaults& defaults, const std::string& key, const QSplitter& split)
{
    try {
        defaults.setValue(key, split.saveState().toStdString());
    } catch (const PlatformError&) {
        return;
    }
}

} // namespace corvane
