#pragma once

#include <QLabel>
#include <QPointer>
#include <memory>
#include <string>

namespace corvane {

/// Shows a wait cursor, and a label that says what is being done. The label is painted at once, because the interface
/// does nothing else until the work is finished.
class BusySignLabel {
public:
    void setLabel(QLabel* label) { label_ = label; }

    /// The sign is shown as long as the result exists.
    [[nodiscard]] std::shared_ptr<void> show(const std::string& text);

private:
    QPointer<QLabel> label_;
};

} // namespace corvane
