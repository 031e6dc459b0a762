#include "workspace/window/action_watch.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

namespace corvane {

ActionWatch::ActionWatch(ContentView& view, QObject* parent) : QObject(parent), view_(view)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { focusMoved(now); });
}

/// The toolkit reports this after the control that loses the focus has taken what was typed into it.
void ActionWatch::focusMoved(QWidget* now)
{
    const auto* slider = qobject_cast<QAbstractSlider*>(now);
    if (slider != nullptr) {
        connect(slider, &QAbstractSlider::sliderPressed, this, &ActionWatch::begin, Qt::UniqueConnection);
        connect(slider, &QAbstractSlider::sliderReleased, this, &ActionWatch::begin, Qt::UniqueConnection);
    }
    if (slider != nullptr || qobject_cast<QAbstractSpinBox*>(now) != nullptr ||
        qobject_cast<QComboBox*>(now) != nullptr || qobject_cast<QLineEdit*>(now) != nullptr)
        begin();
    else
        view_.endAction();
}

} // namespace corvane
