#include "native/real_hand.h"

#include "smoke/screen.h"

#include <QProcess>
#include <QWidget>
#include <gtest/gtest.h>

namespace native::real_hand {

namespace {

QStringList toPlace(const QWidget& widget, QPoint place)
{
    const QPoint inWindow = widget.mapTo(widget.window(), place);
    return {QStringLiteral("mousemove"), QStringLiteral("--window"),
            QString::number(widget.window()->winId()), QString::number(inWindow.x()),
            QString::number(inWindow.y())};
}

} // namespace

// The program has to go on while its pointer and its keys move, so nothing waits for xdotool but
// the event loop.
void xdotool(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    ASSERT_TRUE(smoke::waitUntil([&process] { return process.state() == QProcess::NotRunning; }));
}

void movePointer(QPoint place)
{
    xdotool({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
}

void click(QPoint place, int button)
{
    movePointer(place);
    xdotool({QStringLiteral("click"), QString::number(button)});
}

void clickIn(const QWidget& widget, QPoint place, int button)
{
    xdotool(toPlace(widget, place) + QStringList{QStringLiteral("click"), QString::number(button)});
}

void clickIn(const QWidget& widget)
{
    clickIn(widget, widget.rect().center());
}

void doubleClickIn(const QWidget& widget, QPoint place)
{
    xdotool(toPlace(widget, place) +
            QStringList{QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("2"),
                        QStringLiteral("--delay"), QStringLiteral("60"), QStringLiteral("1")});
}

void key(const QString& name)
{
    xdotool({QStringLiteral("key"), name});
}

void type(const QString& text)
{
    xdotool({QStringLiteral("type"), text});
}

} // namespace native::real_hand
