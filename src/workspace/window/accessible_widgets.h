#pragma once

namespace corvane {

/// Tells screen readers what the window's own controls are: a picker with its label as name, its choice as value and
/// entries that can be chosen; pictures as pictures; panels as groups; the box for projects as a button; links as
/// links; windows with the property "dialog" as dialogs; alerts with their texts. Call once, before the first window.
void installAccessibleWidgets();

} // namespace corvane
