#include "workspace/window/quit_question.h"

#include "workspace/captions.h"
#include "workspace/window/qt_text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QPushButton>

namespace corvane {

QuitQuestion::QuitQuestion(ContentView& view, QWidget& window) : QObject(&window), view_(view), window_(window)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool QuitQuestion::mayClose()
{
    if (answered_ || sessionEnds_ || qGuiApp->isSavingSession() || !quitQuestion(view_))
        return true;
    if (!box_)
        ask();
    return false;
}

bool QuitQuestion::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == QCoreApplication::instance() && event->type() == QEvent::Quit) {
        sessionEnds_ = true; // until the windows have been closed or one of them has refused to
        QMetaObject::invokeMethod(this, [this] { sessionEnds_ = false; }, Qt::QueuedConnection);
    }
    return false;
}

void QuitQuestion::ask()
{
    const auto question = quitQuestion(view_);
    if (!question) {
        quit();
        return;
    }
    view_.beginQuestion();
    box_ = new QMessageBox(QMessageBox::Warning, "Corvane", shown(*question), QMessageBox::NoButton, &window_);
    box_->setTextFormat(Qt::PlainText);
    box_->setAttribute(Qt::WA_DeleteOnClose);
    const auto* quit = box_->addButton(tr("Quit"), QMessageBox::DestructiveRole);
    auto* again = box_->addButton(tr("Save again"), QMessageBox::AcceptRole);
    box_->setEscapeButton(box_->addButton(tr("Cancel"), QMessageBox::RejectRole));
    box_->setDefaultButton(again);
    connect(box_, &QMessageBox::finished, this, [this, quit, again] {
        const auto* answer = box_->clickedButton();
        box_ = nullptr;
        if (answer == quit) {
            this->quit();
        } else if (answer == again) {
            saveAgain();
        } else {
            view_.endQuestion();
        }
    });
    box_->open();
}

/// Saves, and asks again if that fails.
void QuitQuestion::saveAgain()
{
    view_.saveAgain();
    QMetaObject::invokeMethod(this, &QuitQuestion::ask, Qt::QueuedConnection);
}

void QuitQuestion::quit()
{
    answered_ = true;
    const bool closed = window_.close();
    answered_ = false;
    if (!closed) // something else has kept the window open
        view_.endQuestion();
}

} // namespace corvane
