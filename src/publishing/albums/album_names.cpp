#include "publishing/albums/album_names.h"

namespace albums {

namespace {

constexpr QLatin1Char kBlank(' ');
constexpr QLatin1Char kStandIn('_');
constexpr QLatin1String kRefused(" \"\\/:;*?,<>|%+=");
constexpr int kFullLength = 210; // characters; a name that is longer takes no more
constexpr int kExtensionLength = 4;

QStringView withoutOuterBlanks(QStringView text)
{
    while (text.startsWith(kBlank)) {
        text = text.mid(1);
    }
    while (text.endsWith(kBlank)) {
        text.chop(1);
    }
    return text;
}

// Units that the character at a place takes: two of a pair.
qsizetype unitsAt(QStringView text, qsizetype place)
{
    const bool isPair = text[place].isHighSurrogate() && place + 1 < text.size() &&
                        text[place + 1].isLowSurrogate();
    return isPair ? 2 : 1;
}

// The toolkit replaces what is no character, such as a byte that is no text; here it stays.
QString lowered(const QString& text)
{
    QString low;
    for (qsizetype k = 0; k < text.size();) {
        const QString character = text.mid(k, unitsAt(text, k));
        const bool isText = character.isValidUtf16();
        low += isText ? character.toLower() : character;
        k += character.size();
    }
    return low;
}

// By count, whatever they are.
QString withoutExtension(QString name)
{
    for (int left = kExtensionLength; left > 0 && !name.isEmpty(); --left) {
        const bool isPair = name.size() > 1 && unitsAt(name, name.size() - 2) == 2;
        name.chop(isPair ? 2 : 1);
    }
    return name;
}

} // namespace

QString cleanedName(const QString& name)
{
    const QStringView text = withoutOuterBlanks(name);
    QString cleaned;
    int length = 0;
    for (qsizetype k = 0; k < text.size() && length <= kFullLength; ++length) {
        const QStringView character = text.mid(k, unitsAt(text, k));
        if (kRefused.contains(text[k])) {
            cleaned += kStandIn;
        } else {
            cleaned += character;
        }
        k += character.size();
    }
    return cleaned;
}

AlbumNames albumNames(const QString& fileName, const NameRules& rules)
{
    AlbumNames names;
    names.cleaned = lowered(cleanedName(fileName));
    names.keepsGif = rules.Compress_NO_GIF && names.cleaned.endsWith(QLatin1String(".gif"));
    const QString stem = withoutExtension(names.cleaned);
    names.thumbnail = QLatin1String("tn_") + stem +
                      (rules.CompressToJPG ? QLatin1String(".jpg") : QLatin1String(".bmp"));
    names.full = stem + (names.keepsGif ? QLatin1String(".gif") : QLatin1String(".jpg"));
    names.detail = stem + QLatin1String(".htm");
    return names;
}

} // namespace albums
