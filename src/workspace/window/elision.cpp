#include "workspace/window/elision.h"

#include "workspace/captions.h"
#include "workspace/window/qt_text.h"

#include <algorithm>
#include <numeric>

namespace corvane {

namespace {

/// The length of the common beginning of both texts.
qsizetype sharedStart(const QString& one, const QString& other)
{
    return std::ranges::mismatch(one, other).in1 - one.begin();
}

/// True inside a number or between the two code units of a character, neither of which may be split.
bool insideUnit(const QString& text, qsizetype place)
{
    return text[place].isLowSurrogate() || (text[place].isDigit() && text[place - 1].isDigit());
}

qsizetype startOfUnit(const QString& text, qsizetype place)
{
    place = std::min(place, text.size() - 1);
    while (place > 0 && insideUnit(text, place))
        --place;
    return std::max<qsizetype>(0, place);
}

qsizetype endOfUnit(const QString& text, qsizetype place)
{
    qsizetype end = std::min(place + 1, text.size());
    while (end < text.size() && insideUnit(text, end))
        ++end;
    return end;
}

QString noteOf(const QString& text)
{
    for (const std::string_view note : {excludedNote, gapsNote}) {
        if (text.endsWith(qt(note)))
            return qt(note);
    }
    return {};
}

/// The name with "…" in its middle, or earlier if the middle distinguishes it from others.
QString elidedName(const QFontMetrics& metrics, const QString& name, int width, qsizetype telling)
{
    const QString plain = metrics.elidedText(name, Qt::ElideMiddle, width);
    const qsizetype head = sharedStart(plain, name);
    const qsizetype tail = name.size() - (plain.size() - head - 1);
    if (endOfUnit(name, telling) <= head || telling >= tail)
        return plain;
    const QString end = name.mid(telling);
    const int room = width - metrics.horizontalAdvance(end);
    if (room < metrics.horizontalAdvance("…"))
        return metrics.elidedText("…" + end, Qt::ElideRight, width);
    return metrics.elidedText(name.first(telling), Qt::ElideMiddle, room) + end;
}

} // namespace

std::vector<qsizetype> tellingPlaces(const std::vector<QString>& names)
{
    std::vector<std::size_t> order(names.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::sort(order, {}, [&names](std::size_t i) { return names[i]; });
    std::vector<qsizetype> places(names.size(), 0);
    for (std::size_t i = 1; i < order.size(); ++i) { // the most similar name is a neighbour in this order
        const qsizetype shared = sharedStart(names[order[i - 1]], names[order[i]]);
        for (const std::size_t name : {order[i - 1], order[i]})
            places[name] = std::max(places[name], shared);
    }
    for (std::size_t i = 0; i < names.size(); ++i)
        places[i] = startOfUnit(names[i], places[i]);
    return places;
}

QString elided(const QFontMetrics& metrics, const QString& text, int width, const NamePlace& name)
{
    if (metrics.horizontalAdvance(text) <= width)
        return text;
    const QString before = text.first(std::clamp<qsizetype>(name.begin, 0, text.size()));
    const QString note = noteOf(text);
    const int room = width - metrics.horizontalAdvance(before) - metrics.horizontalAdvance(note);
    if (before.size() + note.size() > text.size() || room < metrics.horizontalAdvance("M…M"))
        return metrics.elidedText(text, Qt::ElideMiddle, width);
    return before + elidedName(metrics, text.mid(before.size()).chopped(note.size()), room, name.telling) + note;
}

} // namespace corvane
