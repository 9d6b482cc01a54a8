#include "files.h"

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

Bytes encoded(const QImage& image, const char* format, int quality)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    if (QByteArray(format) == "JPG") {
        writer.setQuality(quality);
        writer.setOptimizedWrite(true);
    }
    if (!writer.write(image)) {
        return {};
    }
    const QByteArray& data = buffer.data();
    return Bytes(data.begin(), data.end());
}

} // namespace tools
