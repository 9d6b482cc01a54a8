#include "platform/pictures/stretch_axis.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace platform {

namespace {

// A side with its pixels in rising order.
struct Range {
    qint64 first = 0;
    qint64 count = 0;
};

Range rising(const StretchSide& side)
{
    if (side.length < 0) {
        return {side.from + side.length + 1, -side.length};
    }
    return {side.from, side.length};
}

std::optional<StretchSpan> nearestSpan(qint64 index, qint64 targetCount, const Range& source,
                                       int surface)
{
    const qint64 pixel = source.first + (2 * index + 1) * source.count / (2 * targetCount);
    if (pixel < 0 || pixel >= surface) {
        return std::nullopt;
    }
    return StretchSpan{int(pixel)};
}

std::optional<StretchSpan> averageSpan(qint64 index, qint64 targetCount, const Range& source,
                                       int surface)
{
    // In source pixels times targetCount, so that the borders are whole numbers.
    const qint64 low = std::max<qint64>(index * source.count + source.first * targetCount, 0);
    const qint64 high = std::min<qint64>((index + 1) * source.count + source.first * targetCount,
                                         surface * targetCount);
    if (low >= high) {
        return std::nullopt;
    }
    const qint64 first = low / targetCount;
    const qint64 last = (high - 1) / targetCount;
    const double unit = double(targetCount);
    StretchSpan span{int(first), int(last - first + 1)};
    if (span.count > 1) {
        span.head = float(double((first + 1) * targetCount - low) / unit);
        span.tail = float(double(high - last * targetCount) / unit);
        span.scale = float(unit / double(high - low));
    }
    return span;
}

std::optional<StretchSpan> linearSpan(qint64 index, qint64 targetCount, const Range& source,
                                      int surface)
{
    const double place = (double(index) + 0.5) * double(source.count) / double(targetCount) - 0.5;
    const qint64 below = qint64(std::floor(place));
    const qint64 low = std::max<qint64>(source.first, 0);
    const qint64 high = std::min<qint64>(source.first + source.count, surface) - 1;
    const qint64 middle = source.first + (2 * index + 1) * source.count / (2 * targetCount);
    if (low > high || middle < low || middle > high) {
        return std::nullopt;
    }
    const qint64 first = std::clamp(source.first + below, low, high);
    const qint64 second = std::clamp(source.first + below + 1, low, high);
    StretchSpan span{int(first), int(second - first + 1)};
    if (span.count == 2) {
        span.tail = float(place - double(below));
        span.head = 1.0F - span.tail;
    }
    return span;
}

std::optional<StretchSpan> spanOf(qint64 index, qint64 targetCount, const Range& source,
                                  int surface, AxisMethod method)
{
    switch (method) {
    case AxisMethod::Average:
        return averageSpan(index, targetCount, source, surface);
    case AxisMethod::Linear:
        return linearSpan(index, targetCount, source, surface);
    case AxisMethod::Nearest:
        break;
    }
    return nearestSpan(index, targetCount, source, surface);
}

} // namespace

StretchAxis mapAxis(StretchSide target, StretchSide source, AxisMethod method)
{
    const Range onto = rising(target);
    const Range from = rising(source);
    const bool mirrored = (target.length < 0) != (source.length < 0);
    StretchAxis axis;
    const qint64 begin = std::max<qint64>(onto.first, 0);
    const qint64 end = std::min<qint64>(onto.first + onto.count, target.surface);
    for (qint64 pixel = begin; pixel < end; ++pixel) {
        const qint64 index = mirrored ? onto.first + onto.count - 1 - pixel : pixel - onto.first;
        const auto span = spanOf(index, onto.count, from, source.surface, method);
        if (!span) {
            if (!axis.spans.empty()) {
                break;
            }
            continue;
        }
        if (axis.spans.empty()) {
            axis.targetFirst = int(pixel);
            axis.spans.reserve(std::size_t(end - pixel));
        }
        axis.spans.push_back(*span);
    }
    return axis;
}

} // namespace platform
