#include "workspace/window/check_sheet.h"

#include "workspace/check_facts.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane {

namespace {

/// Lines and columns stay; whatever else cannot be seen is marked.
QString drawnLines(const std::string& text)
{
    QString drawn;
    for (const QString& line : qt(text).split('\n')) {
        QStringList cells;
        for (const QString& cell : line.split('\t'))
            cells << shown(utf8(cell));
        drawn += cells.join("\t") + "\n";
    }
    return drawn.trimmed();
}

} // namespace

CheckSheet::CheckSheet(const ContentView& view, QWidget* parent)
    : QDialog(parent), view_(view), text_(new QPlainTextEdit(this))
{
    setWindowTitle(tr("Check project"));
    setWindowModality(Qt::WindowModal);
    resize(640, 460);
    auto* column = new QVBoxLayout(this);
    auto* title = new QLabel(tr("What can be cut, and what an export will refuse"), this);
    title->setProperty("role", "title");
    column->addWidget(title);
    text_->setReadOnly(true);
    text_->setTabChangesFocus(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setAccessibleName(tr("What can be cut, and what an export will refuse"));
    text_->setTabStopDistance(16.0 * text_->fontMetrics().horizontalAdvance('0'));
    column->addWidget(text_, 1);
    auto* buttons = new QHBoxLayout;
    auto* copy = new QPushButton(tr("&Copy"), this);
    copy->setAutoDefault(false);
    auto* close = new QPushButton(tr("C&lose"), this);
    close->setDefault(true);
    close->setProperty("role", "primary");
    buttons->addStretch(1);
    buttons->addWidget(copy);
    buttons->addWidget(close);
    column->addLayout(buttons);
    connect(copy, &QPushButton::clicked, this, &CheckSheet::copy);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

void CheckSheet::present()
{
    plain_ = projectCheckText(view_, theme::decimalSign());
    text_->setPlainText(drawnLines(plain_));
    text_->setFocus();
    open();
}

void CheckSheet::copy() const
{
    QGuiApplication::clipboard()->setText(qt(plain_));
}

} // namespace corvane
