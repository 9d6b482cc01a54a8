#include "thumbs/tile_kinds.h"

#include <algorithm>
#include <array>

namespace thumbs {

namespace {

constexpr auto kFile = TileSource::File;
constexpr auto kOwn = TileSource::OwnDecoder;
constexpr auto kIcon = TileSource::Icon;

constexpr std::array kKinds{
    TileKind{u"swf", u"swf", kIcon, u"flashbg"},  TileKind{u"bmp", u"bmp", kFile, {}},
    TileKind{u"jpg", u"jpg", kFile, {}},          TileKind{u"gif", u"gif", kFile, {}},
    TileKind{u"ico", u"ico", kFile, {}},          TileKind{u"wmf", u"wmf", kFile, {}},
    TileKind{u"psd", u"psd", kOwn, {}},           TileKind{u"html", u"html", kIcon, u"htmlbg"},
    TileKind{u"htm", u"html", kIcon, u"htmlbg"},  TileKind{u"mpeg", u"mpeg", kIcon, u"playbg"},
    TileKind{u"mp3", u"mp3", kIcon, u"mp3bg"},    TileKind{u"avi", u"avi", kIcon, u"playbg"},
    TileKind{u"asf", u"asf", kIcon, u"playbg"},   TileKind{u"dat", u"vcd", kIcon, u"vcddvdbg"},
    TileKind{u"vod", u"dvd", kIcon, u"vcddvdbg"}, TileKind{u"pcx", u"pcx", kOwn, {}},
    TileKind{u"tga", u"tga", kOwn, {}},           TileKind{u"lbm", u"lbm", kOwn, {}},
    TileKind{u"bbm", u"bbm", kOwn, {}},
};

constexpr TileKind kAnythingElse{{}, u"nof", kIcon, u"nofbg"};

QString imageFile(QStringView name)
{
    return QStringLiteral("Images/") + name.toString() + QStringLiteral(".ico");
}

} // namespace

const TileKind& tileKindFor(QStringView extension)
{
    const auto found =
        std::find_if(kKinds.begin(), kKinds.end(),
                     [extension](const TileKind& kind) { return kind.extension == extension; });
    return found == kKinds.end() ? kAnythingElse : *found;
}

QString badgeFile(const TileKind& kind, bool frameWindowOpen)
{
    const bool neutral = kind.extension == u"jpg" || kind.extension == u"gif";
    return imageFile(frameWindowOpen && neutral ? QStringView(u"noName") : kind.badge);
}

QString iconFile(const TileKind& kind)
{
    return imageFile(kind.icon);
}

} // namespace thumbs
