#pragma once

#include "formats/file_bytes.h"

#include <random>

// Files of one format with sizes, packets and mistakes that differ with each call: many are
// well-formed, the others are cut, lengthened or have some bytes changed. The same engine gives the
// same files.
using RandomFile = FileBytes (*)(std::mt19937& engine);

FileBytes randomPcx(std::mt19937& engine);
FileBytes randomTga(std::mt19937& engine);
FileBytes randomTiff(std::mt19937& engine);
FileBytes randomPsd(std::mt19937& engine);
FileBytes randomIff(std::mt19937& engine);
