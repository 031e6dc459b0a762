#pragma once

#include "workspace/content_view.h"

#include <QColor>
#include <QIcon>
#include <QString>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace corvane {

/// How a camera is told apart wherever it is drawn: by its colour, by a letter where colours are not seen, and by its
/// name.
struct CameraMark {
    QColor color;
    QString letter;        ///< "A" for the first camera of the project; "AA" after "Z"
    qsizetype telling = 0; ///< where its label differs from the others', as NamePlace::telling
};

/// The marks of the loaded project's cameras, which are its angles with video, in project order.
class CameraMarks {
public:
    CameraMarks() = default;
    explicit CameraMarks(const ContentView& view);

    /// A grey one without a letter for an unknown camera.
    [[nodiscard]] const CameraMark& of(std::string_view camera) const;
    /// A chip in the camera's colour with its letter.
    [[nodiscard]] QIcon chip(std::string_view camera) const;

private:
    std::map<std::string, CameraMark, std::less<>> marks_;
};

/// Draws the chip of a mark; `size` in device-independent pixels.
[[nodiscard]] QPixmap chipPixmap(const CameraMark& mark, int size, double pixelRatio);

} // namespace corvane
