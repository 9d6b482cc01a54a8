#include "acquire/capture_window.h"

#include "acquire/capture_geometry.h"
#include "acquire/frozen_pane.h"
#include "core/main_menus.h"
#include "core/picture_in_hand.h"
#include "core/services.h"
#include "platform/pictures/picture.h"

#include <QPainter>
#include <QRegion>

using acquire::FrozenPane;

namespace {

constexpr int kDash = 4;  // of the outline, in pixels
constexpr int kReach = 2; // by which a line of it may lie beside its place

// Seen on whatever lies below: white between the black dashes.
void drawOutline(QPainter& painter, const QRect& place)
{
    QPen pen(Qt::white);
    painter.setPen(pen);
    painter.drawRect(place);
    pen.setColor(Qt::black);
    pen.setDashPattern({kDash, kDash});
    painter.setPen(pen);
    painter.drawRect(place);
}

QRegion outlineRegion(const QRect& place)
{
    const QRegion all(place.adjusted(-kReach, -kReach, kReach, kReach));
    return all - place.adjusted(kReach, kReach, -kReach, -kReach);
}

// The text's rectangle; null where it doesn't fit.
QRect sizeTextArea(const QFontMetrics& font, const QRect& place, const QString& text)
{
    const QSize size = font.size(Qt::TextSingleLine, text);
    const auto corner = acquire::sizeTextPlace(place, size);
    return corner ? QRect(*corner, size) : QRect();
}

void takeInHand(const QImage& captured)
{
    const core::Services& services = core::services();
    if (services.display == nullptr || services.field == nullptr) {
        return;
    }
    core::takeInHand(platform::Picture(captured), *services.display, *services.field);
    if (services.menus != nullptr) {
        services.menus->setMenuState(true);
    }
}

} // namespace

frmCapture::frmCapture()
    : FrozenWindow(core::Window::frmCapture, QStringLiteral("Screen Capture"))
{
    setAccessibleDescription(
        QStringLiteral("Click two corners of a rectangle. Escape closes the window."));
}

void frmCapture::begin(QPoint corner)
{
    m_corner = corner;
    m_opposite = corner;
    setPointer(m_cursors.at(viewer::CursorShape::Precise, devicePixelRatioF()));
}

void frmCapture::forgetCorner()
{
    updateDrawing();
    m_corner.reset();
    setPointer(Qt::ArrowCursor);
}

void frmCapture::capture(QPoint opposite)
{
    const QRect chosen = acquire::rectangleBetween(*m_corner, opposite);
    if (!chosen.isEmpty()) {
        takeInHand(picture().copy(chosen));
    }
    unload();
}

void frmCapture::buttonPressed(QPoint pixel, Qt::MouseButton button)
{
    if (button == Qt::LeftButton) {
        m_corner ? capture(pixel) : begin(pixel);
    } else if (button == Qt::RightButton) {
        m_corner ? forgetCorner() : unload();
    }
}

void frmCapture::pointerMoved(FrozenPane& pane, QPointF place)
{
    if (m_corner) {
        updateDrawing();
        m_opposite = pane.pixelAt(place);
        updateDrawing();
    }
}

// On every pane, since the rectangle may lie on several.
void frmCapture::updateDrawing()
{
    const QRect chosen = acquire::rectangleBetween(*m_corner, m_opposite);
    for (const QPointer<FrozenPane>& pane : panes()) {
        const QRect place = pane->placeOf(chosen);
        pane->update(outlineRegion(place) |
                     sizeTextArea(fontMetrics(), place, acquire::sizeTextOf(chosen.size())));
    }
}

void frmCapture::paintOver(QPainter& painter, const FrozenPane& pane)
{
    if (!m_corner) {
        return;
    }
    const QRect chosen = acquire::rectangleBetween(*m_corner, m_opposite);
    const QRect place = pane.placeOf(chosen);
    drawOutline(painter, place);
    const QString text = acquire::sizeTextOf(chosen.size());
    const QRect area = sizeTextArea(fontMetrics(), place, text);
    if (!area.isNull()) {
        const base::Colour behind = colourAt(acquire::middleOf(chosen));
        painter.setPen(acquire::sizeTextColour(behind) == 0 ? Qt::black : Qt::white);
        painter.setFont(font());
        painter.drawText(area, Qt::TextSingleLine, text);
    }
}
