#pragma once

#include <QStringView>

namespace mail {

// Whether an editor can lay a text out in a reasonable time. A paragraph costs it the square of its
// length and tables in tables more than that, so a document can be made that takes it hours. What
// people write is far below these bounds; pictures don't count.
[[nodiscard]] bool isShowableHtml(QStringView html);
[[nodiscard]] bool isShowableText(QStringView text);

} // namespace mail
