#include "widgets/bevel.h"

#include "widgets/colour_conversion.h"

namespace {

constexpr int kSunk = 0;
constexpr int kRaised = 2;
constexpr base::Colour kDark = 0x808080;
constexpr base::Colour kLight = 0xFFFFFF;

void paintStrip(QWidget& strip, base::Colour colour)
{
    QPalette colours = strip.palette();
    colours.setColor(QPalette::Window, widgets::toQColor(colour));
    strip.setPalette(colours);
}

} // namespace

Bevel::Bevel(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    int number = 0;
    for (QWidget*& strip : m_strips) {
        strip = new QWidget(this);
        strip->setObjectName(QStringLiteral("Picture%1").arg(++number));
        strip->setAutoFillBackground(true);
    }
    m_style = kRaised;
    setBevelSytle(kSunk);
}

void Bevel::setBevelSytle(int style)
{
    if (style == m_style || (style != kSunk && style != kRaised)) {
        return;
    }
    m_style = style;
    const base::Colour upper = style == kSunk ? kDark : kLight;
    const base::Colour lower = style == kSunk ? kLight : kDark;
    paintStrip(*m_strips[0], upper);
    paintStrip(*m_strips[1], upper);
    paintStrip(*m_strips[2], lower);
    paintStrip(*m_strips[3], lower);
}

base::Colour Bevel::stripColour(int strip) const
{
    return widgets::fromQColor(
        m_strips.at(static_cast<std::size_t>(strip))->palette().color(QPalette::Window));
}

void Bevel::resizeEvent(QResizeEvent* /*event*/)
{
    m_strips[0]->setGeometry(0, 0, width(), 1);
    m_strips[1]->setGeometry(0, 0, 1, height());
    m_strips[2]->setGeometry(0, height() - 1, width(), 1);
    m_strips[3]->setGeometry(width() - 1, 0, 1, height());
}
