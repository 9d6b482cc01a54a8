#include "platform/devices/pdf_pages.h"

#include <QFileDevice>
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

} // namespace

PdfPages::PdfPages(QFileDevice& target, const PaperMetrics& metrics, QSizeF millimetres,
                   const QString& title)
    : m_target(target)
    , m_metrics(metrics)
    , m_writer(&target)
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
    m_painter.setRenderHint(QPainter::LosslessImageRendering, isDrawing(picture));
    m_painter.drawImage(place, picture);
}

void PdfPages::fill(const QRectF& place, base::Colour colour)
{
    const QRectF inner(0, 0, m_metrics.innerWidth, m_metrics.innerHeight);
    m_painter.setClipping(false);
    m_painter.fillRect(place & inner, toQt(colour));
}

bool PdfPages::finish()
{
    const bool ended = m_painter.end();
    return m_target.flush() && m_target.error() == QFileDevice::NoError && ended;
}

} // namespace platform
