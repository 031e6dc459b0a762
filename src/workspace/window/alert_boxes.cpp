#include "workspace/window/alert_boxes.h"

#include "workspace/captions.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/theme.h"

#include <algorithm>

namespace corvane {

namespace {

void prepare(QMessageBox& box)
{
    box.setWindowTitle("Corvane");
    box.setStandardButtons(QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void fill(QMessageBox& box, const std::string& message, const std::string& informativeText)
{
    box.setIcon(QMessageBox::Warning);
    if (tellsOfSuccess(message))
        box.setIconPixmap(theme::icon().pixmap(QSize(48, 48), box.devicePixelRatioF()));
    box.setText(shown(message));
    box.setInformativeText(shown(informativeText));
    const auto speak = [&box](const char* labelName, const std::string& text) { // which the box itself cannot do
        if (auto* label = box.findChild<QLabel*>(labelName))
            showMessage(*label, text);
    };
    speak("qt_msgbox_label", message);
    speak("qt_msgbox_informativelabel", informativeText);
}

} // namespace

AlertBoxes::AlertBoxes(ContentView& view, QWidget& window) : QObject(&window), view_(view), window_(window) {}

void AlertBoxes::showAlert(const std::string& message, const std::string& informativeText)
{
    const Alert alert = {message, informativeText};
    if (std::ranges::find(others_, alert) == others_.end())
        others_.push_back(alert);
    refresh();
}

/// Opens the box only after the operation that failed has ended.
void AlertBoxes::refresh()
{
    QMetaObject::invokeMethod(this, &AlertBoxes::showNext, Qt::QueuedConnection);
}

void AlertBoxes::showNext()
{
    if ((box_ != nullptr && box_->isVisible()) || (view_.alerts().empty() && others_.empty()))
        return;
    showsOther_ = view_.alerts().empty();
    if (box_ == nullptr) {
        box_ = new QMessageBox(&window_);
        box_->setObjectName("alert");
        prepare(*box_);
        connect(box_, &QMessageBox::finished, this, &AlertBoxes::dismiss);
    }
    if (showsOther_)
        fill(*box_, others_.front().message, others_.front().informativeText);
    else
        fill(*box_, view_.alerts().front(), {});
    box_->open();
}

void AlertBoxes::dismiss()
{
    if (showsOther_)
        others_.pop_front();
    else
        view_.dismissError();
    refresh();
}

void showModalAlert(const std::string& message, const std::string& informativeText)
{
    QMessageBox box;
    prepare(box);
    fill(box, message, informativeText);
    box.exec();
}

} // namespace corvane
