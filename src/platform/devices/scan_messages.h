#pragma once

#include "platform/devices/scan_facts.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

// What passes between the program and its helper that talks to scanners: requests on the helper's
// standard input, answers on its standard output. A message is its kind, the length of what follows
// as 32 bits, and that many bytes. Numbers have their lowest byte first, texts their length before
// them. Nothing is believed: what is too long, cut short or no such value reads as nothing.
//
// The pixels don't come this way. They lie in the memory that the helper gets as kScanMemory.
namespace platform {

inline constexpr std::size_t kMessageHeadBytes = 5;
inline constexpr std::size_t kLongestMessage = std::size_t(1) << 20; // bytes behind the head
inline constexpr int kScanMemory = 3;                                // descriptor

enum class ScanMessage : std::uint8_t {
    // Requests
    List,   // answered by Scanners
    Open,   // a text, the scanner's name; answered by Options
    Set,    // role, word, number; answered by Options, whether it was set or not
    Scan,   // kind; answered by any number of Rows, then Picture
    Cancel, // of the scan under way, whose answer is a failure then
    // Answers
    Scanners,
    Options,
    Rows,    // so far, and in all; 0 where the scanner doesn't know
    Picture, // its shape; it lies in the shared memory
    Failed,  // why; the answer to List, Open or Scan
};

struct MessageHead {
    ScanMessage kind;
    std::size_t length; // of what follows
};
// From kMessageHeadBytes bytes.
[[nodiscard]] std::optional<MessageHead> readHead(std::span<const std::byte> bytes);

using MessageBytes = std::vector<std::byte>;

// Whole messages, head included.
[[nodiscard]] MessageBytes plainMessage(ScanMessage kind);
[[nodiscard]] MessageBytes openMessage(const std::string& scanner);
[[nodiscard]] MessageBytes setMessage(ScanRole role, const ScanValue& value);
[[nodiscard]] MessageBytes scanMessage(ScanKind kind);
[[nodiscard]] MessageBytes scannersMessage(const std::vector<ScannerFacts>& scanners);
[[nodiscard]] MessageBytes optionsMessage(const std::vector<ScanOption>& options);
[[nodiscard]] MessageBytes rowsMessage(std::uint32_t soFar, std::uint32_t inAll);
[[nodiscard]] MessageBytes pictureMessage(const ScanShape& shape);
[[nodiscard]] MessageBytes failedMessage(ScanFailure why);

struct SetRequest {
    ScanRole role;
    ScanValue value;
};
struct RowCount {
    std::uint32_t soFar;
    std::uint32_t inAll;
};

// What follows a head. A picture that is empty or beyond kLargestScan reads as nothing.
[[nodiscard]] std::optional<std::string> readOpen(std::span<const std::byte> bytes);
[[nodiscard]] std::optional<SetRequest> readSet(std::span<const std::byte> bytes);
[[nodiscard]] std::optional<ScanKind> readScan(std::span<const std::byte> bytes);
[[nodiscard]] std::optional<std::vector<ScannerFacts>>
readScanners(std::span<const std::byte> bytes);
[[nodiscard]] std::optional<std::vector<ScanOption>> readOptions(std::span<const std::byte> bytes);
[[nodiscard]] std::optional<RowCount> readRows(std::span<const std::byte> bytes);
[[nodiscard]] std::optional<ScanShape> readPicture(std::span<const std::byte> bytes);
[[nodiscard]] std::optional<ScanFailure> readFailed(std::span<const std::byte> bytes);

} // namespace platform
