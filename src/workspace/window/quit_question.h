#pragma once

#include "workspace/content_view.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>

namespace corvane {

/// Asks before the window closes while what is on screen is in no file. The end of the desktop's session and signals
/// are not asked: nobody may be there to answer.
class QuitQuestion : public QObject {
    Q_OBJECT
public:
    QuitQuestion(ContentView& view, QWidget& window);

    /// True when the window may close now. Otherwise the question is open, and its answer closes the window or not.
    [[nodiscard]] bool mayClose();

protected:
    /// The window system tells the application, not a window, that the session ends.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ask();
    void saveAgain();
    void quit();

    ContentView& view_;
    QWidget& window_;
    QPointer<QMessageBox> box_;
    bool answered_ = false;
    bool sessionEnds_ = false;
};

} // namespace corvane
