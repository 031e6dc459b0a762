#pragma once

#include "platform/alerts.h"
#include "workspace/content_view.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>

namespace corvane {

/// Shows the controller's messages, one alert after the other. Work that arrives meanwhile goes on behind them.
class AlertBoxes : public QObject {
    Q_OBJECT
public:
    AlertBoxes(ContentView& view, QWidget& window);

    /// Shows the oldest message that was not seen, unless one is being shown.
    void refresh();

private:
    void showNext();

    ContentView& view_;
    QWidget& window_;
    QPointer<QMessageBox> box_;
};

/// Alerts that belong to no work of the controller.
class ModalAlerts : public Alerts {
public:
    void setParent(QWidget* parent) { parent_ = parent; }
    void showAlert(const std::string& message, const std::string& informativeText) override;

private:
    QPointer<QWidget> parent_;
};

} // namespace corvane
