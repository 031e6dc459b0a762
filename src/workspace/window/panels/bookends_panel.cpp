#include "workspace/window/panels/bookends_panel.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

namespace corvane {

BookendsPanel::BookendsPanel(ContentView& view, QWidget* parent) : Panel(tr("Opening and closing shots"), view, parent)
{
    add(tr("&Opening"), {&EditSettings::openingEnabled, &EditSettings::openingCamera, &EditSettings::openingSeconds});
    add(tr("&Closing"), {&EditSettings::closingEnabled, &EditSettings::closingCamera, &EditSettings::closingSeconds});
    addHelp(tr("These lengths override random pacing and doubling, rounded to the nearest frame. A neighbouring shot "
               "on the same camera can make the visible hold longer."));
}

void BookendsPanel::add(const QString& title, Fields fields)
{
    auto* enabled = new QCheckBox(title, this);
    auto* camera = new Picker(this);
    auto* length = new Stepper("", stepsWithin(limits::bookendLength, 1), this);
    for (QWidget* control : {static_cast<QWidget*>(camera), static_cast<QWidget*>(&length->box())})
        control->setAccessibleDescription(QString(title).remove('&'));
    column().addWidget(enabled);
    auto* choice = new QHBoxLayout;
    QLabel* cameraLabel = labelFor(*camera, tr("Camera"), this);
    choice->addWidget(cameraLabel);
    choice->addWidget(camera, 1);
    choice->addWidget(length);
    column().addLayout(choice);
    connect(enabled, &QCheckBox::toggled, this, [this, fields](bool on) {
        edit([fields, on](EditSettings& settings) { settings.*fields.enabled = on; });
    });
    connect(camera, &Picker::picked, this, [this, fields](const std::string& id) {
        edit([fields, id](EditSettings& settings) { settings.*fields.camera = id; });
    });
    connect(length, &Stepper::chosen, this, [this, fields](double seconds) {
        edit([fields, seconds](EditSettings& settings) { settings.*fields.seconds = seconds; });
    });
    bookends_.push_back({fields, enabled, cameraLabel, camera, length});
}

void BookendsPanel::refresh(const Changes& changes)
{
    if (!has(changes, Changed::settings) && !has(changes, Changed::loaded))
        return;
    std::vector<Picker::Entry> cameras;
    for (const ImportedAngle& angle : view_.videoAngles())
        cameras.push_back({angle.id, view_.angleLabel(angle.id)});
    for (const Bookend& bookend : bookends_) {
        const QSignalBlocker blocker(bookend.enabled);
        const bool on = settings().*bookend.fields.enabled;
        bookend.enabled->setChecked(on);
        for (QWidget* each :
             {static_cast<QWidget*>(bookend.cameraLabel), static_cast<QWidget*>(bookend.camera),
              static_cast<QWidget*>(bookend.length)})
            each->setEnabled(on); // changing values without effect would only clear the edit
        bookend.camera->show(cameras, settings().*bookend.fields.camera);
        bookend.length->show(settings().*bookend.fields.seconds);
    }
}

} // namespace corvane
