#include "workspace/window/pictures/cut_strip.h"

#include "timecode/timecode.h"
#include "workspace/captions.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QAccessible>
#include <QHelpEvent>
#include <algorithm>
#include <map>
#include <utility>

namespace corvane {

CutStrip::CutStrip(const ContentView& view, QWidget* parent)
    : QWidget(parent),
      view_(view),
      timeBar_(new QScrollBar(Qt::Horizontal, this)),
      laneBar_(new QScrollBar(Qt::Vertical, this)),
      gutter_(new QWidget(this))
{
    setAccessibleName(tr("The whole edit"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    timeBar_->setAccessibleName(tr("Visible part of the edit"));
    laneBar_->setAccessibleName(tr("Visible cameras"));
    for (QScrollBar* bar : {timeBar_, laneBar_}) {
        bar->setProperty("thin", true);
        bar->setVisible(false);
        bar->setCursor(Qt::ArrowCursor);
    }
    gutter_->setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(timeBar_, &QScrollBar::valueChanged, this, [this](int first) {
        time_.scrollTo(first);
        update();
    });
    connect(laneBar_, &QScrollBar::valueChanged, this, [this] {
        placeLetters();
        update();
    });
}

void CutStrip::show(const CameraMarks& marks)
{
    marks_ = marks;
    asked_ = editMarks(view_);
    reasons_ = EditReasons(view_);
    short_ = shortShots(view_, asked_);
    chosen_ = {};
    const auto& loaded = view_.state().loaded;
    if (std::exchange(markersOf_, loaded) != loaded)
        markers_ = loaded ? clipMarkers(loaded->engine) : std::vector<ClipMarker>();
    if (loaded)
        time_.setLength(loaded->engine.length);
    findLanes();
    describe();
    limitHeight();
    if (underMouse())
        hideTip(); // it belongs to the previous edit
    showChange();
}

void CutStrip::findLanes()
{
    std::vector<std::string> cameras;
    for (const ImportedAngle& angle : view_.videoAngles())
        cameras.push_back(angle.id);
    std::map<std::string_view, std::size_t> laneOfCamera;
    for (std::size_t lane = 0; lane < cameras.size(); ++lane)
        laneOfCamera.emplace(cameras[lane], lane);
    cutLanes_.clear();
    for (const Cut& cut : view_.state().cuts()) {
        const auto lane = laneOfCamera.find(cut.angle);
        cutLanes_.push_back(lane == laneOfCamera.end() ? cameras.size() : lane->second);
    }
    cameras_ = std::move(cameras);
    while (letters_.size() > cameras_.size()) {
        delete letters_.back();
        letters_.pop_back();
    }
    while (letters_.size() < cameras_.size()) {
        letters_.push_back(new QLabel(gutter_));
        letters_.back()->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        letters_.back()->setVisible(true);
    }
    for (std::size_t lane = 0; lane < cameras_.size(); ++lane) {
        QPalette palette = letters_[lane]->palette();
        palette.setColor(QPalette::WindowText, marks_.of(cameras_[lane]).color);
        letters_[lane]->setPalette(palette);
        letters_[lane]->setText(marks_.of(cameras_[lane]).letter);
        setSpokenName(*letters_[lane], view_.angleLabel(cameras_[lane]));
    }
}

void CutStrip::describe()
{
    QString more;
    if (!short_.empty())
        more += " " + qt(shortShotsText(short_.size())) + ".";
    if (!markers_.empty())
        more += " " + qt(markersInWords(view_.state().loaded->engine, markers_));
    setAccessibleDescription(
        tr("%1 cuts on %2 cameras. The table below has the same cuts. Left and "
           "Right go from cut to cut, Home and End to "
           "the first and the last, plus and minus zoom, Shift+Z shows all.")
            .arg(cutLanes_.size())
            .arg(cameras_.size()) +
        more);
}

void CutStrip::mark(const ChosenCuts& chosen, std::optional<Frames> frame)
{
    const bool moved = chosen.current != chosen_.current;
    chosen_ = chosen;
    frame_ = frame;
    update();
    if (!moved || !QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent value(this, chosen_.current + 1);
    QAccessible::updateAccessibility(&value);
}

void CutStrip::pick(std::size_t position)
{
    if (position >= view_.state().cuts().size())
        return;
    const Cut& cut = view_.state().cuts()[position];
    emit picked(static_cast<int>(position), cut.start, {});
    reveal(position, {cut.start, cut.start + cut.duration});
}

QString CutStrip::currentInWords() const
{
    const auto& cuts = view_.state().cuts();
    if (chosen_.current < 0 || chosen_.current >= static_cast<int>(cuts.size()))
        return {};
    const Cut& cut = cuts[static_cast<std::size_t>(chosen_.current)];
    return tr("Cut %1 of %2, %3, %4, %5 sec")
        .arg(chosen_.current + 1)
        .arg(cuts.size())
        .arg(
            qt(startLabel(view_, cut)), qt(view_.angleLabel(cut.angle)),
            qt(durationLabel(view_, cut, theme::decimalSign())));
}

QString CutStrip::factsAt(const QPoint& place) const
{
    for (std::size_t number = 0; number < cameras_.size() && place.x() < lanes().left(); ++number) {
        if (lanes().top() <= place.y() && lane(number).adjusted(-lanes().left(), 0, 0, 0).contains(place))
            return shown(view_.angleLabel(cameras_[number]));
    }
    const auto frame = frameAt(place);
    if (!frame)
        return {};
    const CutEngine& engine = view_.state().loaded->engine;
    const auto marker = markerAt(place.x(), scale(), markers_);
    return place.y() < lanes().top() && marker ? markerFacts(engine, *marker)
                                               : facts(cutAt(view_.state().cuts(), *frame));
}

QString CutStrip::facts(std::size_t position) const
{
    const Cut& cut = view_.state().cuts()[position];
    QString text = qt(startLabel(view_, cut)) + "\n" + shown(view_.angleLabel(cut.angle)) + "\n" +
                   tr("%1 sec").arg(qt(durationLabel(view_, cut, theme::decimalSign())));
    if (const std::string reasons = reasons_.line(position); !reasons.empty())
        text += "\n" + shown(reasons);
    if (std::ranges::binary_search(short_, position))
        text += "\n" + qt(shortShotText);
    return text;
}

bool CutStrip::event(QEvent* event)
{
    if (const auto* help = dynamic_cast<QHelpEvent*>(event); help != nullptr && help->type() == QEvent::ToolTip) {
        showTip(help->globalPos(), factsAt(help->pos()), *this);
        return true;
    }
    return QWidget::event(event);
}

} // namespace corvane
