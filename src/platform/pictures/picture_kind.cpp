#include "platform/pictures/picture_kind.h"

#include "base/byte_reader.h"

namespace platform {

namespace {

bool isBmp(const base::ByteReader& start)
{
    constexpr unsigned kSmallestHeader = 12;
    constexpr unsigned kLargestHeader = 124;
    const unsigned header = start.little32At(14);
    return start.big16At(0) == 0x424D && header >= kSmallestHeader && header <= kLargestHeader;
}

bool isGif(const base::ByteReader& start)
{
    const unsigned version = start.big16At(4);
    return start.big32At(0) == 0x47494638 && (version == 0x3761 || version == 0x3961);
}

bool isJpeg(const base::ByteReader& start)
{
    return start.big16At(0) == 0xFFD8 && start.byteAt(2) == 0xFF;
}

// Without the count, true-colour pictures of another format would pass for cursors.
bool isIcon(const base::ByteReader& start)
{
    const unsigned type = start.little16At(2);
    return start.little16At(0) == 0 && (type == 1 || type == 2) && start.little16At(4) != 0;
}

bool isMetafile(const base::ByteReader& start)
{
    constexpr unsigned kPlaceable = 0x9AC6CDD7;
    if (start.little32At(0) == kPlaceable) {
        return true;
    }
    const unsigned type = start.little16At(0);
    const unsigned headerWords = start.little16At(2);
    const unsigned version = start.little16At(4);
    return (type == 1 || type == 2) && headerWords == 9 && (version == 0x100 || version == 0x300);
}

bool isEnhancedMetafile(const base::ByteReader& start)
{
    return start.little32At(0) == 1 && start.big32At(40) == 0x20454D46;
}

struct Recogniser {
    PictureKind kind;
    bool (*recognises)(const base::ByteReader& start);
};

constexpr Recogniser kRecognisers[] = {
    {PictureKind::Jpeg, isJpeg},
    {PictureKind::Gif, isGif},
    {PictureKind::Bmp, isBmp},
    {PictureKind::Icon, isIcon},
    {PictureKind::EnhancedMetafile, isEnhancedMetafile},
    {PictureKind::Metafile, isMetafile},
};

} // namespace

PictureKind pictureKind(std::span<const std::byte> start)
{
    const base::ByteReader reader(start);
    for (const Recogniser& recogniser : kRecognisers) {
        if (recogniser.recognises(reader)) {
            return recogniser.kind;
        }
    }
    return PictureKind::Unknown;
}

} // namespace platform
