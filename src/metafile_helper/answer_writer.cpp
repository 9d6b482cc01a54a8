#include "metafile_helper/answer_writer.h"

#include "platform/pictures/metafile_answer.h"

#include <QtEndian>
#include <cerrno>
#include <unistd.h>

namespace metafile_helper {

namespace {

bool writeBytes(int descriptor, const char* bytes, qint64 count)
{
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, std::size_t(count));
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        bytes += written;
        count -= written;
    }
    return true;
}

} // namespace

std::optional<QByteArray> readAll(int descriptor, qint64 most)
{
    constexpr qint64 kStep = qint64(1) << 16;
    QByteArray bytes;
    while (bytes.size() <= most) {
        const qint64 before = bytes.size();
        bytes.resize(before + kStep);
        ssize_t got = -1;
        do {
            got = ::read(descriptor, bytes.data() + before, std::size_t(kStep));
        } while (got < 0 && errno == EINTR);
        if (got < 0) {
            return std::nullopt;
        }
        bytes.resize(before + got);
        if (got == 0) {
            return bytes;
        }
    }
    return std::nullopt;
}

bool writeAnswer(int descriptor, const QImage& image)
{
    QByteArray head(platform::kMetafileAnswerMagic.data(), platform::kMetafileAnswerMagic.size());
    for (const int side : {image.width(), image.height()}) {
        const quint32 number = qToLittleEndian(quint32(side));
        head.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    bool written = writeBytes(descriptor, head.constData(), head.size());
    // Row by row, because a whole image would be converted by threads, which wait for each other
    // without end where there is no memory for one of them.
    for (int y = 0; written && y < image.height(); ++y) {
        const QImage row(image.constScanLine(y), image.width(), 1, image.format());
        const QImage pixels = row.convertToFormat(QImage::Format_RGBA8888);
        written = !pixels.isNull() &&
                  writeBytes(descriptor, reinterpret_cast<const char*>(pixels.constBits()),
                             qint64(image.width()) * 4);
    }
    return written;
}

} // namespace metafile_helper
