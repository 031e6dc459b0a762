#include "workspace/window/shown_text.h"

#include "workspace/window/qt_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTextBoundaryFinder>
#include <algorithm>

/// A public function of the toolkit that, as documented, none of its headers declares.
extern void qt_set_sequence_auto_mnemonic(bool on);

namespace corvane {

namespace {

/// Sets whether "&" in a text marks a shortcut, on systems that have such shortcuts.
void setKeysInTexts(bool on)
{
#ifndef __APPLE__
    qt_set_sequence_auto_mnemonic(on);
#endif
}

class CopiedTexts : public QObject {
public:
    explicit CopiedTexts(QAbstractItemView& list) : QObject(&list), list_(list) { list.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        const auto* key = event->type() == QEvent::KeyPress ? dynamic_cast<QKeyEvent*>(event) : nullptr;
        const QVariant spoken = list_.currentIndex().data(Qt::AccessibleTextRole);
        if (key == nullptr || !key->matches(QKeySequence::Copy) || !spoken.isValid())
            return false;
        QGuiApplication::clipboard()->setText(spoken.toString());
        return true;
    }

private:
    QAbstractItemView& list_;
};

void draw(QLabel& label, const QString& text)
{
    label.setTextFormat(Qt::PlainText);
    setKeysInTexts(false); // otherwise the label of a camera "R&G" would take the shortcut Alt+G
    label.setText(text);
    setKeysInTexts(true);
}

} // namespace

void showText(QLabel& label, std::string_view text)
{
    draw(label, shown(text));
    setSpokenName(label, text);
}

void showText(QAbstractButton& button, std::string_view text)
{
    button.setText(shown(text).replace("&", "&&")); // a single "&" would mark a shortcut
    setSpokenName(button, text);
}

void showMessage(QLabel& label, std::string_view message)
{
    draw(label, withBreaks(shown(message)));
    setSpokenName(label, withoutMiddle(message));
}

void showMessages(QLabel& label, const std::vector<std::string>& messages)
{
    QStringList drawn;
    std::string spoken;
    for (const std::string& message : messages) {
        drawn << withBreaks(shown(message));
        spoken += (spoken.empty() ? "" : "\n") + withoutMiddle(message);
    }
    draw(label, drawn.join("\n"));
    setSpokenName(label, spoken);
}

QString withBreaks(const QString& text)
{
    constexpr qsizetype longest = 60; // longer than any word that people would copy from a message
    constexpr qsizetype part = 30;
    QTextBoundaryFinder lineEnds(QTextBoundaryFinder::Line, text);
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    QString broken;
    qsizetype start = 0;
    for (qsizetype end = lineEnds.toNextBoundary(); end > 0; end = lineEnds.toNextBoundary()) {
        while (end - start > longest) {
            characters.setPosition(start + part - 1);
            const qsizetype place = std::min(characters.toNextBoundary(), end);
            broken += QStringView(text).sliced(start, place - start);
            broken += place < end ? QString(QChar(0x200B)) : QString();
            start = place;
        }
        broken += QStringView(text).sliced(start, end - start);
        start = end;
    }
    return broken;
}

void setSpokenName(QWidget& widget, std::string_view name)
{
    const QString spoken = qt(name);
    if (widget.accessibleName() != spoken)
        widget.setAccessibleName(spoken); // setting the name notifies assistive technology each time
}

bool showWhole(QLineEdit& field, const std::string& text)
{
    constexpr int longest = 100'000; // the toolkit's default would cut the text at 32,767 characters
    const QSignalBlocker blocker(field);
    if (field.maxLength() != longest)
        field.setMaxLength(longest);
    if (utf8(field.text()) == text)
        return false;
    field.setText(qt(text));
    field.setReadOnly(utf8(field.text()) != text);
    return true;
}

void copyAsSpoken(QAbstractItemView& list)
{
    new CopiedTexts(list); // owned by the list
}

} // namespace corvane
