#include "acquire/colour_picker_window.h"

#include "acquire/capture_geometry.h"
#include "acquire/frozen_pane.h"
#include "base/web_colour.h"
#include "platform/desktop/clipboard.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

using acquire::FrozenPane;

namespace {

// What is left beside the pointer of the room in which the box is placed.
constexpr QSize kBoxSize(138, 38);
constexpr int kFrame = 1;
constexpr int kSwatchHeight = 16; // above the text

QPalette paletteWith(QPalette palette, const QColor& background)
{
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::WindowText, Qt::black);
    return palette;
}

} // namespace

frmGetColor::frmGetColor()
    : FrozenWindow(core::Window::frmGetColor, QStringLiteral("Capture Web Color"))
{
    setAccessibleDescription(
        QStringLiteral("A click copies the color at the pointer. Escape closes the window."));
    buildBox();
}

void frmGetColor::buildBox()
{
    m_box = new QFrame(this);
    m_box->setObjectName(QStringLiteral("picPixel"));
    m_box->setAccessibleName(QStringLiteral("Color at the pointer"));
    m_box->setFrameShape(QFrame::Box);
    m_box->setAutoFillBackground(true);
    m_box->setFixedSize(kBoxSize);
    m_box->setPalette(paletteWith(palette(), Qt::white));
    m_text = new QLabel(QStringLiteral("Web Color: N/A"));
    m_text->setObjectName(QStringLiteral("lblColor"));
    m_text->setAutoFillBackground(true); // to be read on any colour
    m_text->setPalette(paletteWith(palette(), Qt::white));
    m_text->setAlignment(Qt::AlignCenter);
    auto* const column = new QVBoxLayout(m_box);
    column->setContentsMargins(kFrame, kSwatchHeight, kFrame, kFrame);
    column->addWidget(m_text);
    // The pointer may come over the box when it jumps there.
    m_box->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void frmGetColor::showColour(base::Colour colour)
{
    m_colour = QString::fromStdString(base::webColour(colour));
    m_text->setText(QStringLiteral(" Web Color: #") + m_colour);
    const QColor shown(static_cast<int>(base::redOf(colour)),
                       static_cast<int>(base::greenOf(colour)),
                       static_cast<int>(base::blueOf(colour)));
    m_box->setPalette(paletteWith(palette(), shown));
}

void frmGetColor::pointerMoved(FrozenPane& pane, QPointF place)
{
    if (m_box->parentWidget() != &pane) {
        m_box->setParent(&pane);
        m_box->show();
    }
    m_box->move(acquire::pickerBoxPlace(pane.size(), place.toPoint()));
    showColour(colourAt(pane.pixelAt(place)));
}

void frmGetColor::buttonPressed(QPoint /*pixel*/, Qt::MouseButton /*button*/)
{
    platform::clearClipboard();
    platform::setClipboardText(m_colour);
    unload();
}

void frmGetColor::showEvent(QShowEvent* event)
{
    FrozenWindow::showEvent(event);
    m_box->raise();
}
