#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// What there is to tell about scanners and their pictures, without any library behind it. Texts are
// UTF-8 as a rule; those that go back to the scanner, names and words, go back byte for byte.
namespace platform {

struct ScannerFacts {
    std::string name; // by which it is opened
    std::string vendor;
    std::string model;
    std::string type; // such as "flatbed scanner"

    bool operator==(const ScannerFacts&) const = default;
};

// The options that people use. The sides of the area are measured from the corner of the bed.
enum class ScanRole : std::uint8_t {
    Source,
    Mode,
    Depth,
    Resolution,
    Left,
    Top,
    Right,
    Bottom,
    Brightness,
    Contrast,
};
inline constexpr int kScanRoles = int(ScanRole::Contrast) + 1;

enum class ScanUnit : std::uint8_t { None, Pixels, Bits, Millimetres, DotsPerInch, Percent };
inline constexpr int kScanUnits = int(ScanUnit::Percent) + 1;

// A word for an option with words, a number for the others.
struct ScanValue {
    std::string word;
    double number = 0;

    bool operator==(const ScanValue&) const = default;
};

// What an option may be set to: one of the words, else one of the numbers, else, where there are
// none of either, any number from least to most in steps (0: any).
struct ScanOption {
    ScanRole role = ScanRole::Source;
    ScanUnit unit = ScanUnit::None;
    std::vector<std::string> words;
    std::vector<double> numbers;
    double least = 0;
    double most = 0;
    double step = 0;
    ScanValue value; // as it stands

    bool operator==(const ScanOption&) const = default;
};

enum class ScanKind : std::uint8_t {
    Preview, // the whole bed at a low resolution; the options stay as they were
    Picture,
};

// Rows without a gap between them, from the top; a channel is one byte, three are red, green, blue.
struct ScanShape {
    std::uint32_t width = 0; // pixels
    std::uint32_t rows = 0;
    std::uint32_t channels = 1; // or 3
};

enum class ScanFailure : std::uint8_t {
    NoHelper,  // the program that talks to scanners isn't there
    NoLibrary, // neither is the system's library
    Crashed,   // the driver took that program down
    Silent,    // the scanner didn't answer in time
    Nonsense,  // an answer that nobody can read
    Cancelled,
    NotThere, // the scanner is unknown, or refused what it was asked for
    Unsupported,
    Busy,
    Jammed,
    NoDocuments,
    CoverOpen,
    Unreachable, // an error on the way to the scanner
    NoMemory,
    AccessDenied,
    WantsPassword,
    TooLarge, // the picture would take more than kLargestScan
    Empty,    // the scanner sent no row
};
inline constexpr int kScanFailures = int(ScanFailure::Empty) + 1;

// Of four bytes a pixel, which is how pictures are kept.
inline constexpr std::uint64_t kLargestScan = std::uint64_t(512) << 20;

// The memory for the pixels of a scan: three channels of one byte at most.
inline constexpr std::size_t kScanMemoryBytes = kLargestScan / 4 * 3;

// How many rows of a width are no more than that.
[[nodiscard]] constexpr std::uint64_t mostScanRows(std::uint64_t width)
{
    return width == 0 ? 0 : kLargestScan / (width * 4);
}

} // namespace platform
