#pragma once

#include "platform/alerts.h"
#include "workspace/content_view.h"

#include <QMessageBox>
#include <QObject>
#include <deque>

namespace corvane {

/// The window's alerts, shown one after the other in one box: first the controller's messages, then all others. Work
/// that arrives meanwhile continues behind them; nothing blocks until an alert is dismissed.
class AlertBoxes : public QObject, public Alerts {
    Q_OBJECT
public:
    AlertBoxes(ContentView& view, QWidget& window);

    /// Shows the oldest message that has not been seen, unless one is already shown.
    void refresh();
    void showAlert(const std::string& message, const std::string& informativeText) override;

private:
    struct Alert {
        std::string message;
        std::string informativeText;
        bool operator==(const Alert&) const = default;
    };
    void showNext();
    void dismiss();

    ContentView& view_;
    QWidget& window_;
    std::deque<Alert> others_;
    QMessageBox* box_ = nullptr;
    bool showsOther_ = false; ///< the message shown is the first of `others_`
};

/// Shows an alert when a start ends without a window; returns when it is dismissed.
void showModalAlert(const std::string& message, const std::string& informativeText);

} // namespace corvane
