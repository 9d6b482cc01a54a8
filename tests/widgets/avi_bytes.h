#pragma once

#include <QByteArray>
#include <QByteArrayList>

// Small AVI files built by hand.
namespace avi_bytes {

inline QByteArray little32(quint32 value)
{
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.append(static_cast<char>(value >> shift));
    }
    return bytes;
}

inline QByteArray little16(quint16 value)
{
    return little32(value).left(2);
}

inline QByteArray chunk(const QByteArray& name, const QByteArray& body)
{
    return name + little32(static_cast<quint32>(body.size())) + body +
           QByteArray(body.size() % 2, '\0');
}

inline QByteArray list(const QByteArray& kind, const QByteArray& body)
{
    return chunk("LIST", kind + body);
}

struct Movie {
    qint32 width = 2;
    qint32 height = 2;
    quint16 bits = 24;
    quint32 compression = 0;
    QByteArray palette;
    quint32 paletteEntries = 0;
    quint32 scale = 1;
    quint32 rate = 20;
    QByteArrayList frames;
    QByteArray frameName = "00db";
};

inline QByteArray formatChunk(const Movie& movie)
{
    return chunk("strf", little32(40) + little32(static_cast<quint32>(movie.width)) +
                             little32(static_cast<quint32>(movie.height)) + little16(1) +
                             little16(movie.bits) + little32(movie.compression) + little32(0) +
                             little32(0) + little32(0) + little32(movie.paletteEntries) +
                             little32(0) + movie.palette);
}

inline QByteArray file(const Movie& movie)
{
    const QByteArray main = chunk("avih", little32(40'000) + QByteArray(52, '\0'));
    const QByteArray stream =
        list("strl", chunk("strh", "vids" + QByteArray(16, '\0') + little32(movie.scale) +
                                       little32(movie.rate) + QByteArray(28, '\0')) +
                         formatChunk(movie));
    QByteArray frames;
    for (const QByteArray& frame : movie.frames) {
        frames += chunk(movie.frameName, frame);
    }
    return chunk("RIFF", "AVI " + list("hdrl", main + stream) + list("movi", frames));
}

// Two frames of 2 by 2 pixels with 24 bits: all blue, then blue with a red top left pixel.
inline Movie twoFrames()
{
    const QByteArray blueRow = QByteArray::fromHex("ff0000ff00000000");
    const QByteArray redFirst = QByteArray::fromHex("0000ffff00000000");
    Movie movie;
    movie.frames = {blueRow + blueRow, blueRow + redFirst};
    return movie;
}

} // namespace avi_bytes
