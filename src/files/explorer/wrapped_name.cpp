#include "files/explorer/wrapped_name.h"

#include <QFontMetrics>
#include <QStringList>
#include <QTextLayout>

namespace files {

QString wrappedName(const QString& name, const QFont& font, int width, int lines)
{
    QTextLayout layout(name, font);
    QTextOption wrapping;
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(wrapping);
    layout.beginLayout();
    QStringList wrapped;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (wrapped.size() == lines - 1) {
            const QString rest = name.mid(line.textStart());
            wrapped.append(QFontMetrics(font).elidedText(rest, Qt::ElideRight, width));
            break;
        }
        wrapped.append(name.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return wrapped.join(QChar::LineSeparator);
}

} // namespace files
