#pragma once

#include "acquire/frozen_window.h"

class QFrame;
class QLabel;

// Shows the colour below the pointer on the frozen screens; a click puts its web notation on the
// clipboard, an empty text before the pointer has moved.
class frmGetColor : public acquire::FrozenWindow {
    Q_OBJECT

public:
    frmGetColor();

protected:
    void pointerMoved(acquire::FrozenPane& pane, QPointF place) override;
    void buttonPressed(QPoint pixel, Qt::MouseButton button) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildBox();
    void showColour(base::Colour colour);

    QFrame* m_box = nullptr;
    QLabel* m_text = nullptr;
    QString m_colour;
};
