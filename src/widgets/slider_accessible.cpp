#include "widgets/slider_accessible.h"

#include "widgets/slider.h"

#include <QAccessibleWidget>

namespace widgets {

namespace {

class AccessibleSlider : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleSlider(cpvSlider* slider)
        : QAccessibleWidget(slider, QAccessible::Slider)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QVariant currentValue() const override { return slider().Value(); }
    void setCurrentValue(const QVariant& value) override
    {
        // A value outside the scale changes nothing, which the reader sees when it asks again.
        static_cast<void>(slider().setValue(value.toInt()));
    }
    [[nodiscard]] QVariant maximumValue() const override { return slider().Max(); }
    [[nodiscard]] QVariant minimumValue() const override { return slider().Min(); }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

private:
    [[nodiscard]] cpvSlider& slider() const { return *static_cast<cpvSlider*>(widget()); }
};

QAccessibleInterface* createInterface(const QString& /*className*/, QObject* object)
{
    auto* slider = qobject_cast<cpvSlider*>(object);
    return slider != nullptr ? new AccessibleSlider(slider) : nullptr; // the toolkit owns it
}

} // namespace

void installSliderAccessibility()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(createInterface);
        return true;
    }();
    static_cast<void>(isInstalled);
}

void announceSliderValue(cpvSlider& slider)
{
    QAccessibleValueChangeEvent event(&slider, slider.Value());
    QAccessible::updateAccessibility(&event);
}

} // namespace widgets
