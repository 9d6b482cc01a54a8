#pragma once

#include "acquire/scan_area.h"

#include <QImage>
#include <QWidget>

namespace acquire {

// Shows the bed of a scanner with the last preview on it, and the area that will be scanned. The
// area is drawn, moved and resized with the mouse; the arrow keys move it, with Shift they resize
// it, with Ctrl in larger steps; a double click and Ctrl+A take the whole bed.
class ScanPreview : public QWidget {
    Q_OBJECT

public:
    explicit ScanPreview(QWidget* parent = nullptr);

    // In the scanner's units. A bed without size shows the preview alone.
    void setBed(const QRectF& bed);
    [[nodiscard]] const QRectF& area() const { return m_area; }
    // Inside the bed; says nothing.
    void setArea(const QRectF& area);
    // Of the whole bed; a copy is kept.
    void setPreview(const QImage& preview);

    // Where the bed lies, in pixels of the widget.
    [[nodiscard]] QRectF bedPlace() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    // By hand.
    void areaDragged(const QRectF& area);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QPointF onBed(QPointF place) const;
    void changeArea(const QRectF& area);
    void showGrip(QPointF place);
    void paintArea(QPainter& painter, const QRectF& bedPlace) const;

    QRectF m_bed;
    QRectF m_area;
    QImage m_preview;
    bool m_dragging = false;
    AreaGrip m_grip;
    QRectF m_areaBefore; // a drag
    QPointF m_pressed;   // on the bed
};

} // namespace acquire
