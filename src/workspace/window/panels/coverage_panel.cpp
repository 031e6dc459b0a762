#include "workspace/window/panels/coverage_panel.h"

#include "workspace/captions.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QHBoxLayout>

namespace corvane {

CoveragePanel::CoveragePanel(ContentView& view, const CameraMarks& marks, QWidget* parent)
    : Panel(tr("Recording coverage"), view, parent),
      marks_(marks),
      grid_(nullptr),
      rowsHolder_(new QWidget(this)),
      gapsText_(helpLabel({}, this)),
      usableText_(helpLabel({}, this)),
      missing_(new ElidedLabel({}, this)),
      warning_(helpLabel({}, this)),
      notes_(helpLabel({}, this)),
      notesPlace_(new KeptLines(3, this))
{
    setFocusPolicy(Qt::TabFocus); // a single stop, because nothing in it can be changed
    addHelp(tr("Coloured sections have footage. Empty sections are gaps. All bars use the same project timecode."));
    column().addWidget(rowsHolder_);
    missing_->setProperty("role", "help");
    warning_->setProperty("role", "warning");
    notes_->setProperty("role", "warning");
    auto* place = new KeptLines(6, this);
    for (QLabel* text : {gapsText_, usableText_, warning_})
        place->add(*text);
    column().addWidget(place);
    notesPlace_->add(*notes_);
    column().addWidget(notesPlace_);
    column().addWidget(missing_);
    auto* check = new QPushButton(tr("Check project…"), this);
    setTip(*check, tr("What can be cut, where to blade, and what an export will refuse"));
    column().addWidget(check, 0, Qt::AlignLeft);
    connect(check, &QPushButton::clicked, this, &CoveragePanel::checkWanted);
    setHelpTopic("recording-coverage");
}

void CoveragePanel::refresh(const Changes& changes)
{
    if (has(changes, Changed::loaded))
        build();
    if (!view_.state().loaded || !(has(changes, Changed::loaded) || has(changes, Changed::settings)))
        return;
    showUse();
    showGaps();
    showCheck();
    const auto warning = setupWarning(view_, theme::decimalSign());
    showMessage(*warning_, warning.value_or(""));
    warning_->setVisible(warning.has_value());
}

void CoveragePanel::build()
{
    videoRows_.clear();
    delete rowsHolder_->layout();
    qDeleteAll(rowsHolder_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
    grid_ = new QGridLayout(rowsHolder_);
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setVerticalSpacing(0); // the bars leave a margin of their own
    grid_->setColumnStretch(1, 1);
    const auto& loaded = view_.state().loaded;
    if (!loaded)
        return;
    auto* first = new QHBoxLayout; // a row of its own, with more room than beside the bars
    first->setSpacing(12);
    grid_->addLayout(first, 0, 0, 1, 2);
    first->addWidget(new QLabel(tr("Project"), rowsHolder_));
    auto* project = new ElidedLabel({}, rowsHolder_);
    showText(*project, projectLine(view_, theme::decimalSign()));
    first->addWidget(project, 1);
    auto* axis = new TimeAxis(rowsHolder_);
    axis->show(loaded->engine);
    grid_->addWidget(axis, 1, 1);
    for (const ImportedAngle& angle : view_.videoAngles()) {
        Row row = addRow(angle.id);
        row.label->setFacts({angleFacts(angle)});
        videoRows_.push_back(row);
    }
    audio_ = addRow("");
    gaps_ = addRow("");
    gaps_.label->setText(tr("Selected video gaps"));
    usable_ = addRow("");
    usable_.label->setText(tr("Usable"));
    const auto& missing = loaded->imported.missingLocations;
    std::string line = utf8(tr("Media without a location: "));
    for (const std::string& name : missing)
        line += (&name == &missing.front() ? "" : ", ") + name;
    showText(*missing_, line);
    missing_->setFacts(missing);
    missing_->setVisible(!missing.empty());
    shareWidth();
}

void CoveragePanel::resizeEvent(QResizeEvent* event)
{
    Panel::resizeEvent(event);
    shareWidth();
}

/// Gives the labels the width that their names need, but keeps most of the panel for the bars.
void CoveragePanel::shareWidth()
{
    constexpr int percent = 45;
    for (ElidedLabel* label : rowsHolder_->findChildren<ElidedLabel*>()) {
        if (label->buddy() != nullptr)
            label->setMaximumWidth(width() * percent / 100);
    }
}

CoveragePanel::Row CoveragePanel::addRow(const std::string& camera)
{
    const Row row = {camera, new ElidedLabel({}, rowsHolder_), new CoverageBar(rowsHolder_)};
    row.label->setBuddy(row.bar);
    const int position = grid_->rowCount();
    grid_->addWidget(row.label, position, 0);
    grid_->addWidget(row.bar, position, 1);
    return row;
}

void CoveragePanel::showUse()
{
    const CutEngine& engine = view_.state().loaded->engine;
    const auto inUse = camerasInUse(view_);
    for (const Row& row : videoRows_) {
        const bool used = inUse.contains(row.camera);
        const std::string label = coverageLabel(view_, row.camera, used);
        showText(*row.label, label);
        setSpokenName(*row.bar, label); // the name from the buddy label would lose every "&"
        row.label->setEnabled(used);
        const CameraMark& mark = marks_.of(row.camera);
        row.label->setName({0, mark.telling});
        const auto& stretches = engine.videoRanges(row.camera);
        row.bar->show(
            {engine.length, stretches, used ? mark.color : theme::unusedGrey, mark.letter,
             qt(footageInWords(engine, stretches))});
    }
    const std::string& audio = settings().audio;
    const QString before = tr("Audio: ");
    const std::string label = utf8(before) + (audio.empty() ? "" : view_.angleLabel(audio));
    showText(*audio_.label, label);
    audio_.label->setName({before.size(), marks_.of(audio).telling});
    setSpokenName(*audio_.bar, label);
    const auto& sound = engine.audioRanges(audio);
    audio_.bar->show({engine.length, sound, theme::mutedBeige, {}, qt(footageInWords(engine, sound))});
}

void CoveragePanel::showGaps()
{
    const CutEngine& engine = view_.state().loaded->engine;
    const auto gaps = videoGaps(view_);
    const std::vector<FrameRange> stretches = gaps.value_or(std::vector<FrameRange>());
    gaps_.bar->show(
        {engine.length, stretches, theme::orange, {}, gaps ? qt(gapsInWords(engine, stretches)) : QString()});
    gapsText_->setText(qt(videoGapsText(view_)));
    gapsText_->setVisible(gaps.has_value());
}

/// Notes come and go with the audio angle and the bookends, in a place that the project keeps for them.
void CoveragePanel::showCheck()
{
    const CutEngine& engine = view_.state().loaded->engine;
    checked_.refresh(view_, theme::decimalSign());
    const auto& usable = checked_.check().usable;
    const std::vector<FrameRange> stretches = usable ? usable->offered : std::vector<FrameRange>();
    usable_.bar->show(
        {engine.length, stretches, theme::usable, {}, usable ? qt(usableInWords(engine, *usable)) : QString()});
    const std::string text = checked_.usableText();
    showMessage(*usableText_, text);
    usableText_->setVisible(!text.empty());
    showMessages(*notes_, checked_.notes());
    notesPlace_->setVisible(checked_.mayHaveNotes());
}

} // namespace corvane
