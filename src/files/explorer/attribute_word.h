#pragma once

#include <cstdint>

// A file's attributes as one number of bits. Rules compare it as a whole.
namespace files {

inline constexpr std::uint16_t kReadOnlyBit = 1;
inline constexpr std::uint16_t kHiddenBit = 2;
inline constexpr std::uint16_t kSystemBit = 4;
inline constexpr std::uint16_t kFolderBit = 16;
inline constexpr std::uint16_t kFileBit = 32;

// A list shows plain, read-only and system folders; any further bit excludes a folder.
constexpr bool isListedFolder(std::uint16_t attributes)
{
    return attributes == kFolderBit || attributes == (kFolderBit | kReadOnlyBit) ||
           attributes == (kFolderBit | kSystemBit);
}

// Hidden and nothing else, so that a hidden file whose file bit is set isn't.
constexpr bool isGhosted(std::uint16_t attributes)
{
    return attributes == kHiddenBit;
}

} // namespace files
