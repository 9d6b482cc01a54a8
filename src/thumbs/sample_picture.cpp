#include "thumbs/sample_picture.h"

#include <QPainter>
#include <QPainterPath>

namespace thumbs {

namespace {

constexpr int kWidth = 240;
constexpr int kHeight = 160;

QPainterPath hill(double left, double middle, double right)
{
    QPainterPath path(QPointF(0, left));
    path.cubicTo({80, middle}, {150, middle}, {double(kWidth), right});
    path.lineTo(kWidth, kHeight);
    path.lineTo(0, kHeight);
    path.closeSubpath();
    return path;
}

} // namespace

QImage samplePicture()
{
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, kHeight);
    sky.setColorAt(0, QColor(46, 74, 120));
    sky.setColorAt(0.7, QColor(240, 176, 122));
    painter.fillRect(image.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 226, 168));
    painter.drawEllipse(QPointF(168, 84), 17, 17);
    painter.setBrush(QColor(92, 96, 128));
    painter.drawPath(hill(104, 64, 118));
    painter.setBrush(QColor(52, 74, 72));
    painter.drawPath(hill(126, 142, 96));
    return image;
}

} // namespace thumbs
