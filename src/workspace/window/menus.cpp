#include "workspace/window/menus.h"

#include "workspace/captions.h"
#include "workspace/shot_facts.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenuBar>

namespace corvane {

Menus::Menus(ContentView& view, Updater& updater, MenuActions actions, QMainWindow& window)
    : QObject(&window), view_(view), actions_(std::move(actions)), updates_(updater, [this] { refresh(); })
{
    makeFileMenu(window);
    makeEditMenu(window);
    makeHelpMenu(window, updater);
}

void Menus::makeFileMenu(QMainWindow& window)
{
    QMenu& menu = *window.menuBar()->addMenu(tr("&File"));
    QAction* open = menu.addAction(tr("&Import Final Cut XML…"), this, [this] { view_.chooseProjectFile(); });
    open->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    reopen_ = menu.addAction(tr("&Reopen Previous Project"), this, [this] { view_.reopenPreviousSession(); });
    menu.addSeparator();
    export_ = menu.addAction(tr("&Export to Final Cut…"), this, [this] { view_.exportRoughEdit(); });
    export_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    showLastExport_ = menu.addAction(tr("&Show Last Export"), this, [this] {
        if (const auto& path = view_.state().lastExport)
            actions_.reveal(*path);
    });
    menu.addSeparator();
    QAction* close = menu.addAction(tr("&Close"), &window, &QWidget::close);
    close->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_W));
    QAction* quit = menu.addAction(tr("&Quit"), &window, &QWidget::close);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);
}

void Menus::makeEditMenu(QMainWindow& window)
{
    QMenu& menu = *window.menuBar()->addMenu(tr("&Edit"));
    undo_ = menu.addAction(tr("&Undo"), this, [this] { view_.undo(); });
    undo_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    menu.addSeparator();
    copyCuts_ = menu.addAction(tr("&Copy Cut List"), this, [this] { copyCutList(); });
    copyCuts_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    menu.addSeparator();
    generate_ = menu.addAction(qt(primaryButtonText(view_)), this, [this] { view_.generateRoughEdit(); });
    generate_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_G));
    back_ = menu.addAction(tr("&Back"), this, [this] { view_.stepBack(); });
    back_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_BracketLeft));
    forward_ = menu.addAction(tr("&Forward"), this, [this] { view_.stepForward(); });
    forward_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_BracketRight));
}

void Menus::makeHelpMenu(QMainWindow& window, Updater& updater)
{
    QMenu& menu = *window.menuBar()->addMenu(tr("&Help"));
    QAction* help = menu.addAction(tr("Corvane &Help"), this, [this] { actions_.showHelp(); });
    help->setShortcuts({QKeySequence(Qt::Key_F1), QKeySequence(Qt::CTRL | Qt::Key_Question)});
    menu.addSeparator();
    QAction* about = menu.addAction(tr("&About Corvane"), this, [this] { actions_.showAbout(); });
    about->setMenuRole(QAction::AboutRole);
    checkForUpdates_ = menu.addAction(tr("Check for &Updates…"), this, [&updater] { updater.checkForUpdates(); });
    checkForUpdates_->setMenuRole(QAction::ApplicationSpecificRole);
}

void Menus::copyCutList() const
{
    QGuiApplication::clipboard()->setText(qt(cutListText(view_, theme::decimalSign())));
}

void Menus::refresh()
{
    const Enabling enabled = enabling(view_);
    reopen_->setEnabled(view_.state().canReopen);
    export_->setEnabled(enabled.exportEdit);
    showLastExport_->setEnabled(view_.state().lastExport.has_value());
    const auto undo = undoText(view_);
    undo_->setEnabled(undo.has_value());
    undo_->setText("&" + qt(undo.value_or("Undo")));
    copyCuts_->setEnabled(!view_.state().cuts().empty());
    generate_->setText("&" + qt(primaryButtonText(view_)));
    generate_->setEnabled(enabled.generate);
    back_->setEnabled(enabled.back);
    forward_->setEnabled(enabled.forward);
    checkForUpdates_->setEnabled(updates_.canCheckForUpdates);
}

} // namespace corvane
