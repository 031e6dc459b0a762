#include "workspace/window/main_window.h"

#include "base/error.h"
#include "workspace/captions.h"
#include "workspace/window/action_watch.h"
#include "workspace/window/area_keys.h"
#include "workspace/window/controls/step_box.h"
#include "workspace/window/drop_view.h"
#include "workspace/window/mime_pasteboard.h"
#include "workspace/window/panels/bookends_panel.h"
#include "workspace/window/panels/cameras_panel.h"
#include "workspace/window/panels/coverage_panel.h"
#include "workspace/window/panels/cut_panel.h"
#include "workspace/window/panels/pacing_panel.h"
#include "workspace/window/panels/presets_panel.h"
#include "workspace/window/panels/sections_panel.h"
#include "workspace/window/panels/usage_panel.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/tab_order.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"
#include "workspace/window/window_place.h"

#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QWindow>

namespace corvane {

namespace {

const std::string geometryKey = "Corvane.window.geometry";
const std::string splitKey = "Corvane.window.split";
const std::string resultSplitKey = "Corvane.window.resultSplit";

/// The dashed line around the window while files hover over it.
class DropOutline : public QWidget {
public:
    explicit DropOutline(QWidget* parent) : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr double lineWidth = 3;
        constexpr double dash = 10;
        QPen pen(theme::orange, lineWidth);
        pen.setCapStyle(Qt::FlatCap); // other styles make the dashes longer
        pen.setDashPattern({dash / lineWidth, dash / lineWidth});
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawRoundedRect(QRectF(rect()).adjusted(6, 6, -6, -6), 12, 12);
    }
};

/// A splitter appends its children in the order in which they are added, and screen readers follow that order.
void keepReadingOrder(QSplitter& split)
{
    for (int i = 0; i < split.count(); ++i)
        split.widget(i)->raise();
}

} // namespace

MainWindow::MainWindow(MainWindowServices services)
    : services_(std::move(services)),
      helpWindow_(services_.resources, services_.defaults),
      aboutWindow_(services_.bundle, [this] { helpWindow_.show(); })
{
    setWindowTitle("Corvane");
    commands_ = new CommandActions(services_.view, services_.updater, this);
    new ActionWatch(services_.view, this);
    setAcceptDrops(true);
    resize(firstWindowSize());
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(12, 8, 12, 8);
    column->addWidget(makeHeader());
    pages_ = new QStackedWidget(page);
    pages_->addWidget(makeEmptyPage());
    column->addWidget(pages_, 1);
    auto* footer = helpLabel(tr("Drop XML anywhere to load a project. Exports a separate project."), page);
    footer->setAlignment(Qt::AlignHCenter);
    column->addWidget(footer);
    setCentralWidget(page);
    dropOutline_ = new DropOutline(this);
    makeMenus(
        *commands_, services_.view, services_.updater,
        {[this] { helpWindow_.show(); }, [this] { aboutWindow_.show(); }, services_.reveal, [this] { checkProject(); },
         [this] { tryRules(); }, [this] { showEdits(); }},
        *this);
    alerts_ = new AlertBoxes(services_.view, *this);
    quitQuestion_ = new QuitQuestion(services_.view, *this);
    savePreset_ = new SavePresetSheet(services_.view, commands_->of(Command::savePreset), this);
    restorePlace();
    observation_ = services_.view.observe([this](const Changes& changes) { refresh(changes); });
    refresh(Changes().set());
}

QWidget* MainWindow::makeHeader()
{
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 4);
    auto* icon = new QLabel(header);
    icon->setPixmap(theme::icon().pixmap(QSize(36, 36), devicePixelRatioF()));
    row->addWidget(icon);
    auto* open = new QPushButton(header);
    open->setProperty("role", "primary");
    followAction(*open, commands_->of(Command::importProject));
    row->addWidget(open);
    projectName_ = new ElidedLabel({}, header);
    projectFacts_ = new QLabel(header);
    projectFacts_->setProperty("role", "help");
    row->addWidget(projectName_);
    row->addWidget(projectFacts_);
    auto* busy = new QLabel(header);
    busy->setProperty("role", "help");
    services_.busy.setLabel(busy);
    row->addWidget(busy, 1);
    auto* help = new QPushButton("?", header);
    help->setAccessibleName(tr("Help"));
    setTip(*help, tr("Open the included Corvane manual"));
    auto* about = new QPushButton(tr("About"), header);
    setTip(*about, tr("About Corvane, donations and feedback"));
    row->addWidget(help);
    row->addWidget(about);
    connect(help, &QPushButton::clicked, this, [this] {
        services_.view.edit([](WorkspaceState& state) { state.showingHelp = true; });
    });
    connect(about, &QPushButton::clicked, this, [this] {
        services_.view.edit([](WorkspaceState& state) { state.showingAbout = true; });
    });
    return header;
}

QWidget* MainWindow::makeEmptyPage()
{
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    auto* text = new QLabel(tr("Drop a .fcpxml file or .fcpxmld bundle here to get started."), page);
    text->setAlignment(Qt::AlignHCenter);
    text->setWordWrap(true);
    text->setProperty("role", "title");
    auto* zone = new FinalCutProjectDropZone(services_.inbox, page);
    connect(zone, &FinalCutProjectDropZone::clicked, this, [this] { services_.view.chooseProjectFile(); });
    column->addStretch(1);
    column->addWidget(zone, 3);
    column->addWidget(text);
    column->addStretch(1);
    return page;
}

QWidget* MainWindow::makeLoadedPage()
{
    split_ = new QSplitter(this);
    split_->setChildrenCollapsible(false);
    split_->addWidget(makeSettings());
    split_->addWidget(makeResult());
    split_->setStretchFactor(0, 0);
    split_->setStretchFactor(1, 1);
    split_->setSizes({430, 500});
    keepReadingOrder(*split_);
    return split_;
}

/// Creates the page with the first project, so that an empty window appears sooner.
void MainWindow::showLoadedPage()
{
    pages_->addWidget(makeLoadedPage());
    if (const QList<int> widths = savedSizes(services_.defaults, splitKey, *split_); !widths.isEmpty())
        split_->setSizes(widths);
    if (const QList<int> heights = savedSizes(services_.defaults, resultSplitKey, *resultSplit_); !heights.isEmpty())
        resultSplit_->restore(heights);
    new AreaKeys({split_->widget(0), resultSplit_->widget(0), resultSplit_->widget(1)}, panels_, *this);
}

QWidget* MainWindow::makeSettings()
{
    settings_ = new QScrollArea(this);
    settings_->setWidgetResizable(true);
    settings_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    settings_->setFocusPolicy(Qt::NoFocus);
    settings_->setMinimumWidth(390);
    auto* settings = new QWidget(settings_);
    auto* column = new QVBoxLayout(settings);
    column->setContentsMargins(0, 0, 6, 0);
    column->setSpacing(6);
    addPanel(new PresetsPanel(services_.view, *commands_, settings), *column);
    auto* coverage = new CoveragePanel(services_.view, marks_, settings);
    connect(coverage, &CoveragePanel::checkWanted, this, [this] { checkProject(); });
    addPanel(coverage, *column);
    addPanel(new CamerasPanel(services_.view, marks_, settings), *column);
    addPanel(new PacingPanel(services_.view, *commands_, settings), *column);
    addPanel(new BookendsPanel(services_.view, settings), *column);
    addPanel(new SectionsPanel(services_.view, settings), *column);
    column->addStretch(1);
    settings_->setWidget(settings);
    return settings_;
}

QWidget* MainWindow::makeResult()
{
    auto* cuts = new CutPanel(services_.view, marks_, *commands_);
    auto* usage = new UsagePanel(services_.view, marks_);
    panels_.insert(panels_.end(), {cuts, usage});
    connect(cuts, &Panel::helpWanted, this, [this](const QString& topic) { helpWindow_.show(topic); });
    resultSplit_ = new ResultSplit(cuts, usage, this);
    keepReadingOrder(*resultSplit_);
    return new ResultArea(resultSplit_, this);
}

void MainWindow::addPanel(Panel* panel, QLayout& column)
{
    column.addWidget(panel);
    panels_.push_back(panel);
    connect(panel, &Panel::helpWanted, this, [this](const QString& topic) { helpWindow_.show(topic); });
}

/// Made when it is first asked for, as the page of a project.
void MainWindow::checkProject()
{
    if (check_ == nullptr)
        check_ = new CheckSheet(services_.view, this);
    check_->present();
}

void MainWindow::tryRules()
{
    if (trial_ == nullptr) {
        trial_ = new TrialSheet(services_.view, marks_, commands_->of(Command::tryRules), this);
        connect(trial_, &SideSheet::helpWanted, this, [this](const QString& topic) { helpWindow_.show(topic); });
    }
    trial_->tryRules();
}

void MainWindow::showEdits()
{
    if (edits_ == nullptr) {
        edits_ = new EditsSheet(services_.view, marks_, this);
        connect(edits_, &SideSheet::helpWanted, this, [this](const QString& topic) { helpWindow_.show(topic); });
    }
    edits_->showList();
}

QDialog* MainWindow::makeSheet(const QString& title, bool WorkspaceState::* showing, QWidget* content)
{
    auto* sheet = new QDialog(this);
    sheet->setWindowTitle(title);
    sheet->setWindowModality(Qt::WindowModal);
    auto* column = new QVBoxLayout(sheet);
    column->addWidget(content);
    connect(sheet, &QDialog::finished, this, [this, showing] {
        services_.view.edit([showing](WorkspaceState& state) { state.*showing = false; });
    });
    return sheet;
}

void MainWindow::refresh(const Changes& changes)
{
    const auto has = [&changes](Changed what) { return changes.test(static_cast<std::size_t>(what)); };
    const WorkspaceState& state = services_.view.state();
    const bool first = state.loaded && split_ == nullptr;
    if (first || has(Changed::loaded))
        marks_ = CameraMarks(services_.view);
    if (first)
        showLoadedPage();
    auto* typedIn = has(Changed::loaded) ? qobject_cast<StepBox*>(focusWidget()) : nullptr;
    if (typedIn != nullptr)
        typedIn->forgetTyping(); // it was meant for the previous project
    for (Panel* panel : panels_)
        panel->refresh(first ? Changes().set() : changes);
    if (trial_ != nullptr)
        trial_->refresh(changes);
    if (edits_ != nullptr)
        edits_->refresh(changes);
    commands_->refresh();
    if (has(Changed::loaded))
        showProject();
    if (has(Changed::loaded) || has(Changed::settings))
        orderTabsByLayout(*centralWidget());
    if (has(Changed::presets) || has(Changed::view))
        savePreset_->refresh();
    if (has(Changed::alerts))
        alerts_->refresh();
    if (!has(Changed::view))
        return;
    dropOutline_->setVisible(state.dropTargeted);
    dropOutline_->raise();
    showSheet(helpSheet_, &WorkspaceState::showingHelp, [this] {
        auto* view = new CorvaneHelpView(
            loadedManual(services_.resources), services_.defaults, [this] { helpSheet_->reject(); });
        view->setMinimumSize(700, 500);
        return makeSheet(tr("Corvane Help"), &WorkspaceState::showingHelp, view);
    });
    showSheet(aboutSheet_, &WorkspaceState::showingAbout, [this] {
        auto* view = new CorvaneAboutView(
            services_.bundle,
            [this] {
                aboutSheet_->reject();
                services_.view.edit([](WorkspaceState& change) { change.showingHelp = true; });
            },
            [this] { aboutSheet_->reject(); });
        return makeSheet(tr("About Corvane"), &WorkspaceState::showingAbout, view);
    });
}

/// Shows a project from its start.
void MainWindow::showProject()
{
    const auto& loaded = services_.view.state().loaded;
    pages_->setCurrentIndex(loaded ? 1 : 0);
    showText(*projectName_, loaded ? loaded->imported.name : "");
    projectFacts_->setText(qt(projectFacts(services_.view, theme::decimalSign())));
    if (settings_ != nullptr)
        settings_->verticalScrollBar()->setValue(0);
}

void MainWindow::showSheet(QDialog*& sheet, bool WorkspaceState::* showing, const std::function<QDialog*()>& make)
{
    if (services_.view.state().*showing) {
        if (sheet == nullptr)
            sheet = make();
        sheet->open();
    } else if (sheet != nullptr && sheet->isVisible()) {
        sheet->reject();
    }
}

void MainWindow::setDropTargeted(bool targeted)
{
    services_.view.edit([targeted](WorkspaceState& state) { state.dropTargeted = targeted; });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!event->mimeData()->hasUrls()) // uses only the list of types: the source is asked for no data while hovering
        return;
    setDropTargeted(true);
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void MainWindow::dragMoveEvent(QDragMoveEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(event->mimeData()->hasUrls());
}

void MainWindow::dragLeaveEvent(QDragLeaveEvent*)
{
    setDropTargeted(false);
}

void MainWindow::dropEvent(QDropEvent* event)
{
    setDropTargeted(false);
    event->setDropAction(Qt::CopyAction);
    std::vector<std::string> locations;
    try {
        locations = MimePasteboard(*event->mimeData()).locations();
    } catch (const NoPasteboardAnswer&) {
        locations.clear(); // treated like a source that has none
    }
    event->setAccepted(services_.view.handleDroppedFiles(locations));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (auto* typedIn = qobject_cast<StepBox*>(focusWidget()))
        typedIn->interpretText();
    if (!quitQuestion_->mayClose()) {
        event->ignore();
        return;
    }
    keepPlace();
    QMainWindow::closeEvent(event);
    QApplication::closeAllWindows();
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    dropOutline_->setGeometry(rect());
    const QSize before = event->oldSize();
    if ((width() > before.width() && width() == minimumWidth()) ||
        (height() > before.height() && height() == minimumHeight()))
        stayOnScreen();
}

/// Moves the window back onto the screen if its contents have made it larger.
void MainWindow::stayOnScreen()
{
    const QList<QRect> screens = usableScreens();
    if (screens.isEmpty() || isMaximized() || isFullScreen())
        return;
    const QMargins frame = windowHandle() == nullptr ? QMargins() : windowHandle()->frameMargins();
    const QRect place = placeOnScreen(geometry(), frame, minimumSize(), screens);
    if (place != geometry())
        setGeometry(place);
}

void MainWindow::restorePlace()
{
    QByteArray saved;
    try {
        saved = QByteArray::fromStdString(services_.defaults.value(geometryKey));
    } catch (const PlatformError&) {
        saved = "unreadable"; // then the window gets its default size
    }
    const QList<QRect> screens = usableScreens();
    if (saved.isEmpty() || screens.isEmpty())
        return;
    const auto restore = [&](const QByteArray& place) {
        return restoreGeometry(placeWithinScreens(place, minimumSizeHint(), screens));
    };
    if (!restore(saved))
        restore(saveGeometry());
}

void MainWindow::keepPlace()
{
    try {
        services_.defaults.setValue(geometryKey, saveGeometry().toStdString());
    } catch (const PlatformError&) {
        return; // not serious: the next window gets the default size
    }
    if (split_ != nullptr)
        saveSizes(services_.defaults, splitKey, *split_);
    if (resultSplit_ != nullptr && resultSplit_->wasMoved())
        saveSizes(services_.defaults, resultSplitKey, *resultSplit_);
}

} // namespace corvane
