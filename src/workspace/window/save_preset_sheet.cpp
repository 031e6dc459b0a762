#include "workspace/window/save_preset_sheet.h"

#include "workspace/window/command_actions.h"
#include "workspace/window/qt_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace corvane {

SavePresetSheet::SavePresetSheet(ContentView& view, QAction& save, QWidget* parent)
    : QDialog(parent), view_(view), name_(new QLineEdit(this)), save_(new QPushButton(this))
{
    setWindowTitle(tr("Save preset"));
    setWindowModality(Qt::WindowModal);
    setMinimumWidth(360);
    auto* column = new QVBoxLayout(this);
    auto* title = new QLabel(tr("Save preset"), this);
    title->setProperty("role", "title");
    column->addWidget(title);
    name_->setPlaceholderText(tr("Name, such as Sunday sermon"));
    name_->setAccessibleName(tr("Name, such as Sunday sermon"));
    column->addWidget(name_);
    auto* buttons = new QHBoxLayout;
    auto* cancel = new QPushButton(tr("&Cancel"), this);
    cancel->setAutoDefault(false);
    save_->setDefault(true);
    save_->setProperty("role", "primary");
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    buttons->addWidget(save_);
    column->addLayout(buttons);
    connect(cancel, &QPushButton::clicked, this, &SavePresetSheet::reject);
    followAction(*save_, save);
    connect(name_, &QLineEdit::textChanged, this, [this](const QString& text) { // typed or set by assistive technology
        view_.edit([name = utf8(text)](WorkspaceState& state) { state.presetName = name; });
    });
}

void SavePresetSheet::refresh()
{
    const WorkspaceState& state = view_.state();
    if (utf8(name_->text()) != state.presetName) {
        const QSignalBlocker blocker(name_);
        name_->setText(qt(state.presetName));
    }
    if (state.showSavePreset == isVisible())
        return;
    if (state.showSavePreset) {
        name_->setFocus();
        open();
    } else {
        QDialog::reject();
    }
}

/// Escape and the window's close button mean Cancel.
void SavePresetSheet::reject()
{
    view_.edit([](WorkspaceState& state) { state.showSavePreset = false; });
}

} // namespace corvane
