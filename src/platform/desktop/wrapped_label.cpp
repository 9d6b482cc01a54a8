#include "platform/desktop/wrapped_label.h"

#include <QPainter>
#include <QScreen>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr int kComfortableWidth = 480; // pixels
constexpr int kComfortableLines = 12;
constexpr int kScreenEdge = 200;         // what the widest label leaves free
constexpr qsizetype kLongestText = 4500; // a path as long as the system allows, and words around it

QTextOption wrapping()
{
    QTextOption option(Qt::AlignLeft | Qt::AlignVCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

QString withoutMiddle(const QString& text)
{
    return text.size() <= kLongestText
               ? text
               : text.left(kLongestText / 2) + QChar(0x2026) + text.right(kLongestText / 2);
}

// The room of one paragraph: as wide as its widest line.
QSizeF paragraphSize(const QString& text, const QFont& font, int width)
{
    QTextLayout layout(text, font);
    layout.setTextOption(wrapping());
    layout.beginLayout();
    QSizeF size;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        size.setWidth(std::max(size.width(), line.naturalTextWidth()));
        size.rheight() += line.height();
    }
    layout.endLayout();
    return size;
}

} // namespace

WrappedLabel::WrappedLabel(const QString& text, QWidget* parent)
    : QLabel(parent)
{
    // Texts hold paths and what servers said, which must not act as markup.
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setText(withoutMiddle(text));
}

QSize WrappedLabel::sizeWithin(int width) const
{
    QSizeF size;
    for (const QString& paragraph : text().split(QLatin1Char('\n'))) {
        const QSizeF part = paragraphSize(paragraph, font(), width);
        size = {std::max(size.width(), part.width()), size.height() + part.height()};
    }
    return {int(std::ceil(size.width())) + 1, int(std::ceil(size.height()))};
}

QSize WrappedLabel::sizeHint() const
{
    const QSize size = sizeWithin(kComfortableWidth);
    const int widest = screen()->availableGeometry().width() - kScreenEdge;
    return size.height() <= kComfortableLines * fontMetrics().height() ||
                   widest <= kComfortableWidth
               ? size
               : sizeWithin(widest);
}

void WrappedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(QRectF(rect()), text(), wrapping());
}

} // namespace platform
