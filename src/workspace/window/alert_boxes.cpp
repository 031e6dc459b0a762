#include "workspace/window/alert_boxes.h"

#include "workspace/window/qt_text.h"

namespace corvane {

namespace {

constexpr auto readable = Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;

} // namespace

AlertBoxes::AlertBoxes(ContentView& view, QWidget& window) : QObject(&window), view_(view), window_(window) {}

/// The box opens once the operation that failed is over.
void AlertBoxes::refresh()
{
    QMetaObject::invokeMethod(this, &AlertBoxes::showNext, Qt::QueuedConnection);
}

void AlertBoxes::showNext()
{
    if (box_ || view_.alerts().empty())
        return;
    box_ = new QMessageBox(QMessageBox::Warning, "Corvane", qt(view_.alerts().front()), QMessageBox::Ok, &window_);
    box_->setObjectName("alert");
    box_->setTextFormat(Qt::PlainText);
    box_->setTextInteractionFlags(readable);
    box_->setAttribute(Qt::WA_DeleteOnClose);
    connect(box_, &QMessageBox::finished, this, [this] {
        box_ = nullptr;
        view_.dismissError();
        refresh();
    });
    box_->open();
}

void ModalAlerts::showAlert(const std::string& message, const std::string& informativeText)
{
    QMessageBox box(QMessageBox::Warning, "Corvane", qt(message), QMessageBox::Ok, parent_);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(qt(informativeText));
    box.setTextInteractionFlags(readable);
    box.exec();
}

} // namespace corvane
