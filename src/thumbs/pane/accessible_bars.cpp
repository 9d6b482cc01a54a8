#include "thumbs/pane/accessible_bars.h"

#include "thumbs/pane/pane_splitter.h"

#include <QAccessibleWidget>

namespace thumbs {

namespace {

QAccessibleInterface* makeBar(const QString& /*className*/, QObject* object)
{
    if (auto* splitter = qobject_cast<PaneSplitter*>(object)) {
        return new QAccessibleWidget(splitter, QAccessible::Splitter); // the toolkit owns it
    }
    if (auto* grip = qobject_cast<PaneGrip*>(object)) {
        return new QAccessibleWidget(grip, QAccessible::Grip);
    }
    return nullptr;
}

} // namespace

void installAccessibleBars()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeBar);
        return true;
    }();
    static_cast<void>(isInstalled);
}

} // namespace thumbs
