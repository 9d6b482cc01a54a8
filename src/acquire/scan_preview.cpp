#include "acquire/scan_preview.h"

#include "widgets/focus_ring.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace acquire {

namespace {

constexpr int kWidth = 300; // pixels
constexpr int kHeight = 400;
constexpr int kMargin = 6;
constexpr double kReach = 6;
constexpr double kKnob = 6;
constexpr double kSmallStep = 1; // units of the scanner
constexpr double kLargeStep = 10;
constexpr double kLeastPart = 0.002; // of the bed, what is no slip of the hand

const QColor kPaper(0xFF, 0xFF, 0xFF);
const QColor kShade(0, 0, 0, 96);
const QColor kLine(0x1A, 0x66, 0xCC);

QPointF directionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

Qt::CursorShape shapeOf(const AreaGrip& grip)
{
    if (grip.isNone()) {
        return Qt::CrossCursor;
    }
    if (grip.isAll()) {
        return Qt::SizeAllCursor;
    }
    const bool sideways = grip.left || grip.right;
    const bool upright = grip.top || grip.bottom;
    if (sideways && upright) {
        return grip.left == grip.top ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    }
    return sideways ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

} // namespace

ScanPreview::ScanPreview(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    new widgets::FocusRing(*this); // owned by this
}

QSize ScanPreview::sizeHint() const
{
    return {kWidth, kHeight};
}

QSize ScanPreview::minimumSizeHint() const
{
    return {kWidth / 2, kHeight / 2};
}

void ScanPreview::setBed(const QRectF& bed)
{
    if (bed != m_bed) {
        m_bed = bed;
        setArea(m_area);
        update();
    }
}

void ScanPreview::setArea(const QRectF& area)
{
    const QRectF inside = area & m_bed;
    const QRectF wanted = inside.isEmpty() ? m_bed : inside;
    if (wanted != m_area) {
        m_area = wanted;
        update();
    }
}

void ScanPreview::setPreview(const QImage& preview)
{
    m_preview = preview.convertToFormat(QImage::Format_RGB32);
    update();
}

QRectF ScanPreview::bedPlace() const
{
    const QRectF room = QRectF(rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const QSizeF size = m_bed.isEmpty() ? QSizeF(m_preview.size()) : m_bed.size();
    return size.isEmpty() ? room : fittedInto(room, size);
}

QPointF ScanPreview::onBed(QPointF place) const
{
    return mapped(QRectF(place, QSizeF(0, 0)), bedPlace(), m_bed).topLeft();
}

void ScanPreview::changeArea(const QRectF& area)
{
    const QRectF before = m_area;
    setArea(area);
    if (m_area != before) {
        emit areaDragged(m_area);
    }
}

void ScanPreview::showGrip(QPointF place)
{
    const bool hasArea = !m_bed.isEmpty() && isEnabled();
    setCursor(hasArea ? shapeOf(gripAt(mapped(m_area, m_bed, bedPlace()), place, kReach))
                      : Qt::ArrowCursor);
}

void ScanPreview::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_bed.isEmpty()) {
        return;
    }
    m_pressed = onBed(event->position());
    m_areaBefore = m_area;
    m_grip = gripAt(mapped(m_area, m_bed, bedPlace()), event->position(), kReach);
    // All of the bed can only be moved to where it is.
    if (m_grip.isAll() && m_area == m_bed) {
        m_grip = {};
    }
    m_dragging = true;
}

void ScanPreview::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragging) {
        showGrip(event->position());
        return;
    }
    const QPointF place = onBed(event->position());
    if (!m_grip.isNone()) {
        changeArea(dragged(m_areaBefore, m_grip, place - m_pressed, m_bed));
        return;
    }
    const QRectF drawn = QRectF(m_pressed, place).normalized() & m_bed;
    if (drawn.width() > m_bed.width() * kLeastPart &&
        drawn.height() > m_bed.height() * kLeastPart) {
        changeArea(drawn);
    }
}

void ScanPreview::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragging = false;
    showGrip(event->position());
}

void ScanPreview::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        changeArea(m_bed);
    }
}

void ScanPreview::keyPressEvent(QKeyEvent* event)
{
    const QPointF direction = directionOf(event->key());
    if (event->matches(QKeySequence::SelectAll)) {
        changeArea(m_bed);
    } else if (!direction.isNull() && !m_bed.isEmpty()) {
        const double step =
            event->modifiers().testFlag(Qt::ControlModifier) ? kLargeStep : kSmallStep;
        const bool resizes = event->modifiers().testFlag(Qt::ShiftModifier);
        const AreaGrip grip = resizes ? AreaGrip{false, false, true, true} : kWholeArea;
        const QRectF area = dragged(m_area, grip, direction * step, m_bed);
        if (!area.isEmpty()) {
            changeArea(area);
        }
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ScanPreview::paintArea(QPainter& painter, const QRectF& bedPlace) const
{
    const QRectF area = mapped(m_area, m_bed, bedPlace);
    QPainterPath shade;
    shade.addRect(bedPlace);
    shade.addRect(area);
    painter.fillPath(shade, kShade);
    painter.setPen(QPen(kLine, 1.5));
    painter.drawRect(area);
    for (const double x : {area.left(), area.center().x(), area.right()}) {
        for (const double y : {area.top(), area.center().y(), area.bottom()}) {
            if (QPointF(x, y) != area.center()) {
                painter.fillRect(QRectF(x - kKnob / 2, y - kKnob / 2, kKnob, kKnob), kLine);
            }
        }
    }
}

void ScanPreview::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF place = bedPlace();
    painter.fillRect(place, kPaper);
    if (!m_preview.isNull()) {
        painter.drawImage(place, m_preview);
    }
    if (!m_bed.isEmpty() && isEnabled()) {
        paintArea(painter, place);
    }
    painter.setPen(palette().color(QPalette::Dark));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place);
}

} // namespace acquire
