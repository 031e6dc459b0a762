#pragma once

#include "import/cut_engine.h"

#include <QColor>
#include <QString>
#include <QWidget>
#include <vector>

namespace corvane {

/// A bar over the whole project: coloured where there is footage. Its description tells the same in words.
class CoverageBar : public QWidget {
    Q_OBJECT
public:
    explicit CoverageBar(QWidget* parent = nullptr);

    /// Stretches in frames of the engine's project; the letter is written into the first stretch that holds it.
    void show(
        const CutEngine& engine, const std::vector<FrameRange>& stretches, const QColor& color, const QString& letter);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    Frames length_ = 1;
    std::vector<FrameRange> stretches_;
    QColor color_;
    QString letter_;
};

} // namespace corvane
