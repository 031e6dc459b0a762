#pragma once

#include "help/product.h"
#include "platform/resources.h"
#include "platform/updater.h"
#include "platform/user_defaults.h"
#include "workspace/content_view.h"
#include "workspace/window/about_window.h"
#include "workspace/window/alert_boxes.h"
#include "workspace/window/busy_sign.h"
#include "workspace/window/check_sheet.h"
#include "workspace/window/controls/elided_label.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/edits_sheet.h"
#include "workspace/window/help_window.h"
#include "workspace/window/menus.h"
#include "workspace/window/quit_question.h"
#include "workspace/window/result_split.h"
#include "workspace/window/save_preset_sheet.h"
#include "workspace/window/trial_sheet.h"

#include <QDialog>
#include <QLabel>
#include <QMainWindow>
#include <QScrollArea>
#include <QSplitter>
#include <QStackedWidget>
#include <functional>
#include <string>
#include <vector>

namespace corvane {

/// What the window needs from outside. Everything must outlive the window.
struct MainWindowServices {
    ContentView& view;
    XMLInbox& inbox;
    UserDefaults& defaults;
    const Resources& resources;
    Updater& updater;
    BusySignLabel& busy;
    std::function<void(const std::string& path)> reveal; ///< shows a file in its folder
    product::BundleInfo bundle;
};

/// The main window: shows the controller's state and calls its operations. Stores no part of the edit itself.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(MainWindowServices services);

    /// For alerts that do not come from the controller.
    Alerts& alerts() { return *alerts_; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeEmptyPage();
    QWidget* makeLoadedPage();
    void showLoadedPage();
    QWidget* makeSettings();
    QWidget* makeResult();
    void addPanel(Panel* panel, QLayout& column);
    void checkProject();
    void tryRules();
    void showEdits();
    /// A dialog over this window that is open while a field of the controller's state is true.
    QDialog* makeSheet(const QString& title, bool WorkspaceState::* showing, QWidget* content);

    void refresh(const Changes& changes);
    void showProject();
    void showSheet(QDialog*& sheet, bool WorkspaceState::* showing, const std::function<QDialog*()>& make);
    void setDropTargeted(bool targeted);
    void restorePlace();
    void stayOnScreen();
    void keepPlace();

    MainWindowServices services_;
    CameraMarks marks_; ///< of the project that is shown
    CorvaneHelpWindow helpWindow_;
    CorvaneAboutWindow aboutWindow_;
    CommandActions* commands_ = nullptr;
    AlertBoxes* alerts_ = nullptr;
    QuitQuestion* quitQuestion_ = nullptr;
    SavePresetSheet* savePreset_ = nullptr;
    CheckSheet* check_ = nullptr;
    TrialSheet* trial_ = nullptr;
    EditsSheet* edits_ = nullptr;
    ElidedLabel* projectName_ = nullptr;
    QLabel* projectFacts_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    QScrollArea* settings_ = nullptr;
    QSplitter* split_ = nullptr;
    ResultSplit* resultSplit_ = nullptr;
    QWidget* dropOutline_ = nullptr;
    QDialog* helpSheet_ = nullptr;
    QDialog* aboutSheet_ = nullptr;
    std::vector<Panel*> panels_;
    Subscription observation_;
};

} // namespace corvane
