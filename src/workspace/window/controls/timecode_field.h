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

/// A field for a timecode, which may be any text. One that is wrong is marked, with what is wrong with it beside it and
/// a button that puts a better one there, where there is one. A text is judged when all its four parts are typed or the
/// field is left.
class TimecodeField : public QWidget {
    Q_OBJECT
public:
    /// What is wrong with a text; nothing when it can be used.
    using Judge = std::function<std::optional<TimecodeAdvice>(const std::string&)>;

    TimecodeField(const QString& label, Judge judge, QWidget* parent = nullptr);

    /// Shows the text; the caret stays where the text is the same, and typed is not told.
    void show(const std::string& text);

    [[nodiscard]] QLineEdit& edit() { return *edit_; }

signals:
    /// A person, or what assists one, has changed the text.
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
