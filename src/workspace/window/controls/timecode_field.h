#pragma once

#include "workspace/captions.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

namespace corvane {

/// A text field for a timecode, which accepts any text. A wrong timecode is marked, with the reason beside it and, if
/// there is a better one, a button that fills it in. A text is checked once all four parts are typed or the field loses
/// the focus.
class TimecodeField : public QWidget {
    Q_OBJECT
public:
    /// Says what is wrong with a text; none if it can be used.
    using Judge = std::function<std::optional<TimecodeAdvice>(const std::string&)>;

    TimecodeField(const QString& label, Judge judge, QWidget* parent = nullptr);

    /// Shows the text without emitting typed. If the text is the same, the caret stays where it is.
    void show(const std::string& text);

    [[nodiscard]] QLineEdit& edit() { return *edit_; }

signals:
    /// A person or assistive technology has changed the text.
    void typed(const std::string& text);

private:
    void arrange(const QString& label);
    void mark();

    Judge judge_;
    QLineEdit* edit_;
    QLabel* complaint_;
    QPushButton* use_;
    std::string instead_; ///< what the button puts into the field
    bool typing_ = false; ///< the text is not complete yet, and the field has the focus
};

} // namespace corvane
