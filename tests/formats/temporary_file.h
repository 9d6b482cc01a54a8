#pragma once

#include "formats/file_bytes.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

// A file that is gone when the scope ends.
class TemporaryFile {
public:
    explicit TemporaryFile(const FileBytes& bytes)
        : m_path((std::filesystem::temp_directory_path() / "picture-XXXXXX").string())
    {
        const int descriptor = ::mkstemp(m_path.data());
        const auto written = ::write(descriptor, bytes.vector().data(), bytes.size());
        if (descriptor < 0 || written != static_cast<ssize_t>(bytes.size())) {
            std::abort();
        }
        ::close(descriptor);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::filesystem::remove(m_path); }

    [[nodiscard]] const std::string& path() const { return m_path; }

private:
    std::string m_path;
};
