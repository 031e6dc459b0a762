#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

namespace corvane {

/// A field for a timecode, which may be any text; one that cannot be read is marked while it is typed, with what is
/// wrong with it below.
class TimecodeField : public QWidget {
    Q_OBJECT
public:
    /// `problem` tells what is wrong with a text, nothing when it can be read.
    using Problem = std::function<std::optional<std::string>(const std::string&)>;

    TimecodeField(const QString& label, Problem problem, QWidget* parent = nullptr);

    /// Shows the text; the caret stays where the text is the same, and typed is not told.
    void show(const std::string& text);

    [[nodiscard]] QLineEdit& edit() { return *edit_; }

signals:
    /// A person, or what assists one, has changed the text.
    void typed(const std::string& text);

private:
    void mark();

    Problem problem_;
    QLineEdit* edit_;
    QLabel* complaint_;
};

} // namespace corvane
