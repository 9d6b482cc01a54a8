#include "platform/pictures/raw_image_drawing.h"

#include "formats/format.h"
#include "platform/os/paths.h"
#include "platform/pictures/transfers.h"

#include <algorithm>
#include <iterator>
#include <span>

void ShowRawImage(platform::PictureBox& box, const RawImage& image)
{
    platform::BitmapHeader header;
    header.width = image.Width;
    header.height = -image.Height;
    header.bitCount = image.BitDepth;
    if (image.BitDepth == 8) {
        const std::size_t count = std::min(image.Palette.size(), std::size(header.colours));
        for (std::size_t i = 0; i < count; ++i) {
            const formats::PaletteEntry& entry = image.Palette[i];
            header.colours[i] = {entry.blue, entry.green, entry.red, entry.reserved};
        }
    }
    const std::span<const std::uint8_t> pixels(image.Pixels.data(), image.Pixels.size());
    platform::StretchDIBits(box.surface(), header, std::as_bytes(pixels));
}

namespace platform {

bool decodeToBox(const QString& path, PictureBox& box, RawImage& record, OnFailure onRefusal)
{
    box.setPicture({}); // first, since a reader may show a message
    const bool accepted = formats::readPicture(toNative(path), record);
    if ((!accepted && onRefusal == OnFailure::Stop) || !box.resize(record.Width, record.Height)) {
        return false;
    }
    ShowRawImage(box, record);
    return true;
}

} // namespace platform
