#include "workspace/window/panels/presets_panel.h"

#include "workspace/window/controls/kept_lines.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"

#include <QHBoxLayout>

namespace corvane {

PresetsPanel::PresetsPanel(ContentView& view, const CommandActions& commands, QWidget* parent)
    : Panel(tr("Saved presets"), view, parent),
      picker_(new Picker(this)),
      startNewList_(new QPushButton(tr("&Start a New List…"), this)),
      notice_(helpLabel({}, this))
{
    addHelp(tr("Saves camera balance, shot length ranges, longer holds and angle names on this Mac. Apply restores a "
               "saved setup; Update saves your current changes."));
    auto* choice = new QHBoxLayout;
    choice->addWidget(labelFor(*picker_, tr("&Preset"), this));
    choice->addWidget(picker_, 1);
    column().addLayout(choice);
    auto* buttons = new QHBoxLayout;
    using enum Command;
    for (const Command command : {applyPreset, savePresetAs, updatePreset, deletePreset})
        buttons->addWidget(makeButton(commands.of(command)), 1);
    column().addLayout(buttons);
    notice_->setProperty("role", "notice");
    auto* place = new KeptLines(2, this);
    place->add(*notice_);
    auto* messages = new QHBoxLayout;
    messages->addWidget(place, 1);
    messages->addWidget(startNewList_);
    column().addLayout(messages);

    connect(picker_, &Picker::picked, this, [this](const std::string& id) {
        view_.edit([id](WorkspaceState& state) { state.chosenPreset = id; });
    });
    connect(startNewList_, &QPushButton::clicked, this, [this] { view_.startNewPresetList(); });
}

QPushButton* PresetsPanel::makeButton(QAction& action)
{
    auto* button = new QPushButton(this);
    connect(&action, &QAction::changed, button, [this, button, &action] {
        if (!action.isEnabled() && window()->focusWidget() == button)
            picker_->setFocus(); // the toolkit would take it to another panel, and scroll there
    });
    followAction(*button, action);
    return button;
}

void PresetsPanel::refresh(const Changes& changes)
{
    if (has(changes, Changed::presets)) {
        std::vector<Picker::Entry> entries = {{"", utf8(tr("Choose a preset"))}};
        for (const EditPreset& preset : view_.presets().presets())
            entries.push_back({preset.id.text(), preset.name});
        picker_->show(entries, view_.state().chosenPreset);
    }
    startNewList_->setVisible(!view_.presets().canBeRead());
    showMessage(*notice_, view_.state().presetNotice);
    notice_->setVisible(!view_.state().presetNotice.empty());
}

} // namespace corvane
