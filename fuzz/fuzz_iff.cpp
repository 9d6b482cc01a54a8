#include "formats/iff_reader.h"
#include "fuzz_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return fuzz::reader(formats::readIff, data, size);
}
