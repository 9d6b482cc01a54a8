#include "avi_writer.h"

#include <string_view>

namespace tools {

namespace {

constexpr std::uint32_t kHasIndex = 0x10;
constexpr std::uint32_t kKeyFrame = 0x10;
constexpr std::string_view kFrameTag = "00db";

struct Clip {
    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t frames;
    std::uint32_t framesPerSecond;
    std::uint32_t frameBytes;
};

void appendChunk(ByteSink& sink, std::string_view tag, const ByteSink& content)
{
    sink.text(tag);
    sink.little32(static_cast<std::uint32_t>(content.size()));
    sink.append(content.bytes());
    sink.zeros(content.size() % 2);
}

// A list is a chunk whose content begins with its own name.
void appendList(ByteSink& sink, std::string_view kind, std::string_view name, const ByteSink& items)
{
    ByteSink content;
    content.text(name);
    content.append(items.bytes());
    appendChunk(sink, kind, content);
}

// Rows from the bottom up, blue, green, red, each padded to four bytes.
ByteSink bitmapRows(const QImage& frame)
{
    ByteSink sink;
    for (int y = frame.height() - 1; y >= 0; --y) {
        for (int x = 0; x < frame.width(); ++x) {
            const QRgb colour = frame.pixel(x, y);
            sink.byte(static_cast<unsigned>(qBlue(colour)));
            sink.byte(static_cast<unsigned>(qGreen(colour)));
            sink.byte(static_cast<unsigned>(qRed(colour)));
        }
        sink.zeros(static_cast<std::size_t>(frame.width() % 4));
    }
    return sink;
}

ByteSink mainHeader(const Clip& clip)
{
    ByteSink sink;
    sink.little32(1000000 / clip.framesPerSecond); // microseconds of a frame
    sink.little32(clip.frameBytes * clip.framesPerSecond);
    sink.little32(0);
    sink.little32(kHasIndex);
    sink.little32(clip.frames);
    sink.little32(0);
    sink.little32(1); // one stream
    sink.little32(clip.frameBytes);
    sink.little32(clip.width);
    sink.little32(clip.height);
    sink.zeros(16);
    return sink;
}

ByteSink streamHeader(const Clip& clip)
{
    ByteSink sink;
    sink.text("vidsDIB ");
    sink.zeros(12);   // flags, priority, language, frames before the sound
    sink.little32(1); // frames per second are the second number over this one
    sink.little32(clip.framesPerSecond);
    sink.little32(0);
    sink.little32(clip.frames);
    sink.little32(clip.frameBytes);
    sink.little32(0xFFFFFFFF); // quality as it comes
    sink.little32(0);
    sink.little32(0);
    sink.little16(clip.width);
    sink.little16(clip.height);
    return sink;
}

ByteSink bitmapHeader(const Clip& clip)
{
    ByteSink sink;
    sink.little32(40);
    sink.little32(clip.width);
    sink.little32(clip.height);
    sink.little16(1);
    sink.little16(24);
    sink.little32(0); // not packed
    sink.little32(clip.frameBytes);
    sink.zeros(16);
    return sink;
}

} // namespace

Bytes aviFile(std::span<const QImage> frames, unsigned framesPerSecond)
{
    ByteSink movie;
    ByteSink index;
    std::uint32_t frameBytes = 0;
    for (const QImage& frame : frames) {
        const ByteSink rows = bitmapRows(frame);
        frameBytes = static_cast<std::uint32_t>(rows.size());
        index.text(kFrameTag);
        index.little32(kKeyFrame);
        index.little32(
            static_cast<std::uint32_t>(movie.size() + 4)); // counted from the list's name
        index.little32(frameBytes);
        appendChunk(movie, kFrameTag, rows);
    }
    const Clip clip{static_cast<std::uint32_t>(frames[0].width()),
                    static_cast<std::uint32_t>(frames[0].height()),
                    static_cast<std::uint32_t>(frames.size()), framesPerSecond, frameBytes};
    ByteSink stream;
    appendChunk(stream, "strh", streamHeader(clip));
    appendChunk(stream, "strf", bitmapHeader(clip));
    ByteSink headers;
    appendChunk(headers, "avih", mainHeader(clip));
    appendList(headers, "LIST", "strl", stream);
    ByteSink body;
    appendList(body, "LIST", "hdrl", headers);
    appendList(body, "LIST", "movi", movie);
    appendChunk(body, "idx1", index);
    ByteSink file;
    appendList(file, "RIFF", "AVI ", body);
    return file.bytes();
}

} // namespace tools
