#include "widgets/transparent_runs.h"

namespace widgets {

std::vector<TransparentRun> findRuns(const QImage& picture, base::Colour colour,
                                     ScanDirection direction)
{
    const QImage pixels = picture.convertToFormat(QImage::Format_RGB32);
    const QRgb wanted =
        qRgb(static_cast<int>(base::redOf(colour)), static_cast<int>(base::greenOf(colour)),
             static_cast<int>(base::blueOf(colour)));
    const bool alongRows = direction == ScanDirection::Rows;
    const int lines = alongRows ? pixels.height() : pixels.width();
    const int lineLength = alongRows ? pixels.width() : pixels.height();

    std::vector<TransparentRun> runs;
    for (int line = 0; line < lines; ++line) {
        int length = 0; // of the run that is open
        for (int at = 0; at < lineLength; ++at) {
            const QRgb pixel = alongRows ? pixels.pixel(at, line) : pixels.pixel(line, at);
            if (pixel == wanted) {
                ++length;
            } else if (length > 0) {
                runs.push_back({at - length, line, length});
                length = 0;
            }
        }
        if (length > 0) {
            runs.push_back({lineLength - length, line, length});
        }
    }
    return runs;
}

QRegion regionWithout(const std::vector<TransparentRun>& runs, QSize size, ScanDirection direction)
{
    QRegion result(QRect(QPoint(0, 0), size));
    for (const TransparentRun& run : runs) {
        result -= direction == ScanDirection::Rows ? QRect(run.start, run.line, run.length, 1)
                                                   : QRect(run.line, run.start, 1, run.length);
    }
    return result;
}

} // namespace widgets
