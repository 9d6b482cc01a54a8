#pragma once

#include "acquire/frozen_window.h"
#include "viewer/viewer_cursors.h"

#include <optional>

// Screen capture: two corners on the frozen screens, and what lies between them is the picture in
// hand. The right button forgets the first corner, and closes the window where there is none.
class frmCapture : public acquire::FrozenWindow {
    Q_OBJECT

public:
    frmCapture();

protected:
    void pointerMoved(acquire::FrozenPane& pane, QPointF place) override;
    void buttonPressed(QPoint pixel, Qt::MouseButton button) override;
    void paintOver(QPainter& painter, const acquire::FrozenPane& pane) override;

private:
    void begin(QPoint corner);
    void forgetCorner();
    void capture(QPoint opposite);
    void updateDrawing();

    std::optional<QPoint> m_corner;
    QPoint m_opposite; // where the pointer is
    viewer::ViewerCursors m_cursors;
};
