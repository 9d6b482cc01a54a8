#include "formats/format.h"

#include "base/byte_reader.h"
#include "formats/iff_reader.h"
#include "formats/mapped_file.h"
#include "formats/pcx_reader.h"
#include "formats/psd_reader.h"
#include "formats/tga_reader.h"
#include "formats/tiff_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace {

struct Format {
    bool (*recognise)(const base::ByteReader& file);
    bool (*read)(std::span<const std::byte> file, RawImage& image);
};

// In the order in which they are asked: the tests are weak, and the first hit decides.
constexpr std::array kFormats{
    Format{formats::isPsd, formats::readPsd},   Format{formats::isTga, formats::readTga},
    Format{formats::isTiff, formats::readTiff}, Format{formats::isPcx, formats::readPcx},
    Format{formats::isIff, formats::readIff},
};

// Positions in a file have 32 bits with a sign. Sparse files can claim any size without having it,
// and some readers search through all of it.
constexpr std::size_t kLargestFile = std::numeric_limits<std::int32_t>::max();

} // namespace

void OpenRawImage(const std::string& path, RawImage& image)
{
    static_cast<void>(formats::readPicture(path, image));
}

namespace formats {

bool readPicture(const std::string& path, RawImage& image)
{
    const auto file = MappedFile::open(path);
    if (!file || file->bytes().size() > kLargestFile) {
        return false;
    }
    const base::ByteReader reader(file->bytes());
    const auto format =
        std::find_if(kFormats.begin(), kFormats.end(),
                     [&](const Format& candidate) { return candidate.recognise(reader); });
    return format != kFormats.end() && format->read(file->bytes(), image);
}

} // namespace formats
