#pragma once

#include "import/cut_engine.h"

#include <QColor>
#include <QString>
#include <QWidget>
#include <vector>

namespace corvane {

/// A bar for the whole project, coloured where there is footage. Its description says the same in words.
class CoverageBar : public QWidget {
    Q_OBJECT
public:
    explicit CoverageBar(QWidget* parent = nullptr);

    /// What a bar shows: ranges in frames of a project of `length` frames, a letter in the first range that is wide
    /// enough for it, and a description in words.
    struct Content {
        Frames length = 1;
        std::vector<FrameRange> stretches;
        QColor color;
        QString letter;
        QString words;
        bool operator==(const Content&) const = default;
    };
    void show(const Content& content);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    Content content_;
};

} // namespace corvane
