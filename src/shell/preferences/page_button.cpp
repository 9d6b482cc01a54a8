#include "shell/preferences/page_button.h"

#include <QPainter>

namespace preferences {

namespace {

constexpr int kHeight = 34; // pixels
constexpr int kMargin = 14;
constexpr double kCorner = 5;
constexpr float kHoverVeil = 0.08F;

} // namespace

PageButton::PageButton(const QString& text)
{
    setText(text);
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize PageButton::sizeHint() const
{
    const QSize size = fontMetrics().size(Qt::TextShowMnemonic, text());
    return {size.width() + 2 * kMargin, std::max(kHeight, size.height())};
}

void PageButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    painter.setPen(palette().color(isChecked() ? QPalette::HighlightedText : QPalette::WindowText));
    painter.drawText(rect().adjusted(kMargin, 0, -kMargin, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
}

void PageButton::paintGround(QPainter& painter) const
{
    QColor ground = Qt::transparent;
    if (isChecked()) {
        ground = palette().color(QPalette::Highlight);
    } else if (underMouse()) {
        ground = palette().color(QPalette::WindowText);
        ground.setAlphaF(kHoverVeil);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect(), kCorner, kCorner);
    if (hasFocus()) {
        painter.setPen(
            palette().color(isChecked() ? QPalette::HighlightedText : QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), kCorner - 2,
                                kCorner - 2);
    }
}

} // namespace preferences
