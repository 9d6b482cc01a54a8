#pragma once

#include "byte_sink.h"

namespace tools {

class Poster;

// The poster as an old metafile with the head that states its size, or as an enhanced one.
[[nodiscard]] Bytes wmfFile(const Poster& poster);
[[nodiscard]] Bytes emfFile(const Poster& poster);

} // namespace tools
