#include "workspace/window/panels/sections_panel.h"

#include "workspace/captions.h"
#include "workspace/window/controls/into_view.h"
#include "workspace/window/qt_text.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <algorithm>

namespace corvane {

SectionsPanel::SectionsPanel(ContentView& view, QWidget* parent)
    : Panel(tr("Fixed camera sections"), view, parent),
      add_(new QPushButton(tr("Add sec&tion"), this)),
      rowsColumn_(new QVBoxLayout)
{
    addHelp(tr("Hold one camera for a prayer, reading or presentation. Use the project's timecodes. Audio continues "
               "unchanged. These sections are restored with your session but are not saved in presets."));
    column().addWidget(add_, 0, Qt::AlignLeft);
    column().addLayout(rowsColumn_);
    connect(add_, &QPushButton::clicked, this, [this] {
        const std::size_t before = rows_.size();
        view_.addSection();
        if (rows_.size() <= before)
            return;
        rows_.back().name->setFocus();
        bringIntoView(*rows_.back().holder);
    });
}

void SectionsPanel::refresh(const Changes& changes)
{
    if (!has(changes, Changed::settings) && !has(changes, Changed::loaded))
        return;
    matchRows();
    std::vector<Picker::Entry> cameras;
    for (const ImportedAngle& angle : view_.videoAngles())
        cameras.push_back({angle.id, view_.angleLabel(angle.id)});
    for (std::size_t i = 0; i < rows_.size(); ++i)
        showRow(rows_[i], settings().sections[i], cameras);
}

/// One row a draft, in list order. A row stays with its draft, and with it the focus and the caret.
void SectionsPanel::matchRows()
{
    std::vector<Row> before = std::exchange(rows_, {});
    for (const SectionDraft& draft : settings().sections) {
        const auto found = std::ranges::find(before, draft.id, &Row::id);
        if (found != before.end()) {
            rows_.push_back(*found);
            before.erase(found);
        } else {
            rows_.push_back(makeRow(draft));
        }
        const int position = static_cast<int>(rows_.size()) - 1;
        if (rowsColumn_->indexOf(rows_.back().holder) != position) {
            rowsColumn_->removeWidget(rows_.back().holder);
            rowsColumn_->insertWidget(position, rows_.back().holder);
        }
    }
    for (const Row& row : before) {
        rowsColumn_->removeWidget(row.holder);
        row.holder->hide();
        row.holder->deleteLater(); // its own button may be what is being clicked
    }
}

SectionsPanel::Row SectionsPanel::makeRow(const SectionDraft& draft)
{
    auto* holder = new QFrame(this);
    holder->setProperty("role", "row");
    const auto judge = [this, id = draft.id](const std::string& text) {
        const auto section = std::ranges::find(settings().sections, id, &SectionDraft::id);
        return section == settings().sections.end() ? std::nullopt : timecodeAdvice(view_, *section, text);
    };
    const Row row = {
        draft.id,
        holder,
        new QLineEdit(holder),
        new Picker(holder),
        new TimecodeField(tr("Start"), judge, holder),
        new TimecodeField(tr("End"), judge, holder),
        new QPushButton(tr("Remove"), holder)};
    row.name->setAcceptDrops(false); // files are for the window
    row.name->setPlaceholderText(tr("Section name (optional)"));
    row.name->setAccessibleName(tr("Section name (optional)"));
    auto* rows = new QVBoxLayout(holder);
    auto* choice = new QHBoxLayout;
    choice->addWidget(labelFor(*row.camera, tr("Camera"), holder));
    choice->addWidget(row.camera, 1);
    rows->addWidget(row.name);
    rows->addLayout(choice);
    rows->addWidget(row.start);
    rows->addWidget(row.end);
    rows->addWidget(row.remove, 0, Qt::AlignRight); // last: nobody comes across it on the way to the times
    connectRow(row);
    return row;
}

void SectionsPanel::connectRow(const Row& row)
{
    const Identifier id = row.id;
    connect(
        row.name, &QLineEdit::textChanged, this, [this, id](const QString& text) { // typed, or put there for a person
            editDraft(id, [name = utf8(text)](SectionDraft& draft) { draft.name = name; });
        });
    connect(row.camera, &Picker::picked, this, [this, id](const std::string& camera) {
        editDraft(id, [camera](SectionDraft& draft) { draft.camera = camera; });
    });
    connect(row.start, &TimecodeField::typed, this, [this, id](const std::string& text) {
        editDraft(id, [text](SectionDraft& draft) { draft.start = text; });
    });
    connect(row.end, &TimecodeField::typed, this, [this, id](const std::string& text) {
        editDraft(id, [text](SectionDraft& draft) { draft.end = text; });
    });
    connect(row.remove, &QPushButton::clicked, this, [this, id] {
        const auto& sections = settings().sections;
        const auto position =
            static_cast<std::size_t>(std::ranges::find(sections, id, &SectionDraft::id) - sections.begin());
        view_.removeSection(position);
        // A text field would take the focus that the row had, and with it the key for Undo.
        QPushButton* next = rows_.empty() ? add_ : rows_[std::min(position, rows_.size() - 1)].remove;
        next->setFocus();
    });
}

void SectionsPanel::editDraft(const Identifier& id, const std::function<void(SectionDraft&)>& change)
{
    edit([id, change](EditSettings& settings) {
        const auto found = std::ranges::find(settings.sections, id, &SectionDraft::id);
        if (found != settings.sections.end())
            change(*found);
    });
}

void SectionsPanel::showRow(const Row& row, const SectionDraft& draft, const std::vector<Picker::Entry>& cameras)
{
    if (utf8(row.name->text()) != draft.name) {
        const QSignalBlocker blocker(row.name);
        row.name->setText(qt(draft.name));
    }
    row.camera->show(cameras, draft.camera);
    row.start->show(draft.start);
    row.end->show(draft.end);
}

} // namespace corvane
