#include "widgets/slider.h"

#include "base/numbers.h"
#include "widgets/button_surface.h"
#include "widgets/colour_conversion.h"
#include "widgets/slider_accessible.h"
#include "widgets/slider_knob.h"
#include "widgets/value_tip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <array>

using widgets::SliderAxis;

namespace {

constexpr int kPictureRail = 99;
constexpr int kRailBreadth = 4;
constexpr QSize kLyingSize{160, 25};

constexpr base::Colour kWhite = base::systemColour(20);
constexpr base::Colour kShadow = base::systemColour(16);
constexpr base::Colour kDarkShadow = base::systemColour(21);
constexpr base::Colour kLightEdge = base::systemColour(22);

// The two rings of an edge: top and left, then bottom and right, of the outer and the inner one.
struct RailEdge {
    base::Colour outerLight, outerDark, innerLight, innerDark;
};

// By RailStyle: sunken, raised, etched, bump.
constexpr std::array kRailEdges{
    RailEdge{kShadow, kWhite, kDarkShadow, kLightEdge},
    RailEdge{kLightEdge, kDarkShadow, kWhite, kShadow},
    RailEdge{kShadow, kWhite, kWhite, kShadow},
    RailEdge{kLightEdge, kDarkShadow, kShadow, kWhite},
};

void drawEdge(QPainter& painter, const QRect& rail, const RailEdge& edge)
{
    painter.save();
    painter.translate(rail.topLeft());
    widgets::ButtonSurface(painter, rail.size())
        .DrawBevel(edge.outerLight, edge.outerDark, edge.innerLight, edge.innerDark, -1);
    painter.restore();
}

} // namespace

cpvSlider::cpvSlider(QWidget* parent)
    : QWidget(parent)
    , m_knob(new widgets::SliderKnob(this))
{
    setFocusPolicy(Qt::StrongFocus);
    // First, because naming the widget makes its interface for screen readers, and that stays.
    widgets::installSliderAccessibility();
    setAccessibleName("Slider");
    m_knob->dress({}, m_scale.axis);
    placeKnob();
}

cpvSlider::~cpvSlider() = default;

bool cpvSlider::isLying() const
{
    return m_scale.axis == SliderAxis::Horizontal;
}

widgets::SliderScale cpvSlider::scale() const
{
    widgets::SliderScale scale = m_scale;
    scale.travel = std::max(0, isLying() ? width() - m_knob->width() : height() - m_knob->height());
    return scale;
}

QRect cpvSlider::knobRectangle() const
{
    return m_knob->geometry();
}

QRect cpvSlider::railRectangle() const
{
    if (isLying()) {
        const int end = m_knob->width() / 2;
        return {end, (height() - kRailBreadth) / 2, width() - 2 * end, kRailBreadth};
    }
    const int end = m_knob->height() / 2;
    return {(width() - kRailBreadth) / 2, end, kRailBreadth, height() - 2 * end};
}

QSize cpvSlider::sizeHint() const
{
    return isLying() ? kLyingSize : kLyingSize.transposed();
}

QSize cpvSlider::minimumSizeHint() const
{
    return m_knob->size();
}

void cpvSlider::placeKnob()
{
    moveKnob(scale().knobPosition(m_value));
}

void cpvSlider::moveKnob(int position)
{
    if (isLying()) {
        m_knob->move(position, (height() - m_knob->height()) / 2);
    } else {
        m_knob->move((width() - m_knob->width()) / 2, position);
    }
}

void cpvSlider::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), widgets::toQColor(m_backColor));
    const QRect rail = railRectangle();
    if (m_railStyle != kPictureRail) {
        drawEdge(painter, rail, kRailEdges[static_cast<std::size_t>(m_railStyle)]);
        return;
    }
    if (!m_iRailPicture.isNull()) {
        const QSize size = m_iRailPicture.size();
        const QRect place = isLying()
                                ? QRect(0, (height() - size.height()) / 2, width(), size.height())
                                : QRect((width() - size.width()) / 2, 0, size.width(), height());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(place, m_iRailPicture.forRatio(devicePixelRatioF()));
    }
    const QRect line = isLying() ? QRect(rail.left(), height() / 2, rail.width(), 1)
                                 : QRect(width() / 2, rail.top(), 1, rail.height());
    painter.fillRect(line, widgets::toQColor(kShadow));
}

void cpvSlider::resizeEvent(QResizeEvent* /*event*/)
{
    placeKnob();
}

void cpvSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_dragging = true;
    const QRect knob = knobRectangle();
    if (knob.contains(event->pos())) {
        m_grabX = event->position().x() - knob.x();
        m_grabY = event->position().y() - knob.y();
    } else {
        m_grabX = knob.width() / 2.0;
        m_grabY = knob.height() / 2.0;
        drag(event->position());
    }
    if (m_showValueTip) {
        showTip();
    }
    emit MouseDown(event->button());
}

void cpvSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging) {
        drag(event->position());
    }
}

void cpvSlider::drag(QPointF pointer)
{
    const widgets::SliderScale scale = this->scale();
    const double wished = isLying() ? pointer.x() - m_grabX : pointer.y() - m_grabY;
    const double position = std::clamp(wished, 0.0, static_cast<double>(scale.travel));
    moveKnob(static_cast<int>(base::roundHalfEven(position)));
    if (m_tip != nullptr && m_tip->isVisible()) {
        showTip();
    }
    takeValue(scale.valueAt(position));
}

void cpvSlider::mouseReleaseEvent(QMouseEvent* event)
{
    const bool wasDragging = m_dragging;
    const bool isClick = event->button() == Qt::LeftButton && rect().contains(event->pos());
    m_dragging = false;
    hideTip();
    if (isClick) {
        emit Click();
    }
    if (wasDragging) {
        emit MouseUp(event->button());
    }
}

void cpvSlider::stepBy(qint64 steps)
{
    takeValue(static_cast<int>(
        std::clamp(m_value + steps, qint64{m_scale.minimum}, qint64{m_scale.maximum})));
}

void cpvSlider::keyPressEvent(QKeyEvent* event)
{
    const qint64 range = qint64{m_scale.maximum} - m_scale.minimum;
    const qint64 page = std::max<qint64>(1, range / 10);
    switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        stepBy(1);
        break;
    case Qt::Key_Left:
    case Qt::Key_Down:
        stepBy(-1);
        break;
    case Qt::Key_PageUp:
        stepBy(page);
        break;
    case Qt::Key_PageDown:
        stepBy(-page);
        break;
    case Qt::Key_Home:
        stepBy(-range);
        break;
    case Qt::Key_End:
        stepBy(range);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void cpvSlider::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    m_knob->update();
}

void cpvSlider::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    m_knob->update();
}

void cpvSlider::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_dragging = false;
    hideTip();
}

void cpvSlider::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        m_dragging = false;
        hideTip();
    }
}

void cpvSlider::showTip()
{
    if (m_tip == nullptr) {
        m_tip = new frmValueTip(this);
    }
    m_tip->setText(QString::number(m_value));
    const QRect slider(mapToGlobal(QPoint(0, 0)), size());
    const QRect knob = knobRectangle().translated(slider.topLeft());
    const QRect screen = this->screen()->availableGeometry();
    m_tip->move(isLying() ? widgets::tipBesideRow(slider, knob, m_tip->size(), screen)
                          : widgets::tipBesideColumn(slider, knob, m_tip->size(), screen));
    m_tip->show();
}

void cpvSlider::hideTip()
{
    if (m_tip != nullptr) {
        m_tip->hide();
    }
}
