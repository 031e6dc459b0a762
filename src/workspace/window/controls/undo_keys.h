#pragma once

#include <QKeyEvent>
#include <QLineEdit>

namespace corvane {

/// True for the keys of Undo and Redo.
[[nodiscard]] bool isUndoKey(const QKeyEvent& key);

/// Lets the window have the keys of Undo and Redo while the field has the focus, because what is typed into it is a
/// step like all others.
void leaveUndoToWindow(QLineEdit& field);

} // namespace corvane
