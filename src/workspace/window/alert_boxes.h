#pragma once

#include "platform/alerts.h"
#include "workspace/content_view.h"

#include <QMessageBox>
#include <QObject>
#include <deque>

namespace corvane {

/// The alerts of the window, one after the other in one box: the controller's messages first, then those that belong to
/// none of its work. Work that arrives meanwhile goes on behind them; nothing waits for an answer.
class AlertBoxes : public QObject, public Alerts {
    Q_OBJECT
public:
    AlertBoxes(ContentView& view, QWidget& window);

    /// Shows the oldest message that was not seen, unless one is being shown.
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
    bool showsOther_ = false; ///< what is shown is the first of `others_`
};

/// The alert of a start that ends without a window; returns when it is dismissed.
class ModalAlerts {
public:
    void showAlert(const std::string& message, const std::string& informativeText);
};

} // namespace corvane
