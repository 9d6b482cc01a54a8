#include "metafile_helper/wmf_frame.h"

#include "base/byte_reader.h"
#include "metafile_helper/drawing_size.h"

namespace metafile_helper {

namespace {

constexpr std::size_t kPlaceableBytes = 22;
constexpr std::size_t kHeadBytes = 18;
// The library's device is as many units wide and high as this, whatever the window.
constexpr double kDeviceSide = 1024;
// Without a mapping mode the library measures a placeable file in points.
constexpr double kPointsAnInch = 72;

constexpr int kIsotropic = 7;
constexpr int kAnisotropic = 8;

int wordAt(const base::ByteReader& file, std::size_t offset)
{
    return qint16(file.little16At(offset));
}

struct Placeable {
    QRectF area; // logical units
    double unitsAnInch = 0;
};

std::optional<Placeable> placeableHead(std::span<const std::byte> bytes)
{
    const base::ByteReader file(bytes);
    constexpr unsigned kMagic = 0x9AC6CDD7;
    if (file.little32At(0) != kMagic) {
        return std::nullopt;
    }
    const QPointF from(wordAt(file, 6), wordAt(file, 8));
    const QPointF to(wordAt(file, 10), wordAt(file, 12));
    return Placeable{QRectF(from, to).normalized(), double(file.little16At(14))};
}

// What the file says about its window before it draws, as far as it says it.
struct Window {
    std::optional<int> mode;
    QPointF origin;
    std::optional<QPointF> extent;
};

Window readWindow(std::span<const std::byte> bytes, std::size_t offset)
{
    enum Function : unsigned { End = 0, SetMode = 0x0103, SetOrigin = 0x020B, SetExtent = 0x020C };
    const base::ByteReader file(bytes);
    Window window;
    bool hasOrigin = false;
    while (offset + 6 <= file.size()) {
        const std::size_t words = file.little32At(offset);
        const unsigned function = file.little16At(offset + 4);
        if (words < 3 || function == End) {
            break;
        }
        const int first = wordAt(file, offset + 6);
        const QPointF point(wordAt(file, offset + 8), first);
        if (function == SetMode && !window.mode) {
            window.mode = first;
        } else if (function == SetOrigin && !hasOrigin) {
            window.origin = point;
            hasOrigin = true;
        } else if (function == SetExtent && !window.extent) {
            window.extent = point;
        }
        offset += words * 2;
    }
    return window;
}

// Device units of one logical unit; nothing where the file measures in millimetres or inches.
std::optional<QPointF> scaleOf(const Window& window, const std::optional<Placeable>& placeable)
{
    if (!window.mode) {
        const double scale = placeable ? kPointsAnInch / placeable->unitsAnInch : 1;
        return QPointF(scale, scale);
    }
    const bool usesWindow = *window.mode == kIsotropic || *window.mode == kAnisotropic;
    if (usesWindow && window.extent) {
        if (window.extent->x() == 0 || window.extent->y() == 0) {
            return std::nullopt;
        }
        return QPointF(kDeviceSide / window.extent->x(), kDeviceSide / window.extent->y());
    }
    constexpr int kText = 1;
    return usesWindow || *window.mode == kText ? std::optional(QPointF(1, 1)) : std::nullopt;
}

QRectF onDevice(const QRectF& area, const Window& window, QPointF scale)
{
    const auto mapped = [&](QPointF point) {
        return QPointF((point.x() - window.origin.x()) * scale.x(),
                       (point.y() - window.origin.y()) * scale.y());
    };
    return QRectF(mapped(area.topLeft()), mapped(area.bottomRight())).normalized();
}

} // namespace

std::optional<WmfFrame> wmfFrame(std::span<const std::byte> file)
{
    const auto placeable = placeableHead(file);
    const auto placeableAt96 = placeableSize(file);
    const Window window = readWindow(file, placeable ? kPlaceableBytes + kHeadBytes : kHeadBytes);
    const auto scale = scaleOf(window, placeableAt96 ? placeable : std::nullopt);
    if (!scale) {
        return std::nullopt;
    }
    if (placeableAt96) {
        return WmfFrame{*placeableAt96, onDevice(placeable->area, window, *scale)};
    }
    if (!window.extent || window.extent->x() == 0 || window.extent->y() == 0) {
        return std::nullopt;
    }
    const QRectF area = QRectF(window.origin, window.origin + *window.extent).normalized();
    return WmfFrame{drawnSize(area.width(), area.height()), onDevice(area, window, *scale)};
}

} // namespace metafile_helper
