#pragma once

#include <QWidget>

namespace thumbs {

// The bar between folder tree and thumbnails, moved by the pointer or by Up, Down, Home and End. It
// tells where it is dragged to; what that means, and where the bar ends up, is the pane's business.
class PaneSplitter : public QWidget {
    Q_OBJECT

public:
    explicit PaneSplitter(QWidget* parent);

signals:
    void dropped(); // the button was released, or a key has moved the bar

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void follow(const QMouseEvent& event);

    bool m_dragging = false;
    int m_startY = 0; // inside the bar
};

// The edge that changes the pane's width, by the pointer or by Left, Right, Home and End.
class PaneGrip : public QWidget {
    Q_OBJECT

public:
    explicit PaneGrip(QWidget* parent);

signals:
    void widthWanted(int pixels);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    int m_beside = 0; // from the pointer to the pane's right edge
};

} // namespace thumbs
