#include "workspace/window/camera_marks.h"

#include "analysis/camera_colors.h"
#include "workspace/window/elision.h"
#include "workspace/window/qt_text.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>

namespace corvane {

namespace {

QIcon chipOf(const CameraMark& mark)
{
    constexpr int size = 18;
    QIcon icon;
    for (const int pixelRatio : {1, 2}) {
        for (const auto mode : {QIcon::Normal, QIcon::Selected}) // styles would tint the icon in selected rows
            icon.addPixmap(chipPixmap(mark, size, pixelRatio), mode);
    }
    return icon;
}

/// From the seventeenth camera on, the colours repeat, darker.
CameraMark markAt(std::size_t position, qsizetype telling)
{
    CameraMark mark;
    mark.telling = telling;
    mark.color = QColor(QRgb{cameraColors.at(position % cameraColors.size())});
    if (position >= cameraColors.size())
        mark.color = mark.color.darker(140);
    mark.letter = qt(cameraLetter(position));
    mark.chip = chipOf(mark);
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
    static const CameraMark unknown = {QColor(0x88, 0x88, 0x88), QString(), 0, {}};
    const auto found = marks_.find(camera);
    return found == marks_.end() ? unknown : found->second;
}

QIcon CameraMarks::chip(std::string_view camera) const
{
    const CameraMark& mark = of(camera);
    return mark.chip.isNull() ? chipOf(mark) : mark.chip;
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
