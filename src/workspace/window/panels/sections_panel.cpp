#include "workspace/window/panels/sections_panel.h"

#include "workspace/captions.h"
#include "workspace/window/controls/into_view.h"
#include "workspace/window/controls/undo_keys.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <algorithm>

namespace corvane {

namespace {

/// A button that the second press of a double click does not press: by then the next row's button is under the pointer.
class RemoveButton : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }
};

} // namespace

/// The controls of one section.
struct SectionsPanel::Row : QFrame {
    Row(const Identifier& draft, const TimecodeField::Judge& judge, QWidget* parent)
        : QFrame(parent),
          id(draft),
          name(new QLineEdit(this)),
          camera(new Picker(this)),
          start(new TimecodeField(SectionsPanel::tr("Start"), judge, this)),
          end(new TimecodeField(SectionsPanel::tr("End"), judge, this)),
          remove(new RemoveButton(SectionsPanel::tr("Remove"), this))
    {
    }

    Identifier id;
    QLineEdit* name;
    Picker* camera;
    TimecodeField* start;
    TimecodeField* end;
    QPushButton* remove;
};

SectionsPanel::SectionsPanel(ContentView& view, QWidget* parent)
    : Panel(tr("Fixed camera sections"), view, parent),
      add_(new QPushButton(tr("Add sec&tion"), this)),
      rows_(new ReservedRows([this](const std::string& key, QWidget* in) { return makeRow(key, in); }, this))
{
    addHelp(tr("Hold one camera for a prayer, reading or presentation. Use the project's timecodes. Audio continues "
               "unchanged. These sections are restored with your session but are not saved in presets."));
    column().addWidget(add_, 0, Qt::AlignLeft);
    column().addWidget(rows_);
    connect(add_, &QPushButton::clicked, this, [this] {
        const int before = rows_->count();
        view_.addSection();
        if (rows_->count() <= before)
            return;
        auto* added = static_cast<Row*>(rows_->row(before));
        added->name->setFocus();
        bringIntoView(*added);
    });
}

void SectionsPanel::refresh(const Changes& changes)
{
    if (!has(changes, Changed::settings) && !has(changes, Changed::loaded))
        return;
    cameras_.clear();
    for (const ImportedAngle& angle : view_.videoAngles())
        cameras_.push_back({angle.id, view_.angleLabel(angle.id)});
    std::vector<std::string> keys;
    for (const SectionDraft& draft : settings().sections)
        keys.push_back(draft.id.text());
    rows_->setKeys(keys);
    for (const auto& [position, row] : rows_->rows())
        showRow(*static_cast<Row*>(row), settings().sections[static_cast<std::size_t>(position)]);
}

SectionsPanel::Row* SectionsPanel::makeRow(const std::string& key, QWidget* parent)
{
    const Identifier id = Identifier::parse(key).value_or(Identifier());
    const auto judge = [this, id](const std::string& text) {
        const auto section = std::ranges::find(settings().sections, id, &SectionDraft::id);
        return section == settings().sections.end() ? std::nullopt : timecodeAdvice(view_, *section, text);
    };
    auto* row = new Row(id, judge, parent);
    row->setProperty("role", "row");
    row->name->setAcceptDrops(false); // files are dropped on the window
    leaveUndoToWindow(*row->name);
    row->name->setPlaceholderText(tr("Section name (optional)"));
    row->name->setAccessibleName(tr("Section name (optional)"));
    auto* rows = new QVBoxLayout(row);
    auto* choice = new QHBoxLayout;
    choice->addWidget(labelFor(*row->camera, tr("Camera"), row));
    choice->addWidget(row->camera, 1);
    rows->addWidget(row->name);
    rows->addLayout(choice);
    rows->addWidget(row->start);
    rows->addWidget(row->end);
    rows->addWidget(row->remove, 0, Qt::AlignRight); // last, so that it is not on the way to the times
    connectRow(*row);
    const auto draft = std::ranges::find(settings().sections, id, &SectionDraft::id);
    if (draft != settings().sections.end())
        showRow(*row, *draft);
    return row;
}

void SectionsPanel::connectRow(const Row& row)
{
    const Identifier id = row.id;
    connect(
        row.name, &QLineEdit::textChanged, this, [this, id](const QString& text) { // typed or set by another program
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
        // Otherwise the toolkit would give the focus of the removed row to a field somewhere else.
        const int left = rows_->count();
        const int next = std::min(static_cast<int>(position), left - 1);
        (left == 0 ? add_ : static_cast<Row*>(rows_->row(next))->remove)->setFocus();
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

void SectionsPanel::showRow(const Row& row, const SectionDraft& draft)
{
    showWhole(*row.name, draft.name);
    row.camera->show(cameras_, draft.camera);
    row.start->show(draft.start);
    row.end->show(draft.end);
}

} // namespace corvane
