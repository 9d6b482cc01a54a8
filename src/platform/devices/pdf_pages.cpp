#include "platform/devices/pdf_pages.h"

#include <QPageSize>
#include <unordered_set>

namespace platform {

namespace {

constexpr QLatin1String kCreator{"Vistara"};

QColor toQt(base::Colour colour)
{
    const base::Colour value = base::translated(colour);
    return {int(base::redOf(value)), int(base::greenOf(value)), int(base::blueOf(value))};
}

// Photographs have a new colour almost everywhere; what was drawn or written hasn't, and would show
// the traces of a compression that is made for photographs.
bool isDrawing(const QImage& picture)
{
    constexpr int kSamples = 64;
    std::unordered_set<QRgb> colours;
    const int across = std::min(kSamples, picture.width());
    const int down = std::min(kSamples, picture.height());
    for (int y = 0; y < down; ++y) {
        for (int x = 0; x < across; ++x) {
            colours.insert(picture.pixel(int(qint64(x) * picture.width() / across),
                                         int(qint64(y) * picture.height() / down)));
        }
    }
    return colours.size() <= std::size_t(across) * std::size_t(down) / 4;
}

// The lossy compression takes no longer sides.
bool isTooLongForLoss(const QImage& picture)
{
    constexpr int kLongestSide = 65000;
    return picture.width() > kLongestSide || picture.height() > kLongestSide;
}

} // namespace

CheckedOutput::CheckedOutput(QFileDevice& file)
    : m_file(file)
{
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool CheckedOutput::finish()
{
    return m_file.flush() && m_isWhole;
}

qint64 CheckedOutput::readData(char* /*bytes*/, qint64 /*count*/)
{
    return -1;
}

// The document goes on without its bytes, so that it isn't tried again for each of them.
qint64 CheckedOutput::writeData(const char* bytes, qint64 count)
{
    m_isWhole = m_isWhole && m_file.write(bytes, count) == count;
    return count;
}

PdfPages::PdfPages(QFileDevice& target, const PaperMetrics& metrics, QSizeF millimetres,
                   const QString& title)
    : m_output(target)
    , m_metrics(metrics)
    , m_writer(&m_output)
{
    m_writer.setCreator(kCreator);
    m_writer.setTitle(title);
    m_writer.setResolution(metrics.logPixelsX);
    m_writer.setPageLayout(
        QPageLayout(QPageSize(millimetres, QPageSize::Millimeter, QString(), QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF()));
    m_painter.begin(&m_writer);
    beginPage();
}

void PdfPages::newPage()
{
    m_writer.newPage();
    beginPage();
}

void PdfPages::beginPage()
{
    m_painter.resetTransform();
    m_painter.translate(m_metrics.physicalOffsetX, m_metrics.physicalOffsetY);
}

void PdfPages::draw(const QImage& picture, const QRectF& place, const QRectF& clip)
{
    if (picture.isNull() || !place.isValid()) {
        return;
    }
    const QRectF inner(0, 0, m_metrics.innerWidth, m_metrics.innerHeight);
    m_painter.setClipRect(clip.isNull() ? inner : inner & clip);
    m_painter.setRenderHint(QPainter::LosslessImageRendering,
                            isTooLongForLoss(picture) || isDrawing(picture));
    m_painter.drawImage(place, picture);
}

void PdfPages::fill(const QRectF& place, base::Colour colour)
{
    if (!place.isValid()) {
        return;
    }
    const QRectF inner(0, 0, m_metrics.innerWidth, m_metrics.innerHeight);
    m_painter.setClipping(false);
    m_painter.fillRect(place & inner, toQt(colour));
}

bool PdfPages::finish()
{
    const bool ended = m_painter.end();
    return m_output.finish() && ended;
}

} // namespace platform
