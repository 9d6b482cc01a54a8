#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>

class QWidget;

// The pointer and the keyboard of the display system itself, moved by another program. The event
// loop runs meanwhile, so a call comes back only when the windows that it opened have closed.
namespace native::real_hand {

void xdotool(const QStringList& arguments);

// Places are pixels of the screen.
void movePointer(QPoint place);
void click(QPoint place, int button = 1);

// Within a widget, wherever its window is; on X11 alone.
void clickIn(const QWidget& widget, QPoint place, int button = 1);
void clickIn(const QWidget& widget); // in its middle
void doubleClickIn(const QWidget& widget, QPoint place);

void key(const QString& name);
void type(const QString& text);

} // namespace native::real_hand
