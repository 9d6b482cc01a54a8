#pragma once

#include <QString>

class QWidget;

namespace widgets {

// The tip that shows a text letter by letter: never as marked-up text, and without line breaks at
// blanks.
[[nodiscard]] QString plainTip(const QString& text);

// Gives a widget that tip; screen readers get the text itself.
void setPlainTip(QWidget& widget, const QString& text);

} // namespace widgets
