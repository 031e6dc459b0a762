#pragma once

namespace corvane {

/// Describes the window's own controls to screen readers: pickers with their label as name, their choice as value, and
/// entries that can be chosen; pictures as pictures; the strip as a slider; panels as groups; the drop view as a
/// button; links as links; windows with the property "dialog" as dialogs; alerts with their texts. Call once, before
/// the first window is created.
void installAccessibleWidgets();

} // namespace corvane
