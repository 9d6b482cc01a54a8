#include "formats/random_files.h"

#include "formats/iff_files.h"
#include "formats/pcx_files.h"
#include "formats/psd_files.h"
#include "formats/tga_files.h"
#include "formats/tiff_files.h"

#include <algorithm>
#include <array>

namespace {

using Engine = std::mt19937;

int between(Engine& engine, int least, int most)
{
    return std::uniform_int_distribution<int>(least, most)(engine);
}

bool oneIn(Engine& engine, int cases)
{
    return between(engine, 1, cases) == 1;
}

unsigned anyByte(Engine& engine)
{
    return static_cast<unsigned>(between(engine, 0, 255));
}

struct Size {
    int width = 0;
    int height = 0;
};

int smallSide(Engine& engine)
{
    return between(engine, 1, 24);
}

// Small as a rule, so that thousands of files take no time; wide ones reach the bulk loops, and the
// rest are those that arrays can't have or hardly.
Size anySize(Engine& engine)
{
    switch (between(engine, 0, 29)) {
    case 0:
        return {0, smallSide(engine)};
    case 1:
        return {smallSide(engine), 0};
    case 2:
        return {between(engine, -20, -1), smallSide(engine)};
    case 3:
        return {between(engine, -20, -1), between(engine, -20, -1)};
    case 4:
        return {between(engine, 32000, 32767), between(engine, 32000, 32767)};
    case 5:
        return {between(engine, 32000, 32767), between(engine, 1, 3)};
    case 6:
        return {between(engine, 1, 3), between(engine, 32000, 32767)};
    case 7:
    case 8:
    case 9:
        return {between(engine, 150, 600), between(engine, 1, 8)};
    default:
        return {smallSide(engine), smallSide(engine)};
    }
}

template<std::size_t kCount> int oneOf(Engine& engine, const std::array<int, kCount>& values)
{
    return values.at(static_cast<std::size_t>(between(engine, 0, int{kCount} - 1)));
}

// Packets that unpack to about this many bytes.
FileBytes pcxPackets(Engine& engine, int bytes)
{
    FileBytes data;
    while (bytes > 0) {
        if (oneIn(engine, 3)) {
            const int count = between(engine, 0, std::min(63, oneIn(engine, 5) ? 63 : bytes));
            data.byte(0xC0U + static_cast<unsigned>(count)).byte(anyByte(engine));
            bytes -= count;
        } else {
            for (int i = between(engine, 1, 12); i > 0 && bytes > 0; --i, --bytes) {
                data.byte(static_cast<unsigned>(between(engine, 0, 0xBF)));
            }
        }
    }
    return data;
}

FileBytes byteRunPackets(Engine& engine, int bytes, int longestLiteral)
{
    FileBytes data;
    while (bytes > 0) {
        const int room = oneIn(engine, 20) ? longestLiteral : std::min(bytes, longestLiteral);
        if (oneIn(engine, 12)) {
            data.byte(128);
            continue;
        }
        int count = between(engine, 1, room);
        if (count > 1 && count <= 128 && oneIn(engine, 2)) {
            data.byte(static_cast<unsigned>(257 - count)).byte(anyByte(engine));
        } else {
            data.byte(static_cast<unsigned>(count - 1));
            for (int i = 0; i < count; ++i) {
                data.byte(anyByte(engine));
            }
        }
        bytes -= count;
    }
    return data;
}

FileBytes anyBytes(Engine& engine, int count)
{
    FileBytes data;
    for (int i = 0; i < count; ++i) {
        data.byte(anyByte(engine));
    }
    return data;
}

// The bytes of a picture, though not of one that would be too large to be worth it.
int areaOf(int width, int height, int bytesPerPixel)
{
    return std::clamp(width * height, 0, 20000) * bytesPerPixel;
}

// Changes, cuts or lengthens the file a little, or leaves it as it is.
FileBytes mutated(FileBytes file, Engine& engine)
{
    if (file.size() == 0 || oneIn(engine, 3)) {
        return file;
    }
    const int last = static_cast<int>(file.size()) - 1;
    if (oneIn(engine, 3)) {
        file.cutTo(static_cast<std::size_t>(between(engine, 0, last)));
    } else if (oneIn(engine, 4)) {
        file.append(anyBytes(engine, between(engine, 1, 300)));
    }
    for (int changes = between(engine, 0, 4); changes > 0 && file.size() > 0; --changes) {
        // Half of the changes hit the header.
        const int end = static_cast<int>(file.size()) - 1;
        const int at = between(engine, 0, oneIn(engine, 2) ? std::min(end, 140) : end);
        constexpr std::array kTelling{0, 1, 2, 3, 8, 10, 12, 24, 127, 128, 129, 192, 193, 255};
        file.set(static_cast<std::size_t>(at), oneIn(engine, 2)
                                                   ? static_cast<unsigned>(oneOf(engine, kTelling))
                                                   : anyByte(engine));
    }
    return file;
}

// A huge area is as black as a small one and takes the literal reader a second: the highest bytes
// of both sides are either zero or make them negative.
FileBytes withoutHugeSides(FileBytes file)
{
    for (const std::size_t highest : {std::size_t{14}, std::size_t{18}}) {
        if (file.size() > highest + 1 && file.vector()[highest] < std::byte{0x80}) {
            file.set(highest, 0).set(highest + 1, 0);
        }
    }
    return file;
}

} // namespace

FileBytes randomPcx(Engine& engine)
{
    const auto [width, height] = anySize(engine);
    const int planes = oneOf(engine, std::array{1, 1, 1, 1, 3, 3, 3, 3, 0, 2, 4, 32});
    const int padding = oneOf(engine, std::array{0, 0, 0, 0, 0, 1, 1, 2, 5, 80, -1, -3});
    const int bytesPerLine = oneIn(engine, 30) ? smallSide(engine) : width + padding;
    FileBytes file =
        pcxHeader(pcxFields(width, height, static_cast<unsigned>(planes), bytesPerLine));
    const int rowBytes = std::max(planes, 1) * std::clamp(bytesPerLine, 0, 1000);
    file.append(pcxPackets(engine, std::clamp(rowBytes * std::clamp(height, 0, 100), 0, 40000)));
    if (planes == 1 || oneIn(engine, 10)) {
        file.append(pcxPalette());
    }
    return mutated(file, engine);
}

FileBytes randomTga(Engine& engine)
{
    const auto [width, height] = anySize(engine);
    FileBytes file = tgaHeader(width, height).append(anyBytes(engine, areaOf(width, height, 3)));
    return mutated(file, engine);
}

FileBytes randomTiff(Engine& engine)
{
    const ByteOrder order = oneIn(engine, 2) ? ByteOrder::little : ByteOrder::big;
    const int type = order == ByteOrder::big || oneIn(engine, 2) ? kLong : kShort;
    const auto [width, height] = anySize(engine);
    TiffFile file = tiffPicture(width, height, order, type);
    if (oneIn(engine, 8)) {
        constexpr std::array kTags{254, 255, 256, 257, 258, 259, 262, 273, 279, 284};
        file.entry(oneOf(engine, kTags), oneIn(engine, 2) ? kLong : kShort, between(engine, 0, 4),
                   between(engine, -3, 40000));
    }
    return mutated(file.pixels(anyBytes(engine, areaOf(width, height, 3))).bytes(), engine);
}

FileBytes randomPsd(Engine& engine)
{
    const auto [columns, rows] = anySize(engine);
    const int channels = oneOf(engine, std::array{3, 3, 3, 4, 4, 4, 0, 1, 2, 5, 16});
    const int compression = oneOf(engine, std::array{0, 0, 0, 1, 1, 1, 1, -1});
    PsdFields fields = psdFields(channels, columns, rows, compression);
    fields.sectionBytes = oneIn(engine, 3) ? static_cast<std::size_t>(between(engine, 0, 9)) : 0;
    FileBytes file = psdHeader(fields);
    if (compression == 0) {
        file.append(anyBytes(engine, areaOf(columns, rows, std::min(channels, 4))));
        return withoutHugeSides(mutated(file, engine));
    }
    file.append(psdLengths(channels, std::clamp(rows, 0, 1000)));
    for (int plane = 0; plane < std::min(channels, 4); ++plane) {
        file.append(byteRunPackets(engine, areaOf(columns, rows, 1), 128));
    }
    return withoutHugeSides(mutated(file, engine));
}

FileBytes randomIff(Engine& engine)
{
    const auto [width, height] = anySize(engine);
    FileBytes file = iffForm();
    if (oneIn(engine, 20)) {
        file.cutTo(8); // without the form's type
    }
    if (oneIn(engine, 10)) {
        file.text("ANNO").big32(12).text(oneIn(engine, 2) ? "a BMHD in it" : "BODY or CMAP");
    }
    file.append(iffHeaderChunk(width, height));
    if (!oneIn(engine, 15)) {
        file.append(iffColourChunk());
    }
    if (!oneIn(engine, 15)) {
        file.append(iffBodyChunk(byteRunPackets(engine, areaOf(width, height, 1), 129)));
    }
    return mutated(file, engine);
}
