#include "workspace/window/panels/cut_panel.h"

#include "workspace/captions.h"
#include "workspace/window/controls/into_view.h"
#include "workspace/window/controls/kept_lines.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <algorithm>
#include <array>

namespace corvane {

namespace {

/// The commands in the menus of strip and table.
constexpr std::array shotCommands = {Command::copyCutList, Command::hold, Command::release};

} // namespace

CutPanel::CutPanel(ContentView& view, const CameraMarks& marks, CommandActions& commands, QWidget* parent)
    : Panel(tr("Rough edit"), view, parent),
      marks_(marks),
      commands_(commands),
      pages_(new QStackedWidget(this)),
      empty_(helpLabel(tr("Generate an edit to preview the cuts here."), this)),
      summary_(new ElidedLabel({}, this)),
      strip_(new CutStrip(view, this)),
      shortShots_(new QPushButton(this)),
      model_(new CutTableModel(view, this)),
      table_(new CutTable(*model_, this)),
      generate_(new QPushButton(this)),
      back_(new QPushButton(this)),
      forward_(new QPushButton(this)),
      position_(new QPushButton(this)),
      export_(new QPushButton(this)),
      anotherCamera_(helpLabel(tr("Include another camera."), this)),
      carryOver_(new ElidedLabel({}, this)),
      status_(new QLabel(this)),
      saveError_(new QLabel(this))
{
    arrange();
    followAction(*generate_, commands.of(Command::generate));
    followAction(*back_, commands.of(Command::back));
    followAction(*forward_, commands.of(Command::forward));
    followAction(*export_, commands.of(Command::exportEdit));
    setTip(*position_, qt(entry(Command::showEdits).help));
    connect(position_, &QPushButton::clicked, &commands.of(Command::showEdits), &QAction::trigger);
    makeMenu();
    connectAll();
    setHelpTopic("cut-list");
}

void CutPanel::arrange()
{
    column().setSpacing(6); // so that a window of the default size shows the usage of eight cameras below
    auto* edit = new QWidget(pages_);
    auto* pictures = new QVBoxLayout(edit);
    pictures->setContentsMargins(0, 0, 0, 0);
    pictures->setSpacing(column().spacing());
    pictures->addWidget(summary_);
    pictures->addWidget(strip_, 1);
    shortShots_->setProperty("role", "link");
    shortShots_->setAutoDefault(true); // Return presses it too
    shortShots_->ensurePolished();     // so that its height is known before it is shown
    for (QWidget* line : {static_cast<QWidget*>(summary_), static_cast<QWidget*>(shortShots_)})
        keepPlace(*line);
    pictures->addWidget(shortShots_, 0, Qt::AlignLeft);
    pictures->addWidget(table_, 1);
    empty_->setAlignment(Qt::AlignCenter);
    pages_->addWidget(empty_);
    pages_->addWidget(edit);
    column().addWidget(pages_, 1);
    arrangeButtons();
    arrangeMessages();
}

/// Reserves three digits for the position, and the longer of its two texts for the first button.
void CutPanel::arrangeButtons()
{
    generate_->setProperty("role", "primary");
    generate_->setText(tr("&Generate rough edit"));
    generate_->ensurePolished();
    generate_->setMinimumWidth(generate_->sizeHint().width());
    position_->setProperty("role", "caption");
    position_->setText(tr("Edit %1 of %1").arg(888));
    position_->ensurePolished();
    constexpr int whatDigitsDiffer = 2; // pixels
    position_->setMinimumWidth(position_->sizeHint().width() + whatDigitsDiffer);
    position_->setText({});
    keepPlace(*position_);
    auto* first = new QHBoxLayout;
    first->addWidget(generate_, 1);
    first->addWidget(back_);
    first->addWidget(forward_);
    column().addLayout(first);
    auto* second = new QHBoxLayout;
    second->addWidget(position_);
    second->addWidget(export_, 1);
    column().addLayout(second);
}

void CutPanel::arrangeMessages()
{
    carryOver_->setProperty("role", "help");
    saveError_->setProperty("role", "warning");
    auto* notes = new QWidget(this);
    notes->setFixedHeight(carryOver_->fontMetrics().lineSpacing());
    auto* line = new QHBoxLayout(notes);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(anotherCamera_);
    line->addWidget(carryOver_, 1);
    line->addStretch();
    anotherCamera_->setWordWrap(false);
    column().addWidget(notes);
    auto* messages = new KeptLines(2, this);
    for (QLabel* message : {status_, saveError_}) {
        message->setWordWrap(true);
        message->setMinimumWidth(1); // like helpLabel
        message->setTextInteractionFlags(Qt::TextSelectableByMouse);
        messages->add(*message);
    }
    column().addWidget(messages);
}

/// Both have the same menu, so that it is the same wherever one points at a cut.
void CutPanel::makeMenu()
{
    auto* menu = new QMenu(this);
    const auto add = [menu](const QString& text, const QKeySequence& key, const std::function<void()>& work) {
        QAction* action = menu->addAction(text);
        action->setShortcut(key); // is shown; the widget with the focus takes the key
        action->setShortcutVisibleInContextMenu(true);
        connect(action, &QAction::triggered, menu, work);
        return action;
    };
    QAction* copy = add(tr("Copy"), QKeySequence::Copy, [this] { copyChosen(); });
    for (const Command command : shotCommands)
        menu->addAction(&commands_.of(command));
    menu->addSeparator();
    QAction* in = add(tr("Zoom In"), QKeySequence("+"), [this] { strip_->zoomIn(); });
    QAction* out = add(tr("Zoom Out"), QKeySequence("-"), [this] { strip_->zoomOut(); });
    QAction* fit = add(tr("Fit"), QKeySequence("Shift+Z"), [this] { strip_->fit(); });
    showTips(*menu);
    connect(menu, &QMenu::aboutToShow, this, [this, copy, in, out, fit] {
        copy->setEnabled(!table_->chosen().positions.empty());
        in->setEnabled(strip_->canZoomIn());
        out->setEnabled(!strip_->showsAll());
        fit->setEnabled(!strip_->showsAll());
    });
    const auto showOver = [menu](QWidget& widget, const QWidget& picture) {
        widget.setContextMenuPolicy(Qt::CustomContextMenu);
        connect(&widget, &QWidget::customContextMenuRequested, menu, [menu, &picture](const QPoint& place) {
            menu->popup(picture.mapToGlobal(place));
        });
    };
    showOver(*strip_, *strip_);
    showOver(*table_, *table_->viewport());
}

void CutPanel::connectAll()
{
    strip_->leaveKeysTo(*table_);
    connect(shortShots_, &QPushButton::clicked, this, [this] { goToNextShortShot(); });
    connect(strip_, &CutStrip::picked, this, [this](int position, Frames frame, Qt::KeyboardModifiers held) {
        chosen_ = frame; // anywhere within the shot
        table_->choose(position, held);
        followTable(); // to another frame of the same cut
        table_->scrollTo(model_->index(position, 0), QAbstractItemView::PositionAtCenter);
    });
    connect(table_, &CutTable::chosenChanged, this, [this] {
        followTable();
        tellChosen();
    });
    connect(table_, &CutTable::copyWanted, this, [this] { copyChosen(); });
}

/// A cut that was chosen in the table, or with keys, comes into view in the strip.
void CutPanel::followTable()
{
    const ChosenCuts chosen = table_->chosen();
    const auto current = static_cast<std::size_t>(chosen.current);
    const auto& cuts = view_.state().cuts();
    if (chosen.current >= 0 && !(chosen_ && cutAt(cuts, *chosen_) == current)) {
        chosen_ = cuts[current].start;
        strip_->reveal(current, {cuts[current].start, cuts[current].start + cuts[current].duration});
    }
    strip_->mark(chosen, chosen_);
}

void CutPanel::copyChosen()
{
    const std::vector<std::size_t> chosen = table_->chosen().positions;
    if (!chosen.empty())
        QGuiApplication::clipboard()->setText(qt(cutLines(view_, chosen, theme::decimalSign())));
}

void CutPanel::refresh(const Changes& changes)
{
    if (has(changes, Changed::loaded)) {
        chosen_.reset();
        top_ = 0;
        table_->scrollToTop();
        strip_->fit();
        const auto& loaded = view_.state().loaded;
        const auto line = loaded ? carryOverLine(loaded->engine) : std::nullopt;
        showText(*carryOver_, line.value_or(""));
        carryOver_->setVisible(line.has_value());
    }
    if (has(changes, Changed::loaded) || has(changes, Changed::cuts))
        showCuts();
    showTexts();
}

void CutPanel::showCuts()
{
    const bool any = !view_.state().cuts().empty();
    if (const int row = table_->rowAt(0); row >= 0) {
        top_ = model_->startOf(row);
        rememberChosen();
    }
    model_->show(marks_);
    strip_->show(marks_);
    if (table_->underMouse())
        hideTip(); // it belongs to the previous edit
    pages_->setCurrentIndex(any ? 1 : 0);
    showShortShots();
    if (any)
        restoreView();
    tellChosen(); // the table forgets its selection without a signal
}

/// A current cut that is not chosen stands back for the first one that is.
void CutPanel::rememberChosen()
{
    const ChosenCuts chosen = table_->chosen();
    if (!chosen_ || chosen.positions.empty()) {
        chosen_.reset();
        return;
    }
    int row = chosen.current;
    if (!std::ranges::binary_search(chosen.positions, static_cast<std::size_t>(row))) {
        row = static_cast<int>(chosen.positions.front());
        chosen_ = model_->startOf(row);
    }
    const int above = table_->rowViewportPosition(row);
    const int height = table_->rowHeight(row);
    linesAbove_.reset();
    if (above > -height && above < table_->viewport()->height())
        linesAbove_ = std::max(0, above) / height;
}

/// To the commands that work on the chosen cuts.
void CutPanel::tellChosen()
{
    commands_.setChosenCuts(table_->chosen().positions);
}

/// Restores the table's scroll position, and chooses the shot at the chosen frame in this edit too, at the height where
/// the last one was seen.
void CutPanel::restoreView()
{
    for (QWidget* page : {static_cast<QWidget*>(pages_), pages_->currentWidget()})
        page->layout()->activate(); // so that the table has its height and its scroll bar the right range
    const auto row = [this](Frames frame) {
        return model_->index(static_cast<int>(cutAt(view_.state().cuts(), frame)), 0);
    };
    table_->scrollTo(row(top_), QAbstractItemView::PositionAtTop);
    if (!chosen_)
        return;
    const QModelIndex chosen = row(*chosen_);
    table_->choose(chosen.row());
    if (linesAbove_)
        table_->scrollTo(model_->index(std::max(0, chosen.row() - *linesAbove_), 0), QAbstractItemView::PositionAtTop);
    table_->scrollTo(chosen);
    strip_->reveal(static_cast<std::size_t>(chosen.row()), {*chosen_, *chosen_ + 1});
}

void CutPanel::showShortShots()
{
    short_ = shortShots(view_, editMarks(view_));
    shortShots_->setText(qt(shortShotsText(short_.size())).replace("your", "&your"));
    shortShots_->setVisible(!short_.empty());
}

/// Selects the next one after the selected row; after the last, the first.
void CutPanel::goToNextShortShot()
{
    const int row = table_->currentIndex().row(); // -1 if none is selected
    const auto isLater = [row](std::size_t position) { return static_cast<int>(position) > row; };
    const auto later = std::ranges::find_if(short_, isLater);
    const auto next = static_cast<int>(later == short_.end() ? short_.front() : *later);
    strip_->revealInMiddle(static_cast<std::size_t>(next));
    table_->choose(next);
    table_->scrollTo(model_->index(next, 0), QAbstractItemView::PositionAtCenter);
}

void CutPanel::showTexts()
{
    const auto show = [](QLabel& label, const std::optional<std::string>& text) {
        showMessage(label, text.value_or(""));
        label.setVisible(text && !text->empty());
    };
    show(*summary_, summaryLine(view_));
    const std::string& audio = view_.state().settings.audio;
    summary_->setName({summary_->text().size() - shown(view_.angleLabel(audio)).size(), marks_.of(audio).telling});
    const auto position = positionCaption(view_);
    showText(*position_, position.value_or(""));
    position_->setVisible(position.has_value());
    anotherCamera_->setVisible(asksForAnotherCamera(view_));
    show(*status_, view_.state().status);
    show(*saveError_, view_.state().sessionSaveError);
    if (view_.state().sessionSaveError)
        bringIntoView(*saveError_); // rather than the end of a long status
}

} // namespace corvane
