#pragma once

#include "import/clip_markers.h"
#include "workspace/shot_facts.h"
#include "workspace/window/camera_marks.h"
#include "workspace/window/pictures/time_axis.h"

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// The whole edit in one picture: one lane per camera on the project's time axis, with opening, closing and fixed shots
/// marked. A click picks the cut at that position; hovering shows its details.
class CutStrip : public QWidget {
    Q_OBJECT
public:
    explicit CutStrip(const ContentView& view, QWidget* parent = nullptr);

    /// Shows the controller's cut list.
    void show(const CameraMarks& marks);
    /// Marks the cut at this position; a position outside the list marks none.
    void select(int position);

signals:
    /// The user clicked project frame `frame`, which is in the cut at `position`.
    void picked(int position, corvane::Frames frame);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QRectF lanes() const;
    [[nodiscard]] TimeScale scale() const;
    [[nodiscard]] QString factsAt(const QPoint& place) const;
    [[nodiscard]] QRectF laneOf(const std::string& camera) const;
    [[nodiscard]] std::optional<Frames> frameAt(const QPoint& place) const;
    [[nodiscard]] QString facts(std::size_t position) const;
    void paintLanes(QPainter& painter) const;
    void paintCuts(QPainter& painter) const;
    void paintMarks(QPainter& painter) const;
    void paintShortShots(QPainter& painter) const;
    void paintSelection(QPainter& painter) const;

    const ContentView& view_;
    CameraMarks marks_;
    EditMarks asked_;
    EditReasons reasons_;
    std::vector<ClipMarker> markers_;
    std::vector<std::size_t> short_;
    std::vector<std::string> cameras_;  ///< one lane each, from the top
    std::vector<std::size_t> cutLanes_; ///< of each cut; beyond the last for an unknown camera
    int selected_ = -1;
};

} // namespace corvane
