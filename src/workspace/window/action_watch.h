#pragma once

#include "workspace/content_view.h"

#include <QObject>
#include <QWidget>

namespace corvane {

/// Tells the controller where a person's actions begin and end. Everything done to one slider, number box, list or text
/// field while it has the focus is one action, and each drag of a slider.
class ActionWatch : public QObject {
    Q_OBJECT
public:
    explicit ActionWatch(ContentView& view, QObject* parent = nullptr);

private:
    void focusMoved(QWidget* now);
    void begin() { view_.beginAction(); }

    ContentView& view_;
};

} // namespace corvane
