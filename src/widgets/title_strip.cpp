#include "widgets/title_strip.h"

#include "core/settings.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "widgets/colour_conversion.h"
#include "widgets/window_drag.h"

#include <QAbstractButton>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace widgets {

namespace {

constexpr int kStripHeight = 28;
constexpr int kCloseBoxSize = 22;
constexpr int kMargin = 8;
constexpr base::Colour kFirstBackground = base::rgb(0x2F, 0x4A, 0x6D);
constexpr const char* kNameWithoutCaption = "Title bar";

// A cross in the ink of the caption, which stands out while the pointer is over it.
class CloseBox : public QAbstractButton {
public:
    explicit CloseBox(TitleStrip* strip)
        : QAbstractButton(strip)
        , m_strip(*strip)
    {
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
        setAccessibleName("Close");
        setToolTip(accessibleName());
        setCursor(Qt::ArrowCursor);
        resize(kCloseBoxSize, kCloseBoxSize);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor ink = m_strip.captionColour();
        if (underMouse() || hasFocus()) {
            QColor veil = ink;
            veil.setAlphaF(isDown() ? 0.38F : 0.2F);
            painter.setPen(hasFocus() ? QPen(ink, 1) : QPen(Qt::NoPen));
            painter.setBrush(veil);
            painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        }
        painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap));
        const QPointF centre = QRectF(rect()).center();
        const double arm = 4.0;
        painter.drawLine(centre + QPointF(-arm, -arm), centre + QPointF(arm, arm));
        painter.drawLine(centre + QPointF(-arm, arm), centre + QPointF(arm, -arm));
    }

private:
    const TitleStrip& m_strip;
};

QImage titlePicture(double ratio)
{
    if (ratio > 1.0) {
        const auto sharp = platform::loadPicture(platform::appFile("Images/Titlebar@2x.gif"));
        if (sharp) {
            QImage picture = sharp->image();
            picture.setDevicePixelRatio(2);
            return picture;
        }
    }
    const auto picture = platform::loadPicture(platform::appFile("Images/Titlebar.gif"));
    return picture ? picture->image() : QImage();
}

} // namespace

TitleStrip::TitleStrip(QWidget* parent, const QString& closeBoxName)
    : QWidget(parent)
    , m_background(toQColor(kFirstBackground))
{
    setObjectName("Picture2");
    setAccessibleName(kNameWithoutCaption);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_closeBox = new CloseBox(this);
    m_closeBox->setObjectName(closeBoxName);
    connect(m_closeBox, &QAbstractButton::clicked, this, &TitleStrip::closeRequested);
}

void TitleStrip::applyLook()
{
    m_picture = QImage();
    if (core::setting(core::kOwnLook)) {
        m_picture = titlePicture(devicePixelRatioF());
    } else if (const auto colour = core::setting(core::kTitleColour)) {
        m_background = toQColor(*colour);
    }
    update();
}

void TitleStrip::clearPicture()
{
    m_picture = QImage();
    update();
}

void TitleStrip::setCaption(const QString& caption)
{
    if (caption == m_caption) {
        return;
    }
    m_caption = caption;
    setAccessibleName(caption.isEmpty() ? kNameWithoutCaption : caption);
    update();
}

void TitleStrip::setDragTarget(QWidget* target)
{
    m_dragsWindow = false;
    m_dragTarget = target;
}

QSize TitleStrip::sizeHint() const
{
    return {200, kStripHeight};
}

QSize TitleStrip::minimumSizeHint() const
{
    return {kCloseBoxSize + 2 * kMargin, kStripHeight};
}

void TitleStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_background);
    if (!m_picture.isNull()) {
        drawPicture(painter);
    }
    const QRect place = captionPlace();
    if (m_caption.isEmpty() || place.width() <= 0) {
        return;
    }
    painter.setFont(captionFont());
    painter.setPen(captionColour());
    const QString shown =
        painter.fontMetrics().elidedText(m_caption, Qt::ElideRight, place.width());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

// From the picture's left end, at its own width where that reaches; always as tall as the strip.
void TitleStrip::drawPicture(QPainter& painter) const
{
    const double wanted = width() * m_picture.devicePixelRatio();
    const double shown = std::min(wanted, static_cast<double>(m_picture.width()));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(rect()), m_picture, QRectF(0, 0, shown, m_picture.height()));
}

void TitleStrip::resizeEvent(QResizeEvent* /*event*/)
{
    const int edge = (height() - kCloseBoxSize) / 2;
    m_closeBox->move(width() - kCloseBoxSize - qMax(edge, 2), edge);
}

void TitleStrip::mousePressEvent(QMouseEvent* event)
{
    QWidget* target = m_dragsWindow ? window() : m_dragTarget.data();
    if (event->button() != Qt::LeftButton || target == nullptr) {
        QWidget::mousePressEvent(event);
        return;
    }
    beginDrag(*target, event->globalPosition().toPoint());
}

QFont TitleStrip::captionFont() const
{
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    return bold;
}

// As wide as the text, but at most up to the close box.
QRect TitleStrip::captionPlace() const
{
    const int end = m_closeBox->isHidden() ? width() : m_closeBox->x();
    const int wanted = QFontMetrics(captionFont()).horizontalAdvance(m_caption) + 1;
    return {kMargin, 0, std::min(wanted, end - 2 * kMargin), height()};
}

QColor TitleStrip::captionColour() const
{
    return inkOver(captionPlace());
}

QColor TitleStrip::inkOver(const QRect& part) const
{
    const QRect area = part & rect();
    if (m_picture.isNull() || area.isEmpty()) {
        return legibleOn(m_background);
    }
    // The mean of what is painted there is what the ink has to stand out from.
    QImage painted(area.size(), QImage::Format_RGB32);
    painted.fill(m_background);
    QPainter painter(&painted);
    painter.translate(-area.topLeft());
    drawPicture(painter);
    painter.end();
    return legibleOn(
        painted.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0));
}

} // namespace widgets
