#include "thumbs/tile_keys.h"

#include <Qt>
#include <algorithm>
#include <array>

namespace thumbs {

namespace {

constexpr std::array kMoves{Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,   Qt::Key_Down,
                            Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};

// A last line that is shorter than the others takes the way down, too.
int below(int selected, const TileShelf& shelf)
{
    const int last = shelf.tiles - 1;
    const bool isOnLastLine = selected / shelf.columns >= last / shelf.columns;
    return isOnLastLine ? selected : std::min(selected + shelf.columns, last);
}

// Left and Right go on from line to line, as the eye does. May lie before the first tile and behind
// the last one.
int wantedTile(int key, int selected, const TileShelf& shelf)
{
    const int last = shelf.tiles - 1;
    switch (key) {
    case Qt::Key_Left:
        return selected - 1;
    case Qt::Key_Right:
        return selected + 1;
    case Qt::Key_Up:
        return selected - shelf.columns;
    case Qt::Key_Down:
        return below(selected, shelf);
    case Qt::Key_PageUp:
        return std::max(selected - shelf.tilesPerPage, 0);
    case Qt::Key_PageDown:
        return std::min(selected + shelf.tilesPerPage, last);
    case Qt::Key_Home:
        return 0;
    default:
        return last;
    }
}

} // namespace

std::optional<int> tileAfterKey(int key, int selected, const TileShelf& shelf)
{
    const bool isMove = std::find(kMoves.begin(), kMoves.end(), key) != kMoves.end();
    if (!isMove || shelf.tiles <= 0 || shelf.columns <= 0 || shelf.tilesPerPage <= 0) {
        return std::nullopt;
    }
    const int last = shelf.tiles - 1;
    if (selected < 0 || selected > last) {
        return key == Qt::Key_End ? last : 0;
    }
    const int wanted = wantedTile(key, selected, shelf);
    const bool leads = wanted >= 0 && wanted <= last && wanted != selected;
    return leads ? std::optional(wanted) : std::nullopt;
}

} // namespace thumbs
