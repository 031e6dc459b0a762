#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <string>
#include <string_view>

/// Texts from outside on widgets: drawn with marks for what cannot be seen, never taken for markup or for the key of a
/// control, and told to assistive technology as they are.
namespace corvane {

/// A name, or a line with names in it. A label gets its buddy first.
void showText(QLabel& label, std::string_view text);
void showText(QAbstractButton& button, std::string_view text);

/// A sentence, whose words are broken where they do not fit. Also what is told of it has no more characters than are
/// drawn.
void showMessage(QLabel& label, std::string_view message);

/// The text with places where a line may end (U+200B) inside words that are too long for one.
[[nodiscard]] QString withBreaks(const QString& text);

/// As a name, where a widget draws something else.
void setSpokenName(QWidget& widget, std::string_view name);

/// Puts a text into a field where it is another; the field tells nobody. Of one with more than 100,000 characters, with
/// which each key would take its time, the field shows the beginning and can then not be changed: nothing is lost.
/// Returns whether there was anything to do.
bool showWhole(QLineEdit& field, const std::string& text);

/// Makes the key for Copy take the text of a list's item as assistive technology is told it, not as it is drawn.
void copyAsSpoken(QAbstractItemView& list);

} // namespace corvane
