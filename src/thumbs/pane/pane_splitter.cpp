#include "thumbs/pane/pane_splitter.h"

#include "thumbs/pane/accessible_bars.h"
#include "widgets/colour_conversion.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace thumbs {

namespace {

constexpr base::Colour kFace = 0xE0E0E0;
constexpr base::Colour kShade = 0xB0B0B0;
constexpr base::Colour kDots = 0x909090;
constexpr base::Colour kFocusFace = base::rgb(0x1F, 0x5F, 0xA8);
constexpr base::Colour kFocusDots = base::rgb(0xFF, 0xFF, 0xFF);
constexpr int kDotStep = 4;
constexpr int kKeyStep = 16;   // pixels
constexpr int kFarAway = 8192; // beyond any pane; whoever is told cuts it to what is allowed

// How far a key moves a bar, 0 for other keys.
int keyDistance(int key, Qt::Key back, Qt::Key forth)
{
    const struct {
        int key;
        int distance;
    } rows[] = {
        {back, -kKeyStep}, {forth, kKeyStep}, {Qt::Key_Home, -kFarAway}, {Qt::Key_End, kFarAway}};
    for (const auto& row : rows) {
        if (row.key == key) {
            return row.distance;
        }
    }
    return 0;
}

} // namespace

PaneSplitter::PaneSplitter(QWidget* parent)
    : QWidget(parent)
{
    installAccessibleBars();
    setCursor(Qt::SizeVerCursor);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PaneSplitter::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), widgets::toQColor(hasFocus() ? kFocusFace : kFace));
    painter.fillRect(0, 0, width(), 1, widgets::toQColor(kShade));
    painter.fillRect(0, height() - 1, width(), 1, widgets::toQColor(kShade));
    for (int dot = -2; dot <= 2; ++dot) {
        painter.fillRect(width() / 2 + dot * kDotStep, height() / 2, 2, 1,
                         widgets::toQColor(hasFocus() ? kFocusDots : kDots));
    }
}

void PaneSplitter::focusInEvent(QFocusEvent* /*event*/)
{
    update();
}

void PaneSplitter::focusOutEvent(QFocusEvent* /*event*/)
{
    update();
}

void PaneSplitter::keyPressEvent(QKeyEvent* event)
{
    const int distance = keyDistance(event->key(), Qt::Key_Up, Qt::Key_Down);
    if (distance == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    move(0, y() + distance);
    emit dropped();
}

void PaneSplitter::mousePressEvent(QMouseEvent* event)
{
    m_dragging = true;
    m_startY = event->position().toPoint().y();
    resize(width(), 1);
    raise();
}

void PaneSplitter::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging) {
        follow(*event);
    }
}

void PaneSplitter::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_dragging) {
        m_dragging = false;
        follow(*event);
        emit dropped();
    }
}

void PaneSplitter::follow(const QMouseEvent& event)
{
    const QPoint pointer = parentWidget()->mapFromGlobal(event.globalPosition().toPoint());
    move(0, pointer.y() - m_startY);
}

PaneGrip::PaneGrip(QWidget* parent)
    : QWidget(parent)
{
    installAccessibleBars();
    setCursor(Qt::SizeHorCursor);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PaneGrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), widgets::toQColor(hasFocus() ? kFocusFace : kFace));
    painter.fillRect(0, 0, 1, height(), widgets::toQColor(kShade));
    painter.fillRect(width() - 1, 0, 1, height(), widgets::toQColor(kShade));
    for (int dot = -2; dot <= 2; ++dot) {
        painter.fillRect(width() / 2, height() / 2 + dot * kDotStep, 1, 2,
                         widgets::toQColor(hasFocus() ? kFocusDots : kDots));
    }
}

void PaneGrip::focusInEvent(QFocusEvent* /*event*/)
{
    update();
}

void PaneGrip::focusOutEvent(QFocusEvent* /*event*/)
{
    update();
}

void PaneGrip::keyPressEvent(QKeyEvent* event)
{
    const int distance = keyDistance(event->key(), Qt::Key_Left, Qt::Key_Right);
    if (distance == 0) {
        QWidget::keyPressEvent(event);
    } else {
        emit widthWanted(geometry().right() + 1 + distance);
    }
}

void PaneGrip::mousePressEvent(QMouseEvent* event)
{
    m_beside = width() - event->position().toPoint().x();
}

void PaneGrip::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pointer = parentWidget()->mapFromGlobal(event->globalPosition().toPoint());
    emit widthWanted(pointer.x() + m_beside);
}

} // namespace thumbs
