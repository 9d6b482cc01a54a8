#pragma once

#include "platform/devices/printers.h"

#include <QPainter>
#include <QPdfWriter>

class QFileDevice;

namespace platform {

// The pages of one document, written as PDF while they are drawn, so that no more than a page is
// kept. Drawing is as Printer tells.
class PdfPages {
public:
    // The target is open and outlives this.
    PdfPages(QFileDevice& target, const PaperMetrics& metrics, QSizeF millimetres,
             const QString& title);

    void newPage();
    void draw(const QImage& picture, const QRectF& place, const QRectF& clip);
    void fill(const QRectF& place, base::Colour colour);

    // Writes the rest. False when not all bytes arrived.
    [[nodiscard]] bool finish();

private:
    void beginPage();

    QFileDevice& m_target;
    PaperMetrics m_metrics;
    QPdfWriter m_writer;
    QPainter m_painter;
};

} // namespace platform
