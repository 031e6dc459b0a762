#include "workspace/window/side_sheet.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <utility>

namespace corvane {

SideSheet::SideSheet(const QString& title, Place place, QString helpTopic, QWidget* parent)
    : QDialog(parent, Qt::Tool), place_(place), helpTopic_(std::move(helpTopic)), column_(new QVBoxLayout(this))
{
    setWindowTitle(title);
    auto* heading = new QLabel(title, this);
    heading->setProperty("role", "title");
    column_->addWidget(heading);
}

/// Before the key of the menu, which opens the manual where it was left.
bool SideSheet::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = dynamic_cast<QKeyEvent*>(event);
        if (key != nullptr && key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier)
            event->accept();
    }
    return QDialog::event(event);
}

void SideSheet::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1)
        emit helpWanted(helpTopic_);
    else
        QDialog::keyPressEvent(event);
}

void SideSheet::present(QWidget& first)
{
    first.setFocus();
    if (!testAttribute(Qt::WA_Moved)) // afterwards it opens where it was
        moveToPlace();
    show();
    raise();
    activateWindow();
}

void SideSheet::moveToPlace()
{
    const QRect window = parentWidget()->window()->frameGeometry();
    const int left = place_ == Place::settings ? window.left() : window.right() + 1 - width();
    move(left, window.top() + (window.height() - height()) / 2);
}

void SideSheet::setFirstSize(int digits, int lines)
{
    const QSize wanted(digits * fontMetrics().horizontalAdvance('0'), lines * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(parentWidget()->window()->size()));
}

/// None of them is the default, so that Return belongs to what has the focus.
void SideSheet::addButtons(const QList<QPushButton*>& buttons)
{
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    auto* close = new QPushButton(tr("Close"), this);
    for (QPushButton* button : buttons + QList{close}) {
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    column_->addLayout(row);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

} // namespace corvane
