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

/// What distinguishes a camera wherever it is drawn: its colour, a letter for people who do not see colours, and its
/// name.
struct CameraMark {
    QColor color;
    QString letter;        ///< "A" for the first camera of the project; "AA" after "Z"
    qsizetype telling = 0; ///< where its label differs from the others', see NamePlace::telling
    QIcon chip;            ///< none for an unknown camera, whose chip is drawn when it is asked for
};

/// The marks of the loaded project's cameras (its angles with video), in project order.
class CameraMarks {
public:
    CameraMarks() = default;
    explicit CameraMarks(const ContentView& view);

    /// For an unknown camera, a grey mark without a letter.
    [[nodiscard]] const CameraMark& of(std::string_view camera) const;
    /// A chip in the camera's colour with its letter.
    [[nodiscard]] QIcon chip(std::string_view camera) const;

private:
    std::map<std::string, CameraMark, std::less<>> marks_;
};

/// Draws the chip of a mark; `size` in device-independent pixels.
[[nodiscard]] QPixmap chipPixmap(const CameraMark& mark, int size, double pixelRatio);

} // namespace corvane
