#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLabel>
#include <QString>
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

/// Makes the key for Copy take the text of a list's item as assistive technology is told it, not as it is drawn.
void copyAsSpoken(QAbstractItemView& list);

} // namespace corvane
