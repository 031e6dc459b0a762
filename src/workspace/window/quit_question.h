#pragma once

#include "workspace/content_view.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>

namespace corvane {

/// Asks before the window closes with a session that is not saved. Does not ask when the desktop's session ends or a
/// signal arrives, because nobody may be there to answer.
class QuitQuestion : public QObject {
    Q_OBJECT
public:
    QuitQuestion(ContentView& view, QWidget& window);

    /// True if the window may close now. Otherwise opens the question, whose answer decides whether the window closes.
    [[nodiscard]] bool mayClose();

protected:
    /// Watches the application, because the window system tells it, not a window, that the session ends.
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
