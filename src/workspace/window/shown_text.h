#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <string>
#include <string_view>
#include <vector>

/// Puts texts from outside on widgets. Invisible characters are drawn as marks, nothing is interpreted as markup or as
/// a shortcut, and assistive technology gets the text unchanged.
namespace corvane {

/// Shows a name, or a line that contains names. Set a label's buddy before calling this.
void showText(QLabel& label, std::string_view text);
void showText(QAbstractButton& button, std::string_view text);

/// Shows a sentence, and breaks words that do not fit into a line. Assistive technology too gets no more characters
/// than are drawn.
void showMessage(QLabel& label, std::string_view message);

/// Sentences on a line each.
void showMessages(QLabel& label, const std::vector<std::string>& messages);

/// The text with places where a line may end (U+200B) inside words that are too long for one.
[[nodiscard]] QString withBreaks(const QString& text);

/// Sets the name that assistive technology reads for a widget that draws something else.
void setSpokenName(QWidget& widget, std::string_view name);

/// Puts a text into a field, without signals, if the field has a different one. Of a text with more than 100,000
/// characters, which would make typing slow, the field shows only the start and is read-only, so that nothing is lost.
/// Returns true if the field changed.
bool showWhole(QLineEdit& field, const std::string& text);

/// Makes the Copy shortcut copy a list item's text as assistive technology gets it, not as it is drawn.
void copyAsSpoken(QAbstractItemView& list);

} // namespace corvane
