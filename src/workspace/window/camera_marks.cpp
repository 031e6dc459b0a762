#include "workspace/window/camera_marks.h"

#include "workspace/window/elision.h"
#include "workspace/window/qt_text.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <array>

namespace corvane {

namespace {

/// Adjacent colours differ in hue and lightness. From the seventeenth camera on, the colours repeat, darker.
constexpr std::array<QRgb, 16> colors = {0xff5aa9e6, 0xffe8b04b, 0xff6cc28b, 0xffd977a6, 0xff9d8df1, 0xffcfd86b,
                                         0xff4fc1c0, 0xffe2795d, 0xffb7c9e2, 0xffb98a5e, 0xff8bd450, 0xffc99bdc,
                                         0xff5f86d9, 0xfff2d8a7, 0xff3e9c74, 0xffef9fb0};

CameraMark markAt(std::size_t position, qsizetype telling)
{
    CameraMark mark;
    mark.telling = telling;
    mark.color = QColor(colors.at(position % colors.size()));
    if (position >= colors.size())
        mark.color = mark.color.darker(140);
    constexpr std::size_t letters = 26;
    for (std::size_t rest = position + 1; rest > 0; rest = (rest - 1) / letters)
        mark.letter.prepend(QChar('A' + static_cast<char>((rest - 1) % letters)));
    return mark;
}

} // namespace

CameraMarks::CameraMarks(const ContentView& view)
{
    const std::vector<ImportedAngle> angles = view.videoAngles();
    std::vector<QString> labels;
    labels.reserve(angles.size());
    for (const ImportedAngle& angle : angles)
        labels.push_back(shown(view.angleLabel(angle.id)));
    const std::vector<qsizetype> places = tellingPlaces(labels);
    for (std::size_t position = 0; position < angles.size(); ++position)
        marks_.emplace(angles[position].id, markAt(position, places[position]));
}

const CameraMark& CameraMarks::of(std::string_view camera) const
{
    static const CameraMark unknown = {QColor(0x88, 0x88, 0x88), QString(), 0};
    const auto found = marks_.find(camera);
    return found == marks_.end() ? unknown : found->second;
}

QIcon CameraMarks::chip(std::string_view camera) const
{
    constexpr int size = 18;
    QIcon icon;
    for (const int pixelRatio : {1, 2}) {
        for (const auto mode : {QIcon::Normal, QIcon::Selected}) // styles would tint the icon in selected rows
            icon.addPixmap(chipPixmap(of(camera), size, pixelRatio), mode);
    }
    return icon;
}

QPixmap chipPixmap(const CameraMark& mark, int size, double pixelRatio)
{
    const int pixels = static_cast<int>(size * pixelRatio);
    QPixmap pixmap(pixels, pixels);
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark.color);
    painter.drawRoundedRect(QRectF(0.5, 0.5, size - 1, size - 1), 4, 4);
    QFont font = QGuiApplication::font();
    font.setPixelSize(mark.letter.size() > 1 ? size * 5 / 10 : size * 7 / 10);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(0x16, 0x16, 0x16));
    painter.drawText(QRectF(0, 0, size, size), Qt::AlignCenter, mark.letter);
    return pixmap;
}

} // namespace corvane
