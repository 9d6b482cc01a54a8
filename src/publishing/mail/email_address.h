#pragma once

#include <QString>

namespace mail {

// The text without the blanks (U+0020 alone) at its ends.
[[nodiscard]] QString withoutBlanks(const QString& text);

} // namespace mail

// Whether the text looks like an address: something, an "@", and three characters or more behind
// the first dot that follows it. Two letters behind the only dot are too few.
[[nodiscard]] bool IsValidEmail(const QString& address);
