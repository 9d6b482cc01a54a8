#include "widgets/plain_tip.h"

#include <QWidget>

namespace widgets {

QString plainTip(const QString& text)
{
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped());
}

// Without a description of its own a widget is described by its tip, tags and all.
void setPlainTip(QWidget& widget, const QString& text)
{
    widget.setToolTip(plainTip(text));
    widget.setAccessibleDescription(text);
}

} // namespace widgets
