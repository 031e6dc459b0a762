#include "workspace/window/shown_text.h"

#include "workspace/window/qt_text.h"

/// A public function of the toolkit that none of its headers declares, as its manual says.
extern void qt_set_sequence_auto_mnemonic(bool on);

namespace corvane {

namespace {

/// Whether "&" in a text is the mark of a key, where the system has such keys.
void setKeysInTexts(bool on)
{
#ifndef __APPLE__
    qt_set_sequence_auto_mnemonic(on);
#endif
}

} // namespace

void showText(QLabel& label, std::string_view text)
{
    label.setTextFormat(Qt::PlainText);
    setKeysInTexts(false); // the label of a control would take Alt+G for a camera "R&G"
    label.setText(shown(text));
    setKeysInTexts(true);
    setSpokenName(label, text);
}

void showText(QAbstractButton& button, std::string_view text)
{
    button.setText(shown(text).replace("&", "&&")); // a single one would be the mark of a shortcut
    setSpokenName(button, text);
}

void showMessage(QLabel& label, std::string_view message)
{
    showText(label, withoutMiddle(message));
}

void setSpokenName(QWidget& widget, std::string_view name)
{
    const QString spoken = qt(name);
    if (widget.accessibleName() != spoken)
        widget.setAccessibleName(spoken); // assistive technology is told each time
}

} // namespace corvane
