#include "shell/tab_stops.h"

#include <QWidget>

namespace shell {

namespace {

bool isStop(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr &&
           widget.isEnabled() && widget.isVisible() && !widget.isWindow();
}

void collect(QWidget& widget, QList<QWidget*>& stops)
{
    if (isStop(widget)) {
        stops.append(&widget);
    }
    for (QObject* child : widget.children()) {
        if (auto* part = qobject_cast<QWidget*>(child); part != nullptr && !part->isWindow()) {
            collect(*part, stops);
        }
    }
}

} // namespace

QList<QWidget*> tabStops(std::initializer_list<QWidget*> areas)
{
    QList<QWidget*> stops;
    for (QWidget* area : areas) {
        if (area != nullptr) {
            collect(*area, stops);
        }
    }
    return stops;
}

QWidget* neighbour(const QList<QWidget*>& stops, const QWidget* focus, bool next)
{
    if (stops.isEmpty()) {
        return nullptr;
    }
    // The focus may be on something that was disabled or hidden since.
    qsizetype place = -1;
    for (qsizetype k = 0; k < stops.size(); ++k) {
        if (stops.at(k) == focus) {
            place = k;
        }
    }
    if (place < 0) {
        return next ? stops.first() : stops.last();
    }
    const qsizetype step = next ? 1 : stops.size() - 1;
    return stops.at((place + step) % stops.size());
}

} // namespace shell
