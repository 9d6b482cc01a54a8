#include "run_length.h"

#include <algorithm>

namespace tools {

namespace {

std::size_t runAt(std::span<const std::uint8_t> row, std::size_t from, std::size_t most)
{
    std::size_t length = 1;
    while (length < most && from + length < row.size() && row[from + length] == row[from]) {
        ++length;
    }
    return length;
}

} // namespace

Bytes packedBits(std::span<const std::uint8_t> row)
{
    ByteSink sink;
    std::size_t at = 0;
    while (at < row.size()) {
        const std::size_t run = runAt(row, at, 128);
        if (run > 2) {
            sink.byte(static_cast<unsigned>(257 - run));
            sink.byte(row[at]);
            at += run;
            continue;
        }
        std::size_t end = at;
        while (end < row.size() && end - at < 128 && runAt(row, end, 3) < 3) {
            ++end;
        }
        sink.byte(static_cast<unsigned>(end - at - 1));
        sink.append(row.subspan(at, end - at));
        at = end;
    }
    return sink.bytes();
}

Bytes packedPcx(std::span<const std::uint8_t> row)
{
    constexpr unsigned kCount = 0xC0;
    ByteSink sink;
    std::size_t at = 0;
    while (at < row.size()) {
        const std::size_t run = runAt(row, at, 63);
        if (run > 1 || row[at] >= kCount) {
            sink.byte(kCount | static_cast<unsigned>(run));
        }
        sink.byte(row[at]);
        at += run;
    }
    return sink.bytes();
}

} // namespace tools
