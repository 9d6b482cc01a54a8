#include "platform/pictures/large_image.h"

#include "platform/pictures/spare_blocks.h"

#include <memory>

namespace platform {

namespace {

constexpr std::size_t kWorthwhile = 2 * SpareBlocks::kLargePage;

// Never destroyed, because images may outlive everything else.
SpareBlocks& spareBlocks()
{
    static SpareBlocks* const blocks = std::make_unique<SpareBlocks>().release();
    return *blocks;
}

void giveBack(void* block)
{
    const std::unique_ptr<SpareBlocks::Block> owned(static_cast<SpareBlocks::Block*>(block));
    spareBlocks().give(*owned);
}

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
    const SpareBlocks::Block block = spareBlocks().take(bytes);
    if (block.memory == nullptr) {
        return {};
    }
    // The image owns it and hands it to giveBack() at its end.
    auto owned = std::make_unique<SpareBlocks::Block>(block);
    return QImage(static_cast<uchar*>(block.memory), size.width(), size.height(),
                  static_cast<qsizetype>(bytesPerLine), format, giveBack, owned.release());
}

} // namespace platform
