#pragma once

#include <QList>
#include <initializer_list>

class QWidget;

namespace shell {

// The widgets that Tab leads to, area by area; inside an area in the order in which its parts were
// made. What is hidden or disabled now is left out, and so is a null area.
[[nodiscard]] QList<QWidget*> tabStops(std::initializer_list<QWidget*> areas);

// The stop after or before the one that has the focus, around the ends; null where there is none.
[[nodiscard]] QWidget* neighbour(const QList<QWidget*>& stops, const QWidget* focus, bool next);

} // namespace shell
