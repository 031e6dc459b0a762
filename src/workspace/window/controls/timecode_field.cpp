#include "workspace/window/controls/timecode_field.h"

#include "workspace/window/controls/kept_lines.h"
#include "workspace/window/controls/undo_keys.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/tooltips.h"

#include <QHBoxLayout>
#include <QStyle>
#include <algorithm>

namespace corvane {

namespace {

/// True if all four parts are there, the last with two digits.
bool isComplete(const QString& text)
{
    const auto isSign = [](QChar character) { return character == ':' || character == ';'; };
    const auto lastSign = std::max(text.lastIndexOf(':'), text.lastIndexOf(';'));
    return std::ranges::count_if(text, isSign) >= 3 && text.size() - lastSign > 2;
}

} // namespace

TimecodeField::TimecodeField(const QString& label, Judge judge, QWidget* parent)
    : QWidget(parent),
      judge_(std::move(judge)),
      edit_(new QLineEdit(this)),
      complaint_(new QLabel(this)),
      use_(new QPushButton(this))
{
    arrange(label);
    // Also emitted for text from assistive technology, but not for show(), which blocks the signals.
    connect(edit_, &QLineEdit::textChanged, this, [this](const QString& text) {
        typing_ = edit_->hasFocus() && !isComplete(text);
        mark();
        emit typed(utf8(text));
    });
    connect(edit_, &QLineEdit::editingFinished, this, [this] {
        typing_ = false;
        mark();
    });
    connect(use_, &QPushButton::clicked, this, [this] {
        edit_->setFocus(); // before the button disappears
        edit_->setText(qt(instead_));
    });
}

void TimecodeField::arrange(const QString& label)
{
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    auto* name = new QLabel(label, this);
    name->setBuddy(edit_);
    name->setFixedWidth(name->fontMetrics().horizontalAdvance(tr("Start")) + 2);
    edit_->setAcceptDrops(false); // files are dropped on the window
    leaveUndoToWindow(*edit_);
    edit_->setPlaceholderText("HH:MM:SS:FF");
    edit_->setFixedWidth(edit_->fontMetrics().horizontalAdvance("HH:MM:SS:FF") + 30);
    complaint_->setWordWrap(true);
    complaint_->setMinimumWidth(1); // like helpLabel
    complaint_->setProperty("role", "complaint");
    auto* place = new KeptLines(2, this);
    place->add(*complaint_);
    use_->hide();
    line->addWidget(name);
    line->addWidget(edit_);
    line->addWidget(use_);
    line->addWidget(place, 1);
}

void TimecodeField::show(const std::string& text)
{
    if (showWhole(*edit_, text))
        typing_ = false;
    mark();
}

void TimecodeField::mark()
{
    const auto advice = typing_ ? std::nullopt : judge_(utf8(edit_->text()));
    instead_ = advice ? advice->instead.value_or("") : "";
    showMessage(*complaint_, advice && instead_.empty() ? advice->problem : "");
    use_->setText(tr("Use %1").arg(qt(instead_)));
    use_->setVisible(!instead_.empty());
    for (QWidget* told : {static_cast<QWidget*>(edit_), static_cast<QWidget*>(use_)})
        setTip(*told, std::vector{advice ? advice->problem : ""});
    if (edit_->property("bad").toBool() == advice.has_value())
        return;
    edit_->setProperty("bad", advice.has_value());
    edit_->style()->unpolish(edit_);
    edit_->style()->polish(edit_);
}

} // namespace corvane
