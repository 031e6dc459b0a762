#include "workspace/window/controls/elided_check_box.h"

#include "workspace/window/elision.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace corvane {

ElidedCheckBox::ElidedCheckBox(QWidget* parent) : QCheckBox(parent)
{
    setMinimumWidth(1); // so that a long name does not widen the panel
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedCheckBox::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    constexpr int gap = 4; // which styles leave after the icon
    const int icon = option.icon.isNull() ? 0 : option.iconSize.width() + gap;
    const int room = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this).width() - icon;
    const QString name = option.text.replace("&&", "&");
    option.text = elided(fontMetrics(), name, room, {0, telling_}).replace("&", "&&");
    painter.drawControl(QStyle::CE_CheckBox, option);
}

} // namespace corvane
