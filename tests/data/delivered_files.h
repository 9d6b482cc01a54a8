#pragma once

#include <QByteArray>
#include <QImage>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace delivered {

inline std::filesystem::path picture(const std::string& name)
{
    return std::filesystem::path(PROGRAM_FOLDER) / "Images" / name;
}

inline std::filesystem::path sample(const std::string& name)
{
    return std::filesystem::path(PROGRAM_FOLDER) / "Samples" / name;
}

inline std::filesystem::path frame(const std::string& name)
{
    return std::filesystem::path(PROGRAM_FOLDER) / "Frame" / name;
}

// Empty when the file is missing.
inline std::vector<std::byte> bytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<std::byte> bytes;
    for (std::istreambuf_iterator<char> at(file), end; at != end; ++at) {
        bytes.push_back(static_cast<std::byte>(*at));
    }
    return bytes;
}

// A null image when the toolkit can't read the file in that format.
inline QImage imageOf(const std::filesystem::path& path, const char* format)
{
    const std::vector<std::byte> bytes = bytesOf(path);
    const QByteArray data(reinterpret_cast<const char*>(bytes.data()),
                          static_cast<qsizetype>(bytes.size()));
    return QImage::fromData(data, format);
}

} // namespace delivered
