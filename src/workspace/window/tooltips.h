#pragma once

#include <QAbstractItemView>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <string>
#include <vector>

/// The one way to a tooltip. The toolkit takes a text with "<" in it for markup and loads what that names; here every
/// text is shown letter by letter.
namespace corvane {

/// What to give to the toolkit for a text, whose lines "\n" parts: for Qt::ToolTipRole, say.
[[nodiscard]] QString tip(const QString& text);

/// The tooltip of a widget, which also describes the widget to assistive technology: a text of the program's own, or
/// lines from outside, which are drawn with marks and read aloud as they are.
void setTip(QWidget& widget, const QString& text);
void setTip(QWidget& widget, const std::vector<std::string>& lines);

/// Shows a tooltip of `over` at a place of the screen; an empty text hides the one that is shown.
void showTip(const QPoint& place, const QString& text, QWidget& over);
void hideTip();

/// The same for a list of the toolkit's own, whose items have tooltips that the program does not set.
void escapeItemTips(QAbstractItemView& list);

} // namespace corvane
