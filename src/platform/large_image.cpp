#include "platform/large_image.h"

#include <cstdlib>
#include <sys/mman.h>

namespace platform {

namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20U;
constexpr std::size_t kWorthwhile = 2 * kLargePage;

} // namespace

QImage unsetImage(QSize size, QImage::Format format)
{
    if (size.isEmpty()) {
        return {};
    }
    const auto bytesPerLine = static_cast<std::size_t>(size.width()) * 4;
    const std::size_t bytes = bytesPerLine * static_cast<std::size_t>(size.height());
    if (bytes < kWorthwhile) {
        return QImage(size, format);
    }
    const std::size_t wholePages = (bytes + kLargePage - 1) / kLargePage * kLargePage;
    void* memory = std::aligned_alloc(kLargePage, wholePages);
    if (memory == nullptr) {
        return {};
    }
    // Only a hint: without large pages the memory is as good as any.
    ::madvise(memory, wholePages, MADV_HUGEPAGE);
    return QImage(static_cast<uchar*>(memory), size.width(), size.height(),
                  static_cast<qsizetype>(bytesPerLine), format, std::free, memory);
}

} // namespace platform
