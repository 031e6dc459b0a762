#pragma once

#include <QAccessible>

namespace corvane {

/// What a control shows, as a read-only text: assistive technology on Linux reads it nowhere else.
class AccessibleShownText : public QAccessibleTextInterface {
public:
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    [[nodiscard]] int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    [[nodiscard]] int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    [[nodiscard]] QString text(int start, int end) const override { return shownText().mid(start, end - start); }
    [[nodiscard]] int characterCount() const override { return static_cast<int>(shownText().size()); }
    [[nodiscard]] int offsetAtPoint(const QPoint&) const override { return 0; }
    void scrollToSubstring(int, int) override {}
    [[nodiscard]] QString attributes(int, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

protected:
    [[nodiscard]] virtual QString shownText() const = 0;
};

} // namespace corvane
