#include "widgets/colour_swatch.h"

#include "platform/desktop/dialogs.h"
#include "widgets/colour_conversion.h"

#include <QPainter>
#include <QPointer>

namespace {

constexpr double kDisabledOpacity = 0.3;
constexpr float kEdgeShare = 0.4F; // of the text's colour over the window's

// Between window and text, so that a field as dark or as light as the window stands out from it.
QColor edgeColour(const QPalette& palette)
{
    QColor edge = palette.color(QPalette::WindowText);
    edge.setAlphaF(kEdgeShare);
    return edge;
}

// The child that carries the colour; it frames itself while the control has the focus.
class ColourField : public QWidget {
public:
    explicit ColourField(AASelectColor* control)
        : QWidget(control)
        , m_control(*control)
    {
        setObjectName("picColor");
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const QColor colour = widgets::toQColor(m_control.Color());
        QPainter painter(this);
        painter.setOpacity(isEnabled() ? 1.0 : kDisabledOpacity);
        painter.fillRect(rect(), colour);
        painter.setPen(edgeColour(palette()));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        if (m_control.hasFocus()) {
            painter.setPen(QPen(widgets::legibleOn(colour), 1, Qt::DotLine));
            painter.drawRect(rect().adjusted(2, 2, -3, -3));
        }
    }

private:
    const AASelectColor& m_control;
};

} // namespace

AASelectColor::AASelectColor(QWidget* parent)
    : QAbstractButton(parent)
    , m_picColor(new ColourField(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName("Colour");
    connect(this, &QAbstractButton::clicked, this, &AASelectColor::chooseColour);
}

void AASelectColor::setColor(base::Colour colour)
{
    if (colour != m_colour) {
        m_colour = colour;
        m_picColor->update();
    }
}

QVariantMap AASelectColor::WriteProperties() const
{
    return {{"Color", m_colour}};
}

void AASelectColor::ReadProperties(const QVariantMap& bag)
{
    setColor(bag.value("Color", 0xFFFFFFU).toUInt());
}

QSize AASelectColor::sizeHint() const
{
    return {48, 24};
}

// The field paints all of the control.
void AASelectColor::paintEvent(QPaintEvent* /*event*/) {}

void AASelectColor::resizeEvent(QResizeEvent* /*event*/)
{
    m_picColor->resize(size());
}

void AASelectColor::chooseColour()
{
    const QPointer<AASelectColor> guard(this);
    const auto chosen = platform::dialogs().chooseColour(base::translated(m_colour));
    if (!chosen || guard.isNull()) {
        return;
    }
    setColor(*chosen);
    emit Changed();
}
