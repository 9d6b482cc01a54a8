#pragma once

#include <QPoint>
#include <QString>

class QWidget;

// Pointer and keys of a user inside this process. What they do goes to the window of a widget as if
// the display system had sent it, so that the window finds out by itself what is meant. Places are
// pixels of the widget. Each call lets events run and returns when what it sent has arrived, or
// once a window that it opened has closed.
namespace native::hand {

void click(QWidget& widget, QPoint place, Qt::MouseButton button = Qt::LeftButton);
void click(QWidget& widget); // in its middle
void doubleClick(QWidget& widget, QPoint place);
void drag(QWidget& widget, QPoint from, QPoint by);
void wheel(QWidget& widget, int steps); // above 0 towards the user

void key(QWidget& window, Qt::Key key);
void type(QWidget& window, const QString& text);

} // namespace native::hand
