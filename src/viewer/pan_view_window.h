#pragma once

#include <QImage>
#include <QRect>
#include <QWidget>

// The overview over the viewer: a miniature with the rectangle ClipRct that marks the part shown.
// It lies on its host window as a child without frame and knows nothing of the viewer; whoever made
// it feeds it and listens.
class frmPanView : public QWidget {
    Q_OBJECT

public:
    explicit frmPanView(QWidget* host = nullptr);

    // The room inside the thin border; places of the events count from its top left.
    [[nodiscard]] QRect clientArea() const;

    // Keeps the miniature and where it lies in the client; a null image blanks the client. The
    // image counts device pixels.
    void setMiniature(const QImage& image, const QRect& place);

    // Moves ClipRct to a place of the client; an empty rectangle hides it.
    void setClipRect(const QRect& rect);

signals:
    void Click();
    void DblClick();
    void KeyDown(int KeyCode, int Shift);
    void KeyUp(int KeyCode, int Shift);
    void MouseDown(int Button, int Shift, QPoint place, QPoint screen);
    void MouseMove(QPoint place, QPoint screen);
    void MouseUp(int Button, int Shift, QPoint place);
    // The client has another size or sharpness.
    void ClientChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QPoint placeOf(const QMouseEvent& event) const;

    QWidget* m_clipRct = nullptr; // a child
    QImage m_miniature;
    QRect m_place;
    double m_deviceRatio = 1.0; // the one that the miniature was made for
};
