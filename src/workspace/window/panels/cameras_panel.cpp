#include "workspace/window/panels/cameras_panel.h"

#include "base/numbers.h"
#include "workspace/captions.h"
#include "workspace/window/controls/kept_lines.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/tooltips.h"

#include <QFormLayout>
#include <QGridLayout>
#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr StepRange returnTimeSteps = stepsWithin(limits::returnTime, 10);
constexpr StepRange frequencies = stepsWithin(limits::frequency, 1);

QString weightText(double weight)
{
    return CamerasPanel::tr("Frequency: %1").arg(qt(fixed(std::round(weight), 0)));
}

QString percentText(int percent)
{
    return CamerasPanel::tr("%1% of additional camera choices").arg(percent);
}

/// A layout for the lines of one camera, close together.
QVBoxLayout* linesIn(QWidget& holder)
{
    auto* lines = new QVBoxLayout(&holder);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    return lines;
}

} // namespace

CamerasPanel::CamerasPanel(ContentView& view, const CameraMarks& marks, QWidget* parent)
    : Panel(tr("Cameras and audio"), view, parent),
      marks_(marks),
      main_(new Picker(this)),
      audio_(new Picker(this)),
      mainReturnTime_(new Stepper(utf8(tr("Wait before returning to main camera")), returnTimeSteps, this)),
      cameraRows_(new QVBoxLayout),
      frequencyRows_(new QVBoxLayout),
      tooFew_(nullptr),
      frequencyHelp_(nullptr)
{
    auto* choices = new QFormLayout;
    choices->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    choices->addRow(labelFor(*main_, tr("&Main camera"), this), main_);
    choices->addRow(labelFor(*audio_, tr("Co&ntinuous audio"), this), audio_);
    column().addLayout(choices);
    column().addWidget(mainReturnTime_);
    addHeading(tr("Additional cameras"));
    cameraRows_->setSpacing(0);
    column().addLayout(cameraRows_);
    addHelp(tr("The wait starts when a camera's shot ends. For example, a 120 sec wait means a shot ending at 05:00 "
               "can return at 07:00 or later. It does not set the shot length. Zero means no waiting."));
    addHelp(tr("Fixed sections and opening or closing shots take priority over these waits. A shot may run longer "
               "while other cameras wait."));
    tooFew_ = helpLabel(
        tr("Frequency needs at least 3 included cameras: the main camera and 2 others. With 2 cameras, use the main "
           "camera balance."),
        this);
    frequencyHelp_ = helpLabel(
        tr("Higher numbers choose this camera more often between main camera shots. The percentage compares additional "
           "camera choices when footage is available, not total screen time."),
        this);
    auto* oneOrTheOther = new QGridLayout;
    for (QLabel* help : {tooFew_, frequencyHelp_}) {
        keepPlace(*help);
        oneOrTheOther->addWidget(help, 0, 0, Qt::AlignTop);
    }
    column().addLayout(oneOrTheOther);
    frequencyRows_->setSpacing(0);
    column().addLayout(frequencyRows_);

    connect(main_, &Picker::picked, this, [this](const std::string& id) { view_.selectMainCamera(id); });
    connect(audio_, &Picker::picked, this, [this](const std::string& id) {
        edit([id](EditSettings& settings) { settings.audio = id; });
    });
    connect(mainReturnTime_, &Stepper::chosen, this, [this](double seconds) {
        edit([seconds](EditSettings& settings) { settings.returnTimes[settings.mainCamera] = seconds; });
    });
}

void CamerasPanel::refresh(const Changes& changes)
{
    if (has(changes, Changed::loaded))
        build();
    if (!view_.state().loaded || !(has(changes, Changed::loaded) || has(changes, Changed::settings)))
        return;
    std::vector<Picker::Entry> mains;
    mains.reserve(cameras_.size());
    for (const Camera& camera : cameras_)
        mains.push_back({camera.id, view_.angleLabel(camera.id)});
    main_->show(mains, settings().mainCamera);
    std::vector<Picker::Entry> sounds = {{"", utf8(tr("Choose audio"))}};
    for (const AudioChoice& choice : audioChoices(view_))
        sounds.push_back({choice.id, choice.label});
    audio_->show(sounds, settings().audio);
    mainReturnTime_->show(returnTimeOf(settings().returnTimes, settings().mainCamera));
    const auto percents = frequencyPercents(view_);
    const bool matter = frequenciesMatter(view_);
    for (const Camera& camera : cameras_)
        showCamera(camera, percents, matter);
    tooFew_->setVisible(!matter);
    frequencyHelp_->setVisible(matter);
}

void CamerasPanel::build()
{
    for (const Camera& camera : cameras_) {
        delete camera.holder;
        delete camera.frequencyHolder;
    }
    cameras_.clear();
    for (const ImportedAngle& angle : view_.videoAngles())
        addCamera(angle);
}

void CamerasPanel::addCamera(const ImportedAngle& angle)
{
    const std::string label = view_.angleLabel(angle.id);
    Camera camera{};
    camera.id = angle.id;
    camera.holder = new QWidget(this);
    QVBoxLayout* rows = linesIn(*camera.holder);
    camera.included = new ElidedCheckBox(camera.holder);
    showText(*camera.included, label);
    camera.included->setIcon(marks_.chip(angle.id));
    setTip(*camera.included, std::vector{label});
    camera.included->setTelling(marks_.of(angle.id).telling);
    camera.returnTime = new Stepper(utf8(tr("Wait before returning to this camera")), returnTimeSteps, camera.holder);
    camera.returnTime->box().setAccessibleDescription(qt(label));
    rows->addWidget(camera.included);
    rows->addWidget(camera.returnTime);
    keepPlace(*camera.returnTime);
    cameraRows_->addWidget(camera.holder);
    addFrequency(camera, label);

    const std::string id = angle.id;
    connect(camera.included, &QCheckBox::toggled, this, [this, id](bool on) {
        view_.setCameraIncluded(id, on ? ContentView::Inclusion::included : ContentView::Inclusion::excluded);
    });
    connect(camera.returnTime, &Stepper::chosen, this, [this, id](double seconds) {
        edit([id, seconds](EditSettings& settings) { settings.returnTimes[id] = seconds; });
    });
    connect(camera.frequency, &StepSlider::chosen, this, [this, id](int weight) {
        edit([id, weight](EditSettings& settings) { settings.frequencies[id] = weight; });
    });
    cameras_.push_back(camera);
}

void CamerasPanel::addFrequency(Camera& camera, const std::string& label)
{
    camera.frequencyHolder = new QWidget(this);
    QVBoxLayout* rows = linesIn(*camera.frequencyHolder);
    camera.frequency = new StepSlider(frequencies, camera.frequencyHolder);
    camera.weight = new QLabel(camera.frequencyHolder);
    camera.percent = helpLabel({}, camera.frequencyHolder);
    camera.percent->setWordWrap(false);
    auto* name = new ElidedLabel({}, camera.frequencyHolder);
    name->setBuddy(camera.frequency);
    const QString before = tr("Frequency for ");
    showText(*name, utf8(before) + label);
    name->setName({before.size(), marks_.of(camera.id).telling});
    camera.frequency->setAccessibleName(name->accessibleName());
    // Reserves the widest texts, so that the slider keeps its width while it is dragged.
    for (const auto& [text, widest] :
         {std::pair(camera.weight, weightText(limits::frequency.highest)), {camera.percent, percentText(100)}})
        text->setMinimumWidth(text->fontMetrics().horizontalAdvance(widest));
    constexpr int gap = 8;
    auto* first = new QHBoxLayout;
    first->setSpacing(gap);
    first->addWidget(camera.weight);
    first->addWidget(name, 1);
    rows->addLayout(first);
    auto* second = new QHBoxLayout;
    second->setSpacing(gap);
    second->addWidget(camera.frequency, 1);
    second->addWidget(camera.percent);
    rows->addLayout(second);
    frequencyRows_->addWidget(camera.frequencyHolder);
}

void CamerasPanel::showCamera(const Camera& camera, const std::map<std::string, int>& percents, bool frequenciesMatter)
{
    const auto percent = percents.find(camera.id);
    const bool included = percent != percents.end();
    const bool isMain = camera.id == settings().mainCamera;
    camera.holder->setVisible(!isMain);
    keepPlace(*camera.frequencyHolder, !isMain);
    {
        const QSignalBlocker blocker(camera.included);
        camera.included->setChecked(included);
    }
    camera.returnTime->setVisible(included);
    camera.returnTime->show(returnTimeOf(settings().returnTimes, camera.id));
    camera.frequencyHolder->setVisible(included && frequenciesMatter);
    const double weight = frequencyOf(settings().frequencies, camera.id);
    camera.weight->setText(weightText(weight));
    camera.frequency->show(weight);
    camera.percent->setText(percentText(included ? percent->second : 0));
}

} // namespace corvane
