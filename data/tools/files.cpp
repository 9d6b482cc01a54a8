#include "files.h"

#include "platform/pictures/jpeg_encoder.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include <fstream>
#include <iostream>
#include <iterator>

namespace tools {

std::optional<Bytes> readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cerr << "make_data: can't read " << path << '\n';
        return std::nullopt;
    }
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

bool writeFile(const std::filesystem::path& path, const Bytes& bytes)
{
    std::error_code ignored; // a folder that can't be made shows in the write below
    std::filesystem::create_directories(path.parent_path(), ignored);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    std::copy(bytes.begin(), bytes.end(), std::ostreambuf_iterator<char>(file));
    file.close();
    if (!file || bytes.empty()) {
        std::cerr << "make_data: can't write " << path << '\n';
        return false;
    }
    return true;
}

Bytes encoded(const QImage& image, const char* format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!QImageWriter(&buffer, format).write(image)) {
        return {};
    }
    const QByteArray& data = buffer.data();
    return Bytes(data.begin(), data.end());
}

Bytes jpegFile(const QImage& image, int quality)
{
    platform::JpegEncoder encoder(image, quality);
    if (!encoder.encodeAll()) {
        return {};
    }
    Bytes bytes;
    for (const std::byte value : encoder.bytes()) {
        bytes.push_back(std::to_integer<std::uint8_t>(value));
    }
    return bytes;
}

} // namespace tools
