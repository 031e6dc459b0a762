#pragma once

#include <QAbstractItemView>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <string>
#include <vector>

/// All tooltips are set here. The toolkit treats a text that contains "<" as markup and loads files that it names;
/// these functions show every text literally.
namespace corvane {

/// The text in the form that the toolkit needs, for example for Qt::ToolTipRole. Lines are separated by "\n".
[[nodiscard]] QString tip(const QString& text);

/// Sets a widget's tooltip, which is also its description for assistive technology: a text of the program's own, or
/// lines from outside, which are drawn with marks and read aloud unchanged.
void setTip(QWidget& widget, const QString& text);
void setTip(QWidget& widget, const std::vector<std::string>& lines);

/// Shows a tooltip of `over` at a position on the screen; an empty text hides the current tooltip.
void showTip(const QPoint& place, const QString& text, QWidget& over);
void hideTip();

/// Escapes the item tooltips of one of the toolkit's own lists, which the program does not set itself.
void escapeItemTips(QAbstractItemView& list);

} // namespace corvane
