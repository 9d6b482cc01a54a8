#pragma once

#include "platform/desktop/frozen_desktop.h"

#include <QWidget>

namespace acquire {

// One screen of a frozen desktop, over the whole of that screen. Places are those of the pane,
// pixels those of the picture.
class FrozenPane : public QWidget {
    Q_OBJECT

public:
    // With a parent that is a window of its own for another screen, or a part that fills the
    // parent.
    FrozenPane(const QImage& picture, const platform::ScreenPart& part, QWidget* parent,
               Qt::WindowFlags flags = {});

    [[nodiscard]] const platform::ScreenPart& part() const { return m_part; }

    // The pixel at a place, the nearest of this screen outside of it.
    [[nodiscard]] QPoint pixelAt(QPointF place) const;
    [[nodiscard]] QPointF placeOf(QPoint pixel) const;
    // What a rectangle of pixels covers, in whole units of places.
    [[nodiscard]] QRect placeOf(const QRect& pixels) const;

signals:
    void pointerMoved(QPointF place);
    void buttonPressed(QPointF place, Qt::MouseButton button);
    void keyPressed(QKeyEvent* event);
    // The picture stands there; what lies over it is drawn now.
    void painting(QPainter& painter);

protected:
    void keyPressEvent(QKeyEvent* event) override { emit keyPressed(event); }
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintPicture(QPainter& painter, const QRect& places) const;

    QImage m_picture;
    platform::ScreenPart m_part;
};

} // namespace acquire
