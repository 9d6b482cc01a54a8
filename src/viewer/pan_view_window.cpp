#include "viewer/pan_view_window.h"

#include "widgets/focus_ring.h"
#include "widgets/key_codes.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int kBorder = 1;
constexpr QSize kFirstSize(200, 150);
constexpr QColor kBorderColour(0x8A, 0x92, 0x9C);
constexpr QColor kClientColour(0x3A, 0x3F, 0x46);
constexpr QColor kClipColour(0xE8, 0x2C, 0x2C);

// A red line with a white one inside it stands out on light and dark pictures alike.
class ClipFrame : public QWidget {
public:
    explicit ClipFrame(QWidget* parent)
        : QWidget(parent)
    {
        setObjectName("ClipRct");
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        drawFrame(painter, 0, kClipColour);
        drawFrame(painter, 1, Qt::white);
    }

private:
    void drawFrame(QPainter& painter, int inset, const QColor& colour) const
    {
        const QRect line = rect().adjusted(inset, inset, -inset, -inset);
        if (line.width() < 1 || line.height() < 1) {
            return;
        }
        painter.fillRect(QRect(line.topLeft(), QSize(line.width(), 1)), colour);
        painter.fillRect(QRect(line.bottomLeft(), QSize(line.width(), 1)), colour);
        painter.fillRect(QRect(line.topLeft(), QSize(1, line.height())), colour);
        painter.fillRect(QRect(line.topRight(), QSize(1, line.height())), colour);
    }
};

} // namespace

frmPanView::frmPanView(QWidget* host)
    : QWidget(host)
    , m_clipRct(new ClipFrame(this))
{
    setObjectName("frmPanView");
    setAccessibleName("Overview of the picture");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    new widgets::FocusRing(*this);
    setMouseTracking(true);
    if (host == nullptr) {
        setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
        setAttribute(Qt::WA_ShowWithoutActivating);
    }
    resize(kFirstSize);
    hide();
}

QRect frmPanView::clientArea() const
{
    return rect().adjusted(kBorder, kBorder, -kBorder, -kBorder);
}

void frmPanView::setMiniature(const QImage& image, const QRect& place)
{
    m_miniature = image;
    m_place = place;
    m_deviceRatio = devicePixelRatioF();
    update();
}

void frmPanView::setClipRect(const QRect& rect)
{
    if (rect.isEmpty()) {
        m_clipRct->hide();
        return;
    }
    m_clipRct->setGeometry(rect.translated(clientArea().topLeft()));
    m_clipRct->show();
}

void frmPanView::keyPressEvent(QKeyEvent* event)
{
    emit KeyDown(widgets::virtualKey(*event), widgets::shiftState(event->modifiers()));
}

void frmPanView::keyReleaseEvent(QKeyEvent* event)
{
    emit KeyUp(widgets::virtualKey(*event), widgets::shiftState(event->modifiers()));
}

void frmPanView::mouseDoubleClickEvent(QMouseEvent* /*event*/)
{
    emit DblClick();
}

void frmPanView::mouseMoveEvent(QMouseEvent* event)
{
    emit MouseMove(placeOf(*event), event->globalPosition().toPoint());
}

void frmPanView::mousePressEvent(QMouseEvent* event)
{
    emit MouseDown(widgets::buttonNumbers(event->button()), widgets::shiftState(event->modifiers()),
                   placeOf(*event), event->globalPosition().toPoint());
}

void frmPanView::mouseReleaseEvent(QMouseEvent* event)
{
    emit MouseUp(widgets::buttonNumbers(event->button()), widgets::shiftState(event->modifiers()),
                 placeOf(*event));
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        emit Click();
    }
}

void frmPanView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), kBorderColour);
    painter.fillRect(clientArea(), kClientColour);
    if (m_deviceRatio != devicePixelRatioF()) {
        m_deviceRatio = devicePixelRatioF();
        QMetaObject::invokeMethod(this, &frmPanView::ClientChanged, Qt::QueuedConnection);
    }
    if (!m_miniature.isNull()) {
        painter.drawImage(m_place.translated(clientArea().topLeft()), m_miniature);
    }
}

void frmPanView::resizeEvent(QResizeEvent* /*event*/)
{
    emit ClientChanged();
}

QPoint frmPanView::placeOf(const QMouseEvent& event) const
{
    return event.position().toPoint() - clientArea().topLeft();
}
