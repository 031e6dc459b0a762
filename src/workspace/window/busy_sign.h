#pragma once

#include <QLabel>
#include <QPointer>
#include <memory>
#include <string>

namespace corvane {

/// Shows a wait cursor, and what is being done in a label that is painted at once: the interface does nothing else
/// until the work is over.
class BusySignLabel {
public:
    void setLabel(QLabel* label) { label_ = label; }

    /// Shown for as long as the result lives.
    [[nodiscard]] std::shared_ptr<void> show(const std::string& text);

private:
    QPointer<QLabel> label_;
};

} // namespace corvane
