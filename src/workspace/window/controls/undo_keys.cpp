#include "workspace/window/controls/undo_keys.h"

namespace corvane {

namespace {

class UndoKeyFilter : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override
    {
        const auto* key = event->type() == QEvent::ShortcutOverride ? dynamic_cast<QKeyEvent*>(event) : nullptr;
        if (key == nullptr || !isUndoKey(*key))
            return false;
        event->ignore();
        return true;
    }
};

} // namespace

bool isUndoKey(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

void leaveUndoToWindow(QLineEdit& field)
{
    field.installEventFilter(new UndoKeyFilter(&field));
}

} // namespace corvane
