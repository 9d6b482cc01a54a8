#include "native/hand.h"

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>

namespace native::hand {

namespace {

constexpr int kWheelStep = 120;
constexpr int kDragSteps = 4;

QWindow* windowOf(const QWidget& widget)
{
    return widget.window()->windowHandle();
}

QPoint inWindow(const QWidget& widget, QPoint place)
{
    return widget.mapTo(widget.window(), place);
}

} // namespace

void click(QWidget& widget, QPoint place, Qt::MouseButton button)
{
    const QPointer<QWindow> window = windowOf(widget);
    const QPoint where = inWindow(widget, place);
    QTest::mouseMove(window, where);
    QTest::mousePress(window, button, Qt::NoModifier, where);
    QApplication::processEvents();
    if (window != nullptr) {
        QTest::mouseRelease(window, button, Qt::NoModifier, where);
        QApplication::processEvents();
    }
}

void click(QWidget& widget)
{
    click(widget, widget.rect().center());
}

void doubleClick(QWidget& widget, QPoint place)
{
    QTest::mouseDClick(windowOf(widget), Qt::LeftButton, Qt::NoModifier, inWindow(widget, place));
    QApplication::processEvents();
}

void drag(QWidget& widget, QPoint from, QPoint by)
{
    const QPointer<QWindow> window = windowOf(widget);
    const QPoint start = inWindow(widget, from);
    QTest::mouseMove(window, start);
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, start);
    for (int step = 1; step <= kDragSteps; ++step) {
        QTest::mouseMove(window, start + by * step / kDragSteps);
        QApplication::processEvents();
    }
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, start + by);
    QApplication::processEvents();
}

void wheel(QWidget& widget, int steps)
{
    const QPoint place = inWindow(widget, widget.rect().center());
    QWheelEvent event(place, widget.window()->mapToGlobal(place), {}, {0, -steps * kWheelStep},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    // Only an event from outside goes on from a widget to the one around it.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(windowOf(widget), &event);
    QApplication::processEvents();
}

void key(QWidget& window, Qt::Key key)
{
    QTest::keyClick(windowOf(window), key);
    QApplication::processEvents();
}

void type(QWidget& window, const QString& text)
{
    for (const QChar letter : text) {
        QTest::keyClick(windowOf(window), letter.toLatin1());
    }
    QApplication::processEvents();
}

} // namespace native::hand
