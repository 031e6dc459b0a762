#include "workspace/window/controls/timecode_field.h"

#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/tooltips.h"

#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

namespace corvane {

TimecodeField::TimecodeField(const QString& label, Problem problem, QWidget* parent)
    : QWidget(parent), problem_(std::move(problem)), edit_(new QLineEdit(this)), complaint_(new QLabel(this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    auto* name = new QLabel(label, this);
    name->setBuddy(edit_);
    column->addWidget(name);
    column->addWidget(edit_);
    column->addWidget(complaint_);
    edit_->setAcceptDrops(false); // files are for the window
    edit_->setPlaceholderText("HH:MM:SS:FF");
    complaint_->setWordWrap(true);
    complaint_->setProperty("role", "complaint");
    complaint_->hide();
    // Also what assistive technology puts there; what the program shows is put there with the signals blocked.
    connect(edit_, &QLineEdit::textChanged, this, [this](const QString& text) {
        mark();
        emit typed(utf8(text));
    });
}

void TimecodeField::show(const std::string& text)
{
    if (utf8(edit_->text()) != text) {
        const QSignalBlocker blocker(edit_);
        edit_->setText(qt(text));
    }
    mark();
}

void TimecodeField::mark()
{
    const auto problem = problem_(utf8(edit_->text()));
    showMessage(*complaint_, problem.value_or(""));
    complaint_->setVisible(problem.has_value());
    setTip(*edit_, std::vector{problem.value_or("")});
    if (edit_->property("bad").toBool() == problem.has_value())
        return;
    edit_->setProperty("bad", problem.has_value());
    edit_->style()->unpolish(edit_);
    edit_->style()->polish(edit_);
}

} // namespace corvane
