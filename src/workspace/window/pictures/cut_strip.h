#pragma once

#include "import/clip_markers.h"
#include "workspace/shot_facts.h"
#include "workspace/window/camera_marks.h"
#include "workspace/window/cut_table.h"
#include "workspace/window/pictures/time_window.h"

#include <QLabel>
#include <QScrollBar>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

/// The edit in one picture: one lane per camera on the project's time axis, with opening, closing and fixed shots
/// marked. It shows all of the edit or, zoomed in, a part of it, down to single frames; lanes that do not fit can be
/// scrolled. A click picks a cut; pointing at one shows its details.
class CutStrip : public QWidget {
    Q_OBJECT
public:
    explicit CutStrip(const ContentView& view, QWidget* parent = nullptr);

    /// Shows the controller's cut list, in the same part of the project as before if it is as long.
    void show(const CameraMarks& marks);
    /// Marks the chosen cuts; `frame` is where the keyboard zooms.
    void mark(const ChosenCuts& chosen, std::optional<Frames> frame);
    /// Scrolls until these frames, which belong to the cut at `position`, and the cut's lane are visible.
    void reveal(std::size_t position, const FrameRange& frames);
    /// The same for a cut that somebody has asked for; it comes into the middle unless it is in view.
    void revealInMiddle(std::size_t position);
    /// Gives the keys that go through the cuts, choose or copy them to the table of the same cuts.
    void leaveKeysTo(CutTable& table) { table_ = &table; }

    /// Zooms at the chosen frame or, if there is none, in the middle.
    void zoomIn();
    void zoomOut();
    /// Shows all of the edit.
    void fit();
    [[nodiscard]] bool canZoomIn() const;
    [[nodiscard]] bool showsAll() const { return time_.showsAll(); }

    [[nodiscard]] int cuts() const { return static_cast<int>(cutLanes_.size()); }
    [[nodiscard]] const ChosenCuts& marked() const { return chosen_; }
    /// The current cut for assistive technology, such as "Cut 3 of 12, 00:00:20:00, A, 8.2 sec".
    [[nodiscard]] QString currentInWords() const;
    /// Lets the user pick a cut without a pointer.
    void pick(std::size_t position);

    [[nodiscard]] QSize sizeHint() const override;

signals:
    /// The user picked project frame `frame`, which is in the cut at `position`, while holding these keys.
    void picked(int position, corvane::Frames frame, Qt::KeyboardModifiers held);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    // Contents and texts.
    void findLanes();
    void describe();
    [[nodiscard]] QString factsAt(const QPoint& place) const;
    [[nodiscard]] QString facts(std::size_t position) const;

    // What of it is visible, and where.
    void limitHeight();
    void arrange();
    void placeLetters();
    void zoom(double factor, double anchor);
    void zoomByKey(double factor);
    void showChange();
    [[nodiscard]] int narrowestLane() const;
    [[nodiscard]] double laneHeight() const;
    [[nodiscard]] QRectF lanes() const; ///< what is visible of them
    [[nodiscard]] QRectF axis() const;
    [[nodiscard]] TimeScale scale() const;
    [[nodiscard]] QRectF lane(std::size_t number) const;
    [[nodiscard]] QRectF laneOf(const std::string& camera) const;
    [[nodiscard]] QRectF stretch(const FrameRange& frames, const QRectF& lane, double least) const;
    [[nodiscard]] QRectF stretch(std::size_t position, const QRectF& lane, double least) const;
    [[nodiscard]] std::pair<std::size_t, std::size_t> visibleCuts() const; ///< half-open
    [[nodiscard]] std::optional<Frames> frameAt(const QPoint& place) const;

    void paintLanes(QPainter& painter) const;
    void paintCuts(QPainter& painter) const;
    void paintMarks(QPainter& painter) const;
    void paintShortShots(QPainter& painter) const;
    void paintWords(QPainter& painter) const;
    void paintChosen(QPainter& painter) const;
    void paintSkimmer(QPainter& painter) const;

    const ContentView& view_;
    CutTable* table_ = nullptr;
    CameraMarks marks_;
    EditMarks asked_;
    EditReasons reasons_;
    std::shared_ptr<const LoadedDocument> markersOf_; ///< the project of the markers
    std::vector<ClipMarker> markers_;
    std::vector<std::size_t> short_;
    std::vector<std::string> cameras_;  ///< one lane each, from the top
    std::vector<std::size_t> cutLanes_; ///< of each cut; beyond the last for an unknown camera
    ChosenCuts chosen_;
    std::optional<Frames> frame_;
    TimeWindow time_;
    QScrollBar* timeBar_;
    QScrollBar* laneBar_;
    QWidget* gutter_; ///< with the letters of the lanes
    std::vector<QLabel*> letters_;
    std::optional<int> pointer_; ///< where the skimmer stands, if the pointer is over the lanes or the axis
};

} // namespace corvane
