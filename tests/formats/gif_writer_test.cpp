#include "formats/gif_writer.h"

#include "support/full_disk.h"
#include "support/ordinary_user.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Bytes = std::vector<std::byte>;
using Pixels = std::vector<std::uint8_t>;
namespace fs = std::filesystem;

constexpr std::size_t kHeadBytes = 6 + 7 + 768 + 1;

struct Bitmap {
    formats::GifBitmapInfo info;
    Bytes bits;
};

// A bitmap of the pixels given from the top row down. The padding holds a colour that must never
// reach the file.
Bitmap makeBitmap(int width, int height, const Pixels& pixels)
{
    Bitmap bitmap;
    bitmap.info.width = width;
    bitmap.info.height = height;
    for (std::size_t i = 0; i < 256; ++i) {
        const auto value = static_cast<std::uint8_t>(i);
        bitmap.info.colours[i] = {value, static_cast<std::uint8_t>(value ^ 0x55U),
                                  static_cast<std::uint8_t>(255U - value)};
    }
    const std::size_t stride = formats::gifStride(bitmap.info);
    bitmap.bits.assign(stride * static_cast<std::size_t>(height), std::byte{0xEE});
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            bitmap.bits[static_cast<std::size_t>(height - 1 - y) * stride +
                        static_cast<std::size_t>(x)] =
                static_cast<std::byte>(pixels[static_cast<std::size_t>(y * width + x)]);
        }
    }
    return bitmap;
}

Pixels noise(std::size_t count, unsigned colours, unsigned seed)
{
    std::mt19937 random(seed);
    Pixels pixels(count);
    for (std::uint8_t& pixel : pixels) {
        pixel = static_cast<std::uint8_t>(random() % colours);
    }
    return pixels;
}

// Long runs with a few specks, the way drawings look.
Pixels drawing(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    Pixels pixels;
    while (pixels.size() < count) {
        const std::size_t run = 1 + random() % 700;
        pixels.insert(pixels.end(), std::min(run, count - pixels.size()),
                      static_cast<std::uint8_t>(random() % 5));
    }
    return pixels;
}

// ---- the code stream, worked out with plain linked lists ----

class PlainCoder {
public:
    explicit PlainCoder(Bytes& file)
        : m_file(file)
    {
    }

    void encode(const Pixels& pixels)
    {
        emit(256);
        reset();
        std::size_t prefix = pixels.front();
        for (std::size_t i = 1; i < pixels.size(); ++i) {
            const std::optional<std::size_t> longer = find(prefix, pixels[i]);
            if (longer) {
                prefix = *longer;
                continue;
            }
            emit(prefix);
            m_suffix[m_nextFree] = pixels[i];
            ++m_nextFree;
            if (m_nextFree > m_threshold) {
                outgrow();
            }
            prefix = pixels[i];
        }
        emit(prefix);
        emit(257);
        if (m_bitCount > 0) {
            m_bitCount = 8;
            pushBytes();
        }
        if (!m_block.empty()) {
            writeBlock();
        }
        m_file.push_back(std::byte{0});
    }

private:
    std::optional<std::size_t> find(std::size_t prefix, std::uint8_t pixel)
    {
        if (m_children[prefix] == 0) {
            m_children[prefix] = m_nextFree;
            return std::nullopt;
        }
        std::size_t n = m_children[prefix];
        while (m_suffix[n] != pixel) {
            if (m_siblings[n] == 0) {
                m_siblings[n] = m_nextFree;
                return std::nullopt;
            }
            n = m_siblings[n];
        }
        return n;
    }

    void outgrow()
    {
        if (m_width >= 12) {
            emit(256);
            reset();
            return;
        }
        ++m_width;
        m_threshold *= 2;
    }

    void reset()
    {
        m_width = 9;
        m_nextFree = 258;
        m_threshold = 512;
        m_children.fill(0);
        m_siblings.fill(0);
        m_suffix.fill(0);
    }

    void emit(std::size_t code)
    {
        m_bits |= static_cast<std::uint32_t>(code) << m_bitCount;
        m_bitCount += m_width;
        pushBytes();
    }

    void pushBytes()
    {
        for (; m_bitCount >= 8; m_bitCount -= 8, m_bits >>= 8U) {
            m_block.push_back(static_cast<std::byte>(m_bits & 0xFFU));
            if (m_block.size() == 255) {
                writeBlock();
            }
        }
    }

    void writeBlock()
    {
        m_file.push_back(static_cast<std::byte>(m_block.size()));
        m_file.insert(m_file.end(), m_block.begin(), m_block.end());
        m_block.clear();
    }

    Bytes& m_file;
    Bytes m_block;
    std::array<std::size_t, 4097> m_children{};
    std::array<std::size_t, 4097> m_siblings{};
    std::array<std::uint8_t, 4097> m_suffix{};
    std::size_t m_nextFree = 258;
    std::size_t m_threshold = 512;
    std::uint32_t m_bits = 0;
    unsigned m_bitCount = 0;
    unsigned m_width = 9;
};

// ---- reading a file back ----

struct Decoded {
    int width = 0;
    int height = 0;
    Pixels pixels;
    unsigned widestCode = 0;
    int clearCodes = 0;
    std::vector<std::size_t> blockSizes;
    std::size_t bytesUsed = 0;
};

unsigned byteAt(const Bytes& file, std::size_t at)
{
    return at < file.size() ? std::to_integer<unsigned>(file[at]) : 0U;
}

int wordAt(const Bytes& file, std::size_t at)
{
    return static_cast<int>(byteAt(file, at) | byteAt(file, at + 1) << 8U);
}

// Strings as pairs of a shorter string and a last pixel, the way a viewer unpacks them.
class Unpacker {
public:
    Unpacker(const Bytes& data, Decoded& result)
        : m_data(data)
        , m_result(result)
    {
    }

    void run(std::size_t pixelCount)
    {
        while (true) {
            const unsigned code = next();
            m_result.widestCode = std::max(m_result.widestCode, m_width);
            if (code == 257 || m_at > m_data.size() * 8 + 12) {
                return;
            }
            if (code == 256) {
                restart();
            } else {
                add(code);
            }
            if (m_result.pixels.size() >= pixelCount) {
                return;
            }
        }
    }

private:
    unsigned next()
    {
        unsigned code = 0;
        for (unsigned bit = 0; bit < m_width; ++bit, ++m_at) {
            code |= (byteAt(m_data, m_at / 8) >> (m_at % 8) & 1U) << bit;
        }
        return code;
    }

    void restart()
    {
        ++m_result.clearCodes;
        m_strings.assign(258, {});
        for (std::size_t i = 0; i < 256; ++i) {
            m_strings[i] = {static_cast<std::uint8_t>(i)};
        }
        m_previous.reset();
        m_width = 9;
    }

    void add(unsigned code)
    {
        ASSERT_LE(code, m_strings.size());
        if (m_previous) {
            Pixels longer = m_strings[*m_previous];
            longer.push_back(code < m_strings.size() ? m_strings[code].front() : longer.front());
            m_strings.push_back(longer);
            if (m_strings.size() == std::size_t{1} << m_width && m_width < 12) {
                ++m_width;
            }
        }
        const Pixels& string = m_strings[code];
        m_result.pixels.insert(m_result.pixels.end(), string.begin(), string.end());
        m_previous = code;
    }

    const Bytes& m_data;
    Decoded& m_result;
    std::vector<Pixels> m_strings;
    std::optional<unsigned> m_previous;
    std::size_t m_at = 0;
    unsigned m_width = 9;
};

// Reads the image block that begins behind the separator at the given offset.
Decoded decodeImage(const Bytes& file, std::size_t at)
{
    Decoded result;
    result.width = wordAt(file, at + 4);
    result.height = wordAt(file, at + 6);
    const unsigned flags = byteAt(file, at + 8);
    at += 9 + ((flags & 0x80U) != 0 ? 3U * (2U << (flags & 7U)) : 0U);
    EXPECT_EQ(byteAt(file, at), 8U);
    ++at;
    Bytes data;
    while (byteAt(file, at) != 0 && at < file.size()) {
        const std::size_t size = byteAt(file, at);
        result.blockSizes.push_back(size);
        for (std::size_t i = 1; i <= size; ++i) {
            data.push_back(static_cast<std::byte>(byteAt(file, at + i)));
        }
        at += size + 1;
    }
    result.bytesUsed = at + 1;
    Unpacker(data, result)
        .run(static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height));
    return result;
}

// ---- files ----

class GifFile : public testing::Test {
protected:
    GifFile()
    {
        std::string folder = (fs::temp_directory_path() / "gif_writer_XXXXXX").string();
        m_folder = mkdtemp(folder.data());
    }

    ~GifFile() override
    {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }

    std::string path(const std::string& name) const { return (m_folder / name).string(); }

    static Bytes read(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        const std::string text((std::istreambuf_iterator<char>(file)), {});
        Bytes bytes(text.size());
        std::transform(text.begin(), text.end(), bytes.begin(),
                       [](char letter) { return static_cast<std::byte>(letter); });
        return bytes;
    }

    static void writeText(const std::string& path, const std::string& text)
    {
        std::ofstream(path, std::ios::binary) << text;
    }

    Bytes writtenBy(const Bitmap& bitmap, const std::string& name = "out.gif")
    {
        EXPECT_TRUE(WriteGifFile(bitmap.info, bitmap.bits, path(name)));
        return read(path(name));
    }

    void expectRoundTrip(int width, int height, const Pixels& pixels)
    {
        const Bytes file = writtenBy(makeBitmap(width, height, pixels));
        const Decoded decoded = decodeImage(file, kHeadBytes);
        EXPECT_EQ(decoded.width, width);
        EXPECT_EQ(decoded.height, height);
        EXPECT_TRUE(decoded.pixels == pixels) << width << "x" << height;
        ASSERT_EQ(file.size(), decoded.bytesUsed + 1);
        EXPECT_EQ(file.back(), std::byte{';'});
    }

    fs::path m_folder;
};

Bytes encoded(const Bitmap& bitmap, formats::GifImageDescriptor image = {},
              formats::GifScreenDescriptor screen = {1, 1, 0xF7})
{
    Bytes file;
    EXPECT_TRUE(EncodeGifImage(&bitmap.info, bitmap.bits, file, image, screen));
    return file;
}

void expectPlainCodes(int width, int height, const Pixels& pixels)
{
    Bytes plain;
    PlainCoder(plain).encode(pixels);
    const Bytes file = encoded(makeBitmap(width, height, pixels));
    const Bytes codes(file.begin() + 10, file.end());
    EXPECT_TRUE(codes == plain) << width << "x" << height;
}

void expectRefused(const Bitmap& bitmap)
{
    Bytes file{std::byte{1}};
    EXPECT_FALSE(EncodeGifImage(&bitmap.info, bitmap.bits, file, {}, {1, 1, 0xF7}));
    EXPECT_EQ(file.size(), 1U);
}

} // namespace

TEST_F(GifFile, WritesOnePixelAsOneBlockOfFourBytes)
{
    const Bytes file = writtenBy(makeBitmap(1, 1, {7}));
    ASSERT_EQ(file.size(), 799U);
    // Clear code, 7 and end code with nine bits each, lowest bit first.
    const Bytes tail{std::byte{8},    std::byte{4},    std::byte{0x00}, std::byte{0x0F},
                     std::byte{0x04}, std::byte{0x04}, std::byte{0},    std::byte{';'}};
    EXPECT_EQ(Bytes(file.end() - 8, file.end()), tail);
}

TEST_F(GifFile, BeginsWithSignatureScreenAndTable)
{
    const Bytes file = writtenBy(makeBitmap(300, 2, noise(600, 256, 1)));
    const std::string head =
        std::string("GIF87a") + '\x2C' + '\x01' + '\x02' + '\0' + '\xF7' + '\0' + '\0';
    for (std::size_t i = 0; i < head.size(); ++i) {
        EXPECT_EQ(byteAt(file, i), static_cast<unsigned char>(head[i])) << i;
    }
    for (unsigned i = 0; i < 256; ++i) {
        EXPECT_EQ(byteAt(file, 13 + 3 * i), i);
        EXPECT_EQ(byteAt(file, 14 + 3 * i), i ^ 0x55U);
        EXPECT_EQ(byteAt(file, 15 + 3 * i), 255 - i);
    }
    EXPECT_EQ(byteAt(file, kHeadBytes - 1), unsigned{','});
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(byteAt(file, kHeadBytes + i), 0U);
    }
    EXPECT_EQ(wordAt(file, kHeadBytes + 4), 300);
    EXPECT_EQ(wordAt(file, kHeadBytes + 6), 2);
    EXPECT_EQ(byteAt(file, kHeadBytes + 8), 0U);
}

TEST_F(GifFile, GivesRandomPicturesBack)
{
    for (const auto& [width, height] : std::vector<std::pair<int, int>>{{1, 1},
                                                                        {1, 2},
                                                                        {1, 500},
                                                                        {2, 1},
                                                                        {2, 333},
                                                                        {3, 7},
                                                                        {4, 100},
                                                                        {5, 5},
                                                                        {5, 1000},
                                                                        {17, 31},
                                                                        {255, 3},
                                                                        {256, 256},
                                                                        {600, 400}}) {
        const auto count = static_cast<std::size_t>(width * height);
        expectRoundTrip(width, height, noise(count, 256, static_cast<unsigned>(count)));
        expectRoundTrip(width, height, drawing(count, static_cast<unsigned>(count)));
    }
}

TEST_F(GifFile, CutsTheDataIntoFullBlocksAndARest)
{
    const Decoded decoded =
        decodeImage(writtenBy(makeBitmap(64, 64, noise(4096, 256, 3))), kHeadBytes);
    ASSERT_GT(decoded.blockSizes.size(), 3U);
    for (std::size_t i = 0; i + 1 < decoded.blockSizes.size(); ++i) {
        EXPECT_EQ(decoded.blockSizes[i], 255U);
    }
    EXPECT_LT(decoded.blockSizes.back(), 256U);
}

TEST_F(GifFile, StartsAnewWhenTheDictionaryIsFull)
{
    // A uniform picture spends ever longer strings: 3839 of them cover over seven million pixels.
    const Pixels uniform(5000 * 2000, 9);
    const Decoded even = decodeImage(writtenBy(makeBitmap(5000, 2000, uniform)), kHeadBytes);
    EXPECT_EQ(even.widestCode, 12U);
    EXPECT_EQ(even.clearCodes, 2);
    EXPECT_TRUE(even.pixels == uniform);

    const Pixels speckled = noise(200 * 200, 256, 4);
    const Decoded mixed = decodeImage(writtenBy(makeBitmap(200, 200, speckled)), kHeadBytes);
    EXPECT_EQ(mixed.widestCode, 12U);
    EXPECT_GT(mixed.clearCodes, 5);
    EXPECT_TRUE(mixed.pixels == speckled);
}

TEST(GifEncoder, GivesTheCodesOfAPlainTreeWalk)
{
    unsigned seed = 10;
    for (const auto& [width, height] : std::vector<std::pair<int, int>>{
             {1, 1}, {1, 9}, {2, 1}, {3, 3}, {1, 20000}, {5, 4001}, {640, 480}, {5000, 2}}) {
        const auto count = static_cast<std::size_t>(width * height);
        expectPlainCodes(width, height, Pixels(count, 200));
        expectPlainCodes(width, height, drawing(count, ++seed));
        for (const unsigned colours : {2U, 3U, 16U, 100U, 256U}) {
            expectPlainCodes(width, height, noise(count, colours, ++seed));
        }
    }
}

TEST(GifEncoder, GivesTheCodesOfAPlainTreeWalkWhereverThePictureEnds)
{
    // The last codes fall before, on and behind every change of the code width.
    const Pixels all = noise(6000, 256, 77);
    for (int count = 1; count < 6000; count += count < 300 || count > 3700 ? 1 : 13) {
        expectPlainCodes(count, 1, Pixels(all.begin(), all.begin() + count));
    }
}

TEST(GifEncoder, OrdersInterlacedRowsInFourPasses)
{
    Pixels rows;
    for (int y = 0; y < 20; ++y) {
        rows.insert(rows.end(), 3, static_cast<std::uint8_t>(y));
    }
    const Decoded decoded = decodeImage(encoded(makeBitmap(3, 20, rows), {0, 0, 0x40}), 0);
    const std::vector<int> order{0, 8, 16, 4, 12, 2,  6,  10, 14, 18,
                                 1, 3, 5,  7, 9,  11, 13, 15, 17, 19};
    ASSERT_EQ(decoded.pixels.size(), 60U);
    for (std::size_t i = 0; i < order.size(); ++i) {
        EXPECT_EQ(decoded.pixels[i * 3], order[i]);
    }
}

TEST(GifEncoder, AddsATableWhenTheScreenHasNone)
{
    Bitmap bitmap = makeBitmap(2, 2, {0, 1, 2, 3});
    bitmap.info.usedColours = 4;
    const Bytes file = encoded(bitmap, {}, {2, 2, 0x77});
    EXPECT_EQ(byteAt(file, 8), 0x87U);
    EXPECT_EQ(byteAt(file, 9 + 3 * 3), 3U);
    EXPECT_EQ(byteAt(file, 9 + 3 * 4 + 2), 0U);
    EXPECT_EQ(decodeImage(file, 0).pixels, (Pixels{0, 1, 2, 3}));
    EXPECT_EQ(encoded(bitmap, {0, 0, 0x80}), file);
}

TEST(GifEncoder, RefusesWhatItCantWrite)
{
    const Bitmap good = makeBitmap(4, 4, Pixels(16, 1));
    Bytes file;
    EXPECT_FALSE(EncodeGifImage(nullptr, good.bits, file, {}, {}));
    EXPECT_FALSE(EncodeGifImage(&good.info, {}, file, {}, {}));
    EXPECT_TRUE(file.empty());

    Bitmap bad = good;
    bad.info.headerSize = 12;
    expectRefused(bad);
    bad = good;
    bad.info.compression = 1;
    expectRefused(bad);
    for (const std::uint16_t bits : {1, 4, 16, 24, 32}) {
        bad = good;
        bad.info.bitCount = bits;
        expectRefused(bad);
    }
    for (const std::int32_t size : {-4, 0, 65536}) {
        bad = good;
        bad.info.width = size;
        expectRefused(bad);
        bad = good;
        bad.info.height = size;
        expectRefused(bad);
    }
    bad = good;
    bad.bits.pop_back();
    expectRefused(bad);
}

TEST_F(GifFile, WritesTheWidestAndTallestPictures)
{
    expectRoundTrip(65535, 1, drawing(65535, 5));
    expectRoundTrip(1, 65535, drawing(65535, 6));
}

TEST_F(GifFile, LowersADeepBitCountToEight)
{
    Bitmap bitmap = makeBitmap(3, 1, {1, 2, 3});
    bitmap.info.bitCount = 24;
    EXPECT_EQ(decodeImage(writtenBy(bitmap), kHeadBytes).pixels, (Pixels{1, 2, 3}));
}

TEST_F(GifFile, LeavesHeaderAndTableOfARefusedPicture)
{
    Bitmap bitmap = makeBitmap(8, 2, Pixels(16, 1));
    bitmap.info.bitCount = 4;
    EXPECT_FALSE(WriteGifFile(bitmap.info, bitmap.bits, path("four.gif")));
    const Bytes file = read(path("four.gif"));
    ASSERT_EQ(file.size(), 13U + 48U + 1U);
    EXPECT_EQ(byteAt(file, 10), 0xB3U);
    EXPECT_EQ(byteAt(file, 61), unsigned{','});
}

TEST_F(GifFile, ReplacesAnExistingFile)
{
    writeText(path("old.gif"), std::string(100000, 'x'));
    EXPECT_EQ(writtenBy(makeBitmap(1, 1, {7}), "old.gif").size(), 799U);
}

TEST_F(GifFile, LeavesAReadOnlyTargetAlone)
{
    const Bitmap bitmap = makeBitmap(1, 1, {7});
    writeText(path("locked.gif"), "kept");
    fs::permissions(path("locked.gif"), fs::perms::owner_read | fs::perms::others_read);
    fs::permissions(m_folder, fs::perms::owner_all | fs::perms::others_exec);
    {
        const support::OrdinaryUser user;
        EXPECT_FALSE(WriteGifFile(bitmap.info, bitmap.bits, path("locked.gif")));
        EXPECT_FALSE(WriteGifFile(bitmap.info, bitmap.bits, path("new.gif")));
    }
    EXPECT_EQ(read(path("locked.gif")).size(), 4U);
    EXPECT_FALSE(fs::exists(path("new.gif")));
}

TEST_F(GifFile, FailsWhereNoFileCanBe)
{
    const Bitmap bitmap = makeBitmap(1, 1, {7});
    EXPECT_FALSE(WriteGifFile(bitmap.info, bitmap.bits, m_folder.string()));
    EXPECT_FALSE(WriteGifFile(bitmap.info, bitmap.bits, path("missing/out.gif")));
    EXPECT_FALSE(WriteGifFile(bitmap.info, bitmap.bits, ""));
}

TEST_F(GifFile, FailsWhenTheDiskIsFull)
{
    const Bitmap small = makeBitmap(1, 1, {7});
    EXPECT_FALSE(WriteGifFile(small.info, small.bits, "/dev/full"));
    const Bitmap large = makeBitmap(300, 300, noise(90000, 256, 8));
    EXPECT_FALSE(WriteGifFile(large.info, large.bits, "/dev/full"));
    const support::FullDisk disk(500);
    EXPECT_FALSE(WriteGifFile(large.info, large.bits, path("cut.gif")));
}

TEST_F(GifFile, WritesThroughADanglingLink)
{
    fs::create_symlink(path("behind.gif"), path("link.gif"));
    writtenBy(makeBitmap(1, 1, {7}), "link.gif");
    EXPECT_EQ(fs::file_size(path("behind.gif")), 799U);
    EXPECT_TRUE(fs::is_symlink(path("link.gif")));
}

TEST_F(GifFile, ChangesNothingForAPictureThatGifCantHold)
{
    writeText(path("old.gif"), "kept");
    const Bitmap wide = makeBitmap(65536, 1, Pixels(65536, 1));
    EXPECT_FALSE(WriteGifFile(wide.info, wide.bits, path("old.gif")));
    Bitmap empty = makeBitmap(1, 1, {1});
    empty.info.height = 0;
    EXPECT_FALSE(WriteGifFile(empty.info, empty.bits, path("old.gif")));
    EXPECT_EQ(read(path("old.gif")).size(), 4U);
}
