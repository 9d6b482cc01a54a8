#include "acquire/frozen_window.h"

#include "acquire/frozen_pane.h"
#include "core/window_registry.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <array>
#include <utility>

namespace acquire {

namespace {

constexpr Qt::WindowFlags kOverAll =
    Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
constexpr int kLongStep = 10; // pixels

struct StepKey {
    int key;
    QPoint step;
};

constexpr std::array kStepKeys{
    StepKey{Qt::Key_Left, {-1, 0}},
    StepKey{Qt::Key_Right, {1, 0}},
    StepKey{Qt::Key_Up, {0, -1}},
    StepKey{Qt::Key_Down, {0, 1}},
};

void placeOver(QWidget& window, const QRect& place)
{
    if (QScreen* screen = QGuiApplication::screenAt(place.center())) {
        window.setScreen(screen);
    }
    window.setGeometry(place);
    window.setWindowState(Qt::WindowFullScreen);
}

bool presses(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

FrozenWindow::FrozenWindow(core::Window which, const QString& title)
    : QWidget(nullptr, kOverAll) // a child of the main window would go with it
    , m_which(which)
{
    setObjectName(core::windowName(which));
    setWindowTitle(title);
    setAccessibleName(title);
    setFocusPolicy(Qt::StrongFocus);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &FrozenWindow::unload);
}

void FrozenWindow::cover(platform::FrozenDesktop frozen)
{
    m_frozen = std::move(frozen);
    for (const platform::ScreenPart& part : m_frozen.screens) {
        addPane(part);
    }
    placeOver(*this, m_frozen.screens.front().place);
}

void FrozenWindow::addPane(const platform::ScreenPart& part)
{
    const bool first = m_panes.empty();
    auto* const pane = new FrozenPane(m_frozen.picture, part, this, first ? Qt::Widget : kOverAll);
    pane->setAccessibleName(accessibleName());
    pane->setWindowTitle(windowTitle());
    if (!first) {
        placeOver(*pane, part.place);
    }
    m_panes.emplace_back(pane);
    connectPane(*pane);
}

void FrozenWindow::connectPane(FrozenPane& pane)
{
    connect(&pane, &FrozenPane::pointerMoved, this,
            [this, &pane](QPointF place) { notePointer(pane, place); });
    connect(&pane, &FrozenPane::buttonPressed, this,
            [this, &pane](QPointF place, Qt::MouseButton button) {
                buttonPressed(pane.pixelAt(place), button);
            });
    connect(&pane, &FrozenPane::keyPressed, this, &FrozenWindow::takeKey);
    connect(&pane, &FrozenPane::painting, this,
            [this, &pane](QPainter& painter) { paintOver(painter, pane); });
}

base::Colour FrozenWindow::colourAt(QPoint pixel) const
{
    const QRect inside = picture().rect();
    const QRgb colour = picture().pixel(std::clamp(pixel.x(), inside.left(), inside.right()),
                                        std::clamp(pixel.y(), inside.top(), inside.bottom()));
    return base::rgb(qRed(colour), qGreen(colour), qBlue(colour));
}

void FrozenWindow::setPointer(const QCursor& pointer)
{
    for (const QPointer<FrozenPane>& pane : m_panes) {
        pane->setCursor(pointer);
    }
}

void FrozenWindow::unload()
{
    core::windows().unload(m_which);
}

void FrozenWindow::notePointer(FrozenPane& pane, QPointF place)
{
    m_pointed = &pane;
    m_place = place;
    pointerMoved(pane, place);
}

void FrozenWindow::pressByKey()
{
    if (m_pointed != nullptr) {
        buttonPressed(m_pointed->pixelAt(m_place), Qt::LeftButton);
    }
}

// Where a program can't move the pointer, the window goes on as if it had moved.
void FrozenWindow::stepPointer(QPoint pixels)
{
    if (m_pointed == nullptr) {
        return;
    }
    FrozenPane& pane = *m_pointed;
    const QPoint pixel = pane.pixelAt(m_place + QPointF(pixels) / pane.part().ratio());
    // The middle of a pixel isn't moved to another one by rounding.
    const QPointF place = pane.placeOf(pixel) + QPointF(0.5, 0.5) / pane.part().ratio();
    QCursor::setPos(pane.mapToGlobal(place).toPoint());
    notePointer(pane, place);
}

void FrozenWindow::takeKey(QKeyEvent* event)
{
    const auto* const step = std::ranges::find(kStepKeys, event->key(), &StepKey::key);
    if (event->key() == Qt::Key_Escape) {
        unload();
    } else if (presses(event->key())) {
        pressByKey();
    } else if (step != kStepKeys.end()) {
        stepPointer(step->step * (event->modifiers() & Qt::ShiftModifier ? kLongStep : 1));
    }
}

void FrozenWindow::keyPressEvent(QKeyEvent* event)
{
    takeKey(event);
}

void FrozenWindow::resizeEvent(QResizeEvent* /*event*/)
{
    if (!m_panes.empty()) {
        m_panes.front()->setGeometry(rect());
    }
}

void FrozenWindow::showEvent(QShowEvent* /*event*/)
{
    for (const QPointer<FrozenPane>& pane : m_panes) {
        pane->show();
        if (pane->part().place.contains(QCursor::pos())) {
            m_pointed = pane;
            m_place = QPointF(QCursor::pos() - pane->part().place.topLeft());
        }
    }
    activateWindow();
}

void FrozenWindow::hideEvent(QHideEvent* /*event*/)
{
    for (const QPointer<FrozenPane>& pane : m_panes) {
        pane->hide();
    }
}

} // namespace acquire
