#include "metafile_helper/answer_writer.h"

#include "platform/metafile_answer.h"

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
    const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888);
    QByteArray head(platform::kMetafileAnswerMagic.data(), platform::kMetafileAnswerMagic.size());
    for (const int side : {pixels.width(), pixels.height()}) {
        const quint32 number = qToLittleEndian(quint32(side));
        head.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    bool written = writeBytes(descriptor, head.constData(), head.size());
    for (int y = 0; written && y < pixels.height(); ++y) {
        written = writeBytes(descriptor, reinterpret_cast<const char*>(pixels.constScanLine(y)),
                             qint64(pixels.width()) * 4);
    }
    return written;
}

} // namespace metafile_helper
