#pragma once

#include "byte_sink.h"

#include <filesystem>
#include <optional>

class QImage;

namespace tools {

// The whole file, or nothing when it can't be read.
[[nodiscard]] std::optional<Bytes> readFile(const std::filesystem::path& path);

// Writes the whole file and makes its folder; says on the error stream what failed.
[[nodiscard]] bool writeFile(const std::filesystem::path& path, const Bytes& bytes);

// An image in one of the toolkit's formats, such as "PNG", as the bytes of a file.
[[nodiscard]] Bytes encoded(const QImage& image, const char* format);

// The same as a JPEG file by the program's own writer; the quality runs from 1 to 100.
[[nodiscard]] Bytes jpegFile(const QImage& image, int quality);

} // namespace tools
