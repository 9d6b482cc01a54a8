#include "platform/devices/scan_memory.h"

#include <fcntl.h>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>

namespace platform {

namespace {

struct Mapping {
    void* start;
    std::size_t bytes;
};

void unmap(void* owned)
{
    const std::unique_ptr<Mapping> mapping(static_cast<Mapping*>(owned));
    ::munmap(mapping->start, mapping->bytes);
}

} // namespace

ScanMemory::ScanMemory()
    : m_descriptor(::memfd_create("vistara-scan", MFD_CLOEXEC | MFD_ALLOW_SEALING))
{
    const bool isReady =
        isOpen() && ::ftruncate(m_descriptor, off_t(kScanMemoryBytes)) == 0 &&
        ::fcntl(m_descriptor, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) == 0;
    if (isOpen() && !isReady) {
        ::close(m_descriptor);
        m_descriptor = -1;
    }
}

ScanMemory::~ScanMemory()
{
    if (isOpen()) {
        ::close(m_descriptor);
    }
}

QImage ScanMemory::image(const ScanShape& shape) const
{
    const std::size_t line = std::size_t(shape.width) * shape.channels;
    const std::size_t bytes = line * shape.rows;
    if (!isOpen() || bytes == 0 || bytes > kScanMemoryBytes) {
        return {};
    }
    void* start = ::mmap(nullptr, bytes, PROT_READ, MAP_SHARED, m_descriptor, 0);
    if (start == MAP_FAILED) {
        return {};
    }
    const QImage::Format format =
        shape.channels == 1 ? QImage::Format_Grayscale8 : QImage::Format_RGB888;
    auto mapping = std::make_unique<Mapping>(Mapping{start, bytes});
    // The image owns the mapping and hands it to unmap() at its end.
    return QImage(static_cast<const uchar*>(start), int(shape.width), int(shape.rows),
                  qsizetype(line), format, unmap, mapping.release());
}

} // namespace platform
