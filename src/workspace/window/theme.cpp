#include "workspace/window/theme.h"

#include <QFile>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>

namespace corvane::theme {

namespace {

QPalette palette()
{
    QPalette colors;
    colors.setColor(QPalette::Window, background);
    colors.setColor(QPalette::WindowText, warmWhite);
    colors.setColor(QPalette::Base, fieldGrey);
    colors.setColor(QPalette::AlternateBase, QColor(0x25, 0x25, 0x25));
    colors.setColor(QPalette::Text, warmWhite);
    colors.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x93, 0x88));
    colors.setColor(QPalette::Button, QColor(0x42, 0x42, 0x42));
    colors.setColor(QPalette::ButtonText, warmWhite);
    colors.setColor(QPalette::BrightText, orange);
    colors.setColor(QPalette::Highlight, QColor(0xb8, 0x55, 0x14));
    colors.setColor(QPalette::HighlightedText, Qt::white);
    colors.setColor(QPalette::Link, orange);
    colors.setColor(QPalette::LinkVisited, orange);
    colors.setColor(QPalette::ToolTipBase, QColor(0x1b, 0x1b, 0x1b));
    colors.setColor(QPalette::ToolTipText, warmWhite);
    colors.setColor(QPalette::Light, QColor(0x55, 0x55, 0x55));
    colors.setColor(QPalette::Midlight, QColor(0x48, 0x48, 0x48));
    colors.setColor(QPalette::Mid, QColor(0x30, 0x30, 0x30));
    colors.setColor(QPalette::Dark, QColor(0x22, 0x22, 0x22));
    colors.setColor(QPalette::Shadow, QColor(0x12, 0x12, 0x12));
    const QColor faded(0x85, 0x80, 0x78);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colors.setColor(QPalette::Disabled, role, faded);
    colors.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x55, 0x50, 0x4a));
    return colors;
}

} // namespace

void apply(QApplication& application)
{
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(palette());
    QFile sheet(":/corvane/window.qss");
    if (sheet.open(QFile::ReadOnly))
        application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
    QApplication::setWindowIcon(icon());
}

QIcon icon()
{
    QIcon icon;
    for (const int size : {16, 32, 64, 128, 256})
        icon.addFile(QString(":/corvane/CorvaneIcon-%1.png").arg(size), QSize(size, size));
    return icon;
}

std::string decimalSign()
{
    return QLocale().decimalPoint().toStdString();
}

} // namespace corvane::theme
