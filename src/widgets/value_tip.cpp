#include "widgets/value_tip.h"

#include "core/window_names.h"
#include "widgets/colour_conversion.h"

#include <QPainter>
#include <algorithm>

namespace {

constexpr base::Colour kLightEdge = base::systemColour(0x16);
constexpr base::Colour kDarkEdge = base::systemColour(0x15);
constexpr base::Colour kBackground = base::rgb(0xFF, 0xFF, 0xE1);
constexpr base::Colour kInk = base::rgb(0, 0, 0);
constexpr QSize kRoomAround{10, 6};

} // namespace

frmValueTip::frmValueTip(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus)
{
    setObjectName(core::windowName(core::Window::frmValueTip));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void frmValueTip::setText(const QString& text)
{
    m_text = text;
    setAccessibleName(text);
    resize(fontMetrics().size(Qt::TextSingleLine, text) + kRoomAround);
    update();
}

void frmValueTip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), widgets::toQColor(kBackground));
    painter.fillRect(0, 0, width(), 1, widgets::toQColor(kLightEdge));
    painter.fillRect(0, 0, 1, height(), widgets::toQColor(kLightEdge));
    painter.fillRect(0, height() - 1, width(), 1, widgets::toQColor(kDarkEdge));
    painter.fillRect(width() - 1, 0, 1, height(), widgets::toQColor(kDarkEdge));
    painter.setPen(widgets::toQColor(kInk));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, m_text);
}

namespace widgets {

namespace {

constexpr int kGap = 4;

QPoint insideScreen(QPoint wished, QSize tip, const QRect& screen)
{
    const int rightmost = std::max(screen.left(), screen.right() + 1 - tip.width());
    const int lowest = std::max(screen.top(), screen.bottom() + 1 - tip.height());
    return {std::clamp(wished.x(), screen.left(), rightmost),
            std::clamp(wished.y(), screen.top(), lowest)};
}

} // namespace

QPoint tipBesideRow(const QRect& slider, const QRect& knob, QSize tip, const QRect& screen)
{
    const int left = knob.left() + (knob.width() - tip.width()) / 2;
    return insideScreen({left, slider.top() - kGap - tip.height()}, tip, screen);
}

QPoint tipBesideColumn(const QRect& slider, const QRect& knob, QSize tip, const QRect& screen)
{
    const int top = knob.top() + (knob.height() - tip.height()) / 2;
    return insideScreen({slider.right() + 1 + kGap, top}, tip, screen);
}

} // namespace widgets
