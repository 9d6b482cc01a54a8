#include "formats/format.h"
#include "fuzz_reader.h"

#include <string>
#include <sys/mman.h>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const int file = ::memfd_create("input", 0);
    const bool written = ::write(file, data, size) == static_cast<ssize_t>(size);
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    const int result =
        written ? fuzz::readTwice([&](RawImage& image) { OpenRawImage(path, image); }) : -1;
    ::close(file);
    return result;
}
