#include "widgets/avi_reader.h"

#include "base/byte_reader.h"
#include "widgets/avi_frames.h"

#include <algorithm>

namespace widgets {

namespace {

constexpr std::uint32_t fourLetters(char a, char b, char c, char d)
{
    return static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b) << 8U |
           static_cast<std::uint32_t>(c) << 16U | static_cast<std::uint32_t>(d) << 24U;
}

constexpr std::size_t kMostBytes = std::size_t{64} << 20U;
constexpr int kLargestSide = 4096;
constexpr std::size_t kMostFrames = 10'000;
constexpr int kDeepestList = 4; // file, movie, record; one to spare
constexpr std::uint32_t kNoStream = 0xFFFFFFFF;

struct Chunk {
    std::uint32_t name = 0;
    std::span<const std::byte> body;
};

// Calls the visitor with each chunk of the bytes; a chunk that claims more than is there gets what
// there is.
template<class Visitor> void forEachChunk(std::span<const std::byte> bytes, Visitor visit)
{
    const base::ByteReader reader(bytes);
    std::size_t at = 0;
    while (at + 8 <= bytes.size()) {
        const std::size_t size = reader.little32At(at + 4);
        visit(Chunk{reader.little32At(at), reader.slice(at + 8, size)});
        at += 8 + size + size % 2;
    }
}

class ClipReader {
public:
    std::optional<AviClip> read(std::span<const std::byte> bytes)
    {
        const base::ByteReader reader(bytes);
        if (reader.little32At(0) != fourLetters('R', 'I', 'F', 'F') ||
            reader.little32At(8) != fourLetters('A', 'V', 'I', ' ')) {
            return std::nullopt;
        }
        readList(reader.from(12), 0);
        if (m_failed || m_clip.frames.empty()) {
            return std::nullopt;
        }
        return m_clip;
    }

private:
    void readList(std::span<const std::byte> bytes, int depth)
    {
        forEachChunk(bytes, [this, depth](const Chunk& chunk) {
            if (m_failed) {
                return;
            }
            if (chunk.name == fourLetters('L', 'I', 'S', 'T')) {
                if (depth < kDeepestList && chunk.body.size() >= 4) {
                    readList(chunk.body.subspan(4), depth + 1);
                }
                return;
            }
            readChunk(chunk);
        });
    }

    void readChunk(const Chunk& chunk)
    {
        switch (chunk.name) {
        case fourLetters('a', 'v', 'i', 'h'):
            setInterval(base::ByteReader(chunk.body).little32At(0), 1000);
            break;
        case fourLetters('s', 't', 'r', 'h'):
            readStreamHeader(chunk.body);
            break;
        case fourLetters('s', 't', 'r', 'f'):
            if (m_stream == m_videoStream) {
                readFormat(chunk.body);
            }
            break;
        default:
            if (m_hasFormat && isFrame(chunk.name)) {
                addFrame(chunk.body);
            }
        }
    }

    void readStreamHeader(std::span<const std::byte> body)
    {
        const base::ByteReader reader(body);
        ++m_stream;
        if (m_videoStream != kNoStream || reader.little32At(0) != fourLetters('v', 'i', 'd', 's')) {
            return;
        }
        m_videoStream = m_stream;
        const std::uint64_t scale = reader.little32At(20);
        const std::uint64_t rate = reader.little32At(24);
        if (scale > 0 && rate > 0) {
            setInterval(scale * 1000, rate);
        }
    }

    void setInterval(std::uint64_t dividend, std::uint64_t divisor)
    {
        if (dividend > 0) {
            m_clip.frameMilliseconds =
                static_cast<int>(std::clamp<std::uint64_t>(dividend / divisor, 10, 10'000));
        }
    }

    void readFormat(std::span<const std::byte> body)
    {
        const base::ByteReader reader(body);
        const auto width = static_cast<std::int32_t>(reader.little32At(4));
        const auto height = static_cast<std::int32_t>(reader.little32At(8));
        const unsigned bits = reader.little16At(14);
        const std::uint32_t compression = reader.little32At(16);
        const auto coding = codingOf(bits, compression);
        if (m_hasFormat || body.size() < 40 || !coding || width < 1 || width > kLargestSide ||
            height == 0 || height < -kLargestSide || height > kLargestSide) {
            m_failed = true;
            return;
        }
        m_format.width = width;
        m_format.height = height < 0 ? -height : height;
        m_format.topDown = height < 0;
        m_format.coding = *coding;
        readPalette(reader);
        m_hasFormat = true;
        m_picture = QImage(m_format.width, m_format.height, QImage::Format_RGB32);
        m_picture.fill(Qt::black);
    }

    static std::optional<AviCoding> codingOf(unsigned bits, std::uint32_t compression)
    {
        constexpr std::uint32_t kPlain = 0;
        constexpr std::uint32_t kRunLength = 1;
        if (compression == kPlain && bits == 24) {
            return AviCoding::Dib24;
        }
        if (compression == kPlain && bits == 8) {
            return AviCoding::Dib8;
        }
        const bool isRunLength = compression == kRunLength ||
                                 compression == fourLetters('m', 'r', 'l', 'e') ||
                                 compression == fourLetters('M', 'R', 'L', 'E');
        return isRunLength && bits == 8 ? std::optional(AviCoding::Rle8) : std::nullopt;
    }

    void readPalette(const base::ByteReader& reader)
    {
        const std::size_t headerSize = std::max<std::size_t>(40, reader.little32At(0));
        const std::size_t used = reader.little32At(32);
        const std::size_t entries = used == 0 ? 256 : std::min<std::size_t>(used, 256);
        for (std::size_t entry = 0; entry < entries; ++entry) {
            const std::size_t at = headerSize + 4 * entry;
            m_format.palette.push_back(
                qRgb(reader.byteAt(at + 2), reader.byteAt(at + 1), reader.byteAt(at)));
        }
    }

    // Frames are named by two digits of their stream, and "db" or "dc".
    [[nodiscard]] bool isFrame(std::uint32_t name) const
    {
        const std::uint32_t tens = (name & 0xFFU) - '0';
        const std::uint32_t ones = ((name >> 8U) & 0xFFU) - '0';
        const std::uint32_t kind = name >> 16U;
        return tens <= 9 && ones <= 9 && tens * 10 + ones == m_videoStream &&
               (kind == ('d' | 'b' << 8) || kind == ('d' | 'c' << 8));
    }

    // An empty chunk repeats the frame before it.
    void addFrame(std::span<const std::byte> body)
    {
        const auto frameBytes = static_cast<std::size_t>(m_picture.sizeInBytes());
        const std::size_t frames = m_clip.frames.size() + 1;
        if (frames > kMostFrames || frames * frameBytes > kMostBytes) {
            m_failed = true;
            return;
        }
        drawAviFrame(m_picture, m_format, body);
        m_clip.frames.push_back(m_picture);
    }

    AviClip m_clip;
    AviFormat m_format;
    QImage m_picture; // the latest frame; the next one may draw only what changes
    std::uint32_t m_stream = kNoStream;
    std::uint32_t m_videoStream = kNoStream;
    bool m_hasFormat = false;
    bool m_failed = false;
};

} // namespace

std::optional<AviClip> readAvi(std::span<const std::byte> bytes)
{
    return ClipReader().read(bytes);
}

} // namespace widgets
