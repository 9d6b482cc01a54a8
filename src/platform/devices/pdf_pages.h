#pragma once

#include "platform/devices/printers.h"

#include <QFileDevice>
#include <QPainter>
#include <QPdfWriter>

namespace platform {

// Remembers whether all bytes arrived in a file, which forgets it with the next write.
class CheckedOutput : public QIODevice {
public:
    explicit CheckedOutput(QFileDevice& file);

    [[nodiscard]] bool isSequential() const override { return true; }
    // Whether the file has it all.
    [[nodiscard]] bool finish();

protected:
    qint64 readData(char* bytes, qint64 count) override;
    qint64 writeData(const char* bytes, qint64 count) override;

private:
    QFileDevice& m_file;
    bool m_isWhole = true;
};

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

    CheckedOutput m_output;
    PaperMetrics m_metrics;
    QPdfWriter m_writer;
    QPainter m_painter;
};

} // namespace platform
