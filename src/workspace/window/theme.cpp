#include "workspace/window/theme.h"

#include "workspace/window/flat_controls.h"
#include "workspace/window/qt_text.h"

#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

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

/// Paints check boxes with a border that is visible on a dark background, and flat pickers and number boxes, and makes
/// labels treat texts as plain text.
class DarkStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    /// A label interprets markup only if it was told to. The toolkit would guess, and load files that a name in the
    /// text refers to. Tooltips are not changed here, because their texts are escaped when they are set.
    void polish(QWidget* widget) override
    {
        QProxyStyle::polish(widget);
        auto* label = qobject_cast<QLabel*>(widget);
        if (label != nullptr && label->textFormat() == Qt::AutoText && !label->inherits("QTipLabel"))
            label->setTextFormat(Qt::PlainText);
    }
    using QProxyStyle::polish;

    /// The file chooser's box of folders would draw a path with its control characters.
    void drawControl(
        ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override
    {
        const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        if (element != CE_ComboBoxLabel || box == nullptr) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        QStyleOptionComboBox marked = *box;
        marked.currentText = shown(utf8(box->currentText));
        QProxyStyle::drawControl(element, &marked, painter, widget);
    }

    void drawComplexControl(
        ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
        const QWidget* widget) const override
    {
        const auto part = [&](SubControl which) { return proxy()->subControlRect(control, option, which, widget); };
        if (control == CC_ComboBox) {
            paintPicker(*painter, *option, part(SC_ComboBoxArrow));
        } else if (const auto* box = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
                   control == CC_SpinBox && box != nullptr) {
            paintNumberBox(*painter, *box, part(SC_SpinBoxUp), part(SC_SpinBoxDown));
        } else {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
        }
    }

    void drawPrimitive(
        PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override
    {
        if (element != PE_IndicatorCheckBox) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        const bool on = option->state.testFlag(State_On);
        const bool enabled = option->state.testFlag(State_Enabled);
        const QRectF box = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(option->state.testFlag(State_HasFocus) ? warmWhite : QColor(0x8a, 0x85, 0x7e), 1));
        painter->setBrush(!on ? fieldGrey : enabled ? orange : unusedGrey);
        painter->drawRoundedRect(box, 3, 3);
        if (on) {
            painter->setPen(QPen(QColor(0x1d, 0x10, 0x06), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            const auto at = [&box](double x, double y) {
                return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
            };
            painter->drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.72), at(0.78, 0.3)}));
        }
        painter->restore();
    }
};

} // namespace

void apply(QApplication& application)
{
    QApplication::setStyle(new DarkStyle("Fusion"));
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
