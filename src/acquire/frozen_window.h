#pragma once

#include "base/colours.h"
#include "core/window_names.h"
#include "platform/desktop/frozen_desktop.h"

#include <QPointF>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace acquire {

class FrozenPane;

// A window over all screens that shows them as they were at one moment. It is the pane of the first
// screen; the panes of the others are windows beside it, since not every desktop lets one window
// lie on several screens. Escape unloads it, and so does a screen that goes.
//
// The arrow keys move the pointer by a pixel, with Shift by ten, and Space and Return press its
// left button.
class FrozenWindow : public QWidget {
    Q_OBJECT

public:
    FrozenWindow(core::Window which, const QString& title);

    // What the window shows; said once, before it is shown.
    void cover(platform::FrozenDesktop frozen);

protected:
    [[nodiscard]] const QImage& picture() const { return m_frozen.picture; }
    [[nodiscard]] base::Colour colourAt(QPoint pixel) const;
    [[nodiscard]] const std::vector<QPointer<FrozenPane>>& panes() const { return m_panes; }
    void setPointer(const QCursor& pointer);
    void unload();

    virtual void pointerMoved(FrozenPane& pane, QPointF place) = 0;
    virtual void buttonPressed(QPoint pixel, Qt::MouseButton button) = 0;
    virtual void paintOver(QPainter& /*painter*/, const FrozenPane& /*pane*/) {}

    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void addPane(const platform::ScreenPart& part);
    void connectPane(FrozenPane& pane);
    void notePointer(FrozenPane& pane, QPointF place);
    void pressByKey();
    void stepPointer(QPoint pixels);
    void takeKey(QKeyEvent* event);

    core::Window m_which;
    platform::FrozenDesktop m_frozen;
    std::vector<QPointer<FrozenPane>> m_panes; // the first is this window's inside
    QPointer<FrozenPane> m_pointed;            // where the pointer was last
    QPointF m_place;
};

} // namespace acquire
