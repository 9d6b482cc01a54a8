#include "platform/pictures/icon_directory.h"

#include "base/byte_reader.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace platform {

namespace {

constexpr std::size_t kDirectoryHeadBytes = 6;
constexpr std::size_t kEntryBytes = 16;
constexpr int kLongestSide = 1 << 15;

int pngDepth(const base::ByteReader& png)
{
    constexpr int kSamplesOfColourType[] = {1, 0, 3, 1, 2, 0, 4};
    const unsigned colourType = png.byteAt(25);
    return colourType < std::size(kSamplesOfColourType)
               ? png.byteAt(24) * kSamplesOfColourType[colourType]
               : 0;
}

// The images are PNG files, or bitmaps without a file header whose height counts the mask too.
std::optional<IconEntry> entryAt(const base::ByteReader& file, int index)
{
    const std::size_t entry = kDirectoryHeadBytes + std::size_t(index) * kEntryBytes;
    const base::ByteReader image(file.from(file.little32At(entry + 12)));
    IconEntry result;
    result.index = index;
    if (image.big32At(0) == 0x89504E47) {
        result.size = QSize(int(image.big32At(16)), int(image.big32At(20)));
        result.depth = pngDepth(image);
    } else if (image.little32At(0) == 40) {
        result.size = QSize(int(image.little32At(4)), int(image.little32At(8)) / 2);
        result.depth = image.little16At(14);
    }
    const bool possible = !result.size.isEmpty() && result.size.width() <= kLongestSide &&
                          result.size.height() <= kLongestSide;
    return possible ? std::optional(result) : std::nullopt;
}

std::tuple<qint64, int> rank(const IconEntry& entry)
{
    return {qint64(entry.size.width()) * entry.size.height(), entry.depth};
}

} // namespace

std::vector<IconEntry> iconEntries(std::span<const std::byte> file)
{
    const base::ByteReader reader(file);
    const std::size_t room =
        file.size() < kDirectoryHeadBytes ? 0 : (file.size() - kDirectoryHeadBytes) / kEntryBytes;
    const std::size_t count = std::min<std::size_t>(reader.little16At(4), room);
    std::vector<IconEntry> entries;
    for (std::size_t i = 0; i < count; ++i) {
        if (const auto entry = entryAt(reader, int(i))) {
            entries.push_back(*entry);
        }
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const IconEntry& a, const IconEntry& b) { return rank(a) > rank(b); });
    return entries;
}

} // namespace platform
