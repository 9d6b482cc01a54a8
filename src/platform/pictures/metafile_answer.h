#pragma once

#include <array>
#include <cstdint>

// What passes between the program and its helper that draws metafiles. The helper gets the file as
// its standard input and answers on its standard output: the magic bytes, width and height as
// 32-bit numbers with the lowest byte first, then the rows from the top, each pixel as red, green,
// blue and opacity, not premultiplied. An answer that is longer or shorter is none. A file that it
// won't draw ends it with the exit code below, which neither a crash nor a missing library gives.
namespace platform {

constexpr std::array<char, 8> kMetafileAnswerMagic = {'V', 'M', 'e', 't', 'a', 'f', '1', '\n'};
constexpr std::int64_t kMetafileAnswerHeadBytes = 16;
constexpr int kMetafileRefused = 3;

// Metafiles scale, so one that claims to be larger is drawn at this size.
constexpr int kLongestMetafileSide = 4096; // pixels
constexpr std::int64_t kLongestMetafileAnswer =
    kMetafileAnswerHeadBytes + std::int64_t(4) * kLongestMetafileSide * kLongestMetafileSide;

constexpr std::int64_t kLargestMetafile = std::int64_t(64) << 20; // bytes of the file

} // namespace platform
