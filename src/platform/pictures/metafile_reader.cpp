#include "platform/pictures/metafile_reader.h"

#include "platform/os/paths.h"
#include "platform/pictures/metafile_answer.h"

#include "base/byte_reader.h"

#include <QFile>
#include <unistd.h>

namespace platform {

namespace {

// The pixels of an answer, if it is complete and nothing else.
QImage imageOf(const QByteArray& answer)
{
    const base::ByteReader reader(
        std::as_bytes(std::span(answer.constData(), std::size_t(answer.size()))));
    constexpr auto kMagicBytes = qsizetype(kMetafileAnswerMagic.size());
    if (!answer.startsWith(QByteArray(kMetafileAnswerMagic.data(), kMagicBytes))) {
        return {};
    }
    const qint64 width = reader.little32At(8);
    const qint64 height = reader.little32At(12);
    if (width < 1 || width > kLongestMetafileSide || height < 1 || height > kLongestMetafileSide ||
        answer.size() != kMetafileAnswerHeadBytes + width * height * 4) {
        return {};
    }
    const auto* pixels =
        reinterpret_cast<const uchar*>(answer.constData()) + kMetafileAnswerHeadBytes;
    return QImage(pixels, int(width), int(height), width * 4, QImage::Format_RGBA8888)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

QString metafileHelper()
{
    return joinPath(programFolder(), QStringLiteral("vistara-metafile"));
}

DrawnMetafile readMetafile(QFile& file, const QString& helper, std::chrono::milliseconds patience)
{
    // The helper shares the descriptor and with it the place in the file.
    if (file.size() > kLargestMetafile || ::lseek(file.handle(), 0, SEEK_SET) != 0) {
        return {};
    }
    const HelperAnswer answer =
        helperAnswer({helper, file.handle(), kLongestMetafileAnswer, patience});
    return {imageOf(answer.output), answer.end};
}

} // namespace platform
