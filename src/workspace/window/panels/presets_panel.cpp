#include "workspace/window/panels/presets_panel.h"

#include "workspace/captions.h"
#include "workspace/window/controls/kept_lines.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/tooltips.h"

#include <QHBoxLayout>

namespace corvane {

PresetsPanel::PresetsPanel(ContentView& view, QWidget* parent)
    : Panel(tr("Saved presets"), view, parent),
      picker_(new Picker(this)),
      apply_(new QPushButton(tr("&Apply"), this)),
      saveAs_(new QPushButton(tr("Sa&ve as…"), this)),
      update_(new QPushButton(tr("&Update"), this)),
      delete_(new QPushButton(tr("De&lete"), this)),
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
    for (QPushButton* button : {apply_, saveAs_, update_, delete_})
        buttons->addWidget(button, 1);
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
    connect(apply_, &QPushButton::clicked, this, [this] {
        if (const auto preset = view_.chosenPreset())
            view_.applyPreset(*preset);
    });
    connect(saveAs_, &QPushButton::clicked, this, [this] { view_.beginSavePreset(); });
    connect(update_, &QPushButton::clicked, this, [this] { view_.savePreset(ContentView::PresetSave::update); });
    connect(delete_, &QPushButton::clicked, this, [this] { view_.deletePreset(); });
    connect(startNewList_, &QPushButton::clicked, this, [this] { view_.startNewPresetList(); });
}

void PresetsPanel::refresh(const Changes& changes)
{
    if (has(changes, Changed::presets)) {
        std::vector<Picker::Entry> entries = {{"", utf8(tr("Choose a preset"))}};
        for (const EditPreset& preset : view_.presets().presets())
            entries.push_back({preset.id.text(), preset.name});
        picker_->show(entries, view_.state().chosenPreset);
    }
    const Enabling enabled = enabling(view_);
    const Hints why = hints(view_);
    const auto show = [this](QPushButton& button, bool on, const std::optional<std::string>& hint) {
        if (!on && window()->focusWidget() == &button)
            picker_->setFocus(); // otherwise the toolkit would move the focus to another panel and scroll there
        button.setEnabled(on);
        setTip(button, qt(hint.value_or("")));
    };
    show(*apply_, enabled.apply, why.apply);
    show(*saveAs_, enabled.saveAs, why.saveAs);
    show(*update_, enabled.update, why.update);
    show(*delete_, enabled.deletePreset, why.deletePreset);
    startNewList_->setVisible(!view_.presets().canBeRead());
    showMessage(*notice_, view_.state().presetNotice);
    notice_->setVisible(!view_.state().presetNotice.empty());
}

} // namespace corvane
