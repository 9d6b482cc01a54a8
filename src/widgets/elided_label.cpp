#include "widgets/elided_label.h"

#include "widgets/plain_tip.h"

#include <QPainter>
#include <QStyle>

namespace widgets {

namespace {

constexpr int kLeastLetters = 12;

} // namespace

ElidedLabel::ElidedLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setPlainTip(*this, text);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QString ElidedLabel::shownText() const
{
    QString line = text();
    return fontMetrics().elidedText(line.replace(u'\n', u' '), Qt::ElideMiddle,
                                    contentsRect().width());
}

QSize ElidedLabel::sizeHint() const
{
    return minimumSizeHint();
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * kLeastLetters, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                          isEnabled(), shownText(), foregroundRole());
}

} // namespace widgets
