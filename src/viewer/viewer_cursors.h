#pragma once

#include <QCursor>
#include <array>
#include <optional>

namespace viewer {

enum class CursorShape { Grab, Release, Precise };

// The three pointers over the picture, each read from its file when it is first shown. A file that
// is missing leaves the desktop's pointer of the same meaning.
class ViewerCursors {
public:
    [[nodiscard]] const QCursor& at(CursorShape shape, double deviceRatio);

private:
    std::array<std::optional<QCursor>, 3> m_loaded;
    double m_deviceRatio = 1.0;
};

} // namespace viewer
