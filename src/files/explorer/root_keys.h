#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace files {

// Whether a key counts as that of a place above folders. A folder with such a name does too.
[[nodiscard]] bool isRootKey(const QString& key);

// The numbers of the roots that a key names, each by a test of its own and without regard to case;
// a key may name several or none.
[[nodiscard]] std::vector<std::int16_t> rootTypesOf(const QString& key);

// The number that a double click on a place tells.
[[nodiscard]] std::int16_t clickedRootType(const QString& key);

} // namespace files
