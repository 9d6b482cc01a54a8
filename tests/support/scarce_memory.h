#pragma once

namespace support {

// While one of these lives, the system refuses memory in large pieces: the first ones are given,
// and from then on none, or only one of them is not.
class ScarceMemory {
public:
    enum class Refusal { One, FromThenOn };

    // Half a million bytes and more are a large piece.
    ScarceMemory(int piecesGiven, Refusal refusal);
    ~ScarceMemory();
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;

    // Whether a piece was asked for that wasn't given.
    [[nodiscard]] static bool hasRefused();
};

} // namespace support
