#include "workspace/window/pictures/accessible_strip.h"

#include "workspace/window/accessible_value.h"

#include <QAccessibleWidget>
#include <algorithm>

namespace corvane {

namespace {

class AccessibleStrip : public QAccessibleWidget, public QAccessibleValueInterface, public AccessibleShownText {
public:
    explicit AccessibleStrip(CutStrip& strip) : QAccessibleWidget(&strip, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    using AccessibleShownText::text;
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? strip().currentInWords() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QRect characterRect(int) const override { return rect(); }

    [[nodiscard]] QVariant currentValue() const override { return strip().marked().current + 1; }
    void setCurrentValue(const QVariant& value) override
    {
        strip().pick(static_cast<std::size_t>(std::max(0, value.toInt() - 1)));
    }
    [[nodiscard]] QVariant maximumValue() const override { return strip().cuts(); }
    [[nodiscard]] QVariant minimumValue() const override { return 1; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

protected:
    [[nodiscard]] QString shownText() const override { return strip().currentInWords(); }

private:
    [[nodiscard]] CutStrip& strip() const { return *qobject_cast<CutStrip*>(object()); }
};

} // namespace

QAccessibleInterface* accessibleStrip(CutStrip& strip)
{
    return new AccessibleStrip(strip);
}

} // namespace corvane
