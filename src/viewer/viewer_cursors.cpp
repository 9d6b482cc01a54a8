#include "viewer/viewer_cursors.h"

#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <QPixmap>

namespace viewer {

namespace {

struct CursorRow {
    const char* file; // under Images/cursors, without its ending
    Qt::CursorShape fallback;
};

constexpr std::array kCursors = {
    CursorRow{"grab", Qt::ClosedHandCursor},
    CursorRow{"release", Qt::OpenHandCursor},
    CursorRow{"precise", Qt::CrossCursor},
};

constexpr qint64 kLargestFile = 1 << 20;

QPixmap loadPixmap(const QString& name)
{
    const auto bytes =
        platform::readFile(platform::appFile("Images/cursors/" + name + ".png"), kLargestFile);
    QPixmap pixmap;
    if (bytes) {
        pixmap.loadFromData(*bytes, "PNG"); // named, so that no plug-in is loaded to guess it
    }
    return pixmap;
}

// The hot spot is the middle.
QCursor loadCursor(const CursorRow& row, double deviceRatio)
{
    const QString name = QString::fromLatin1(row.file);
    if (deviceRatio > 1.0) {
        QPixmap sharp = loadPixmap(name + "@2x");
        if (!sharp.isNull()) {
            sharp.setDevicePixelRatio(2.0);
            return QCursor(sharp);
        }
    }
    const QPixmap plain = loadPixmap(name);
    return plain.isNull() ? QCursor(row.fallback) : QCursor(plain);
}

} // namespace

const QCursor& ViewerCursors::at(CursorShape shape, double deviceRatio)
{
    if (deviceRatio != m_deviceRatio) {
        m_loaded = {};
        m_deviceRatio = deviceRatio;
    }
    const auto index = static_cast<std::size_t>(shape);
    auto& cursor = m_loaded[index];
    if (!cursor) {
        cursor = loadCursor(kCursors[index], deviceRatio);
    }
    return *cursor;
}

} // namespace viewer
