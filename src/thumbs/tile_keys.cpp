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
    const int last = shelf.tiles.back();
    const bool isOnLastLine = selected / shelf.columns >= last / shelf.columns;
    return isOnLastLine ? selected : std::min(selected + shelf.columns, last);
}

// Left and Right go on from line to line, as the eye does. May lie before the first tile, behind
// the last one and where there is none.
int wantedPlace(int key, int selected, const TileShelf& shelf)
{
    const int first = shelf.tiles.front();
    const int last = shelf.tiles.back();
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
        return std::max(selected - shelf.tilesPerPage, first);
    case Qt::Key_PageDown:
        return std::min(selected + shelf.tilesPerPage, last);
    case Qt::Key_Home:
        return first;
    default:
        return last;
    }
}

bool leadsBack(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Up || key == Qt::Key_PageUp;
}

// The first tile from a place on, in one direction.
std::optional<int> tileFrom(int place, bool back, std::span<const int> tiles)
{
    if (back) {
        const auto behind = std::upper_bound(tiles.begin(), tiles.end(), place);
        return behind == tiles.begin() ? std::nullopt : std::optional(*(behind - 1));
    }
    const auto found = std::lower_bound(tiles.begin(), tiles.end(), place);
    return found == tiles.end() ? std::nullopt : std::optional(*found);
}

} // namespace

std::optional<int> tileAfterKey(int key, int selected, const TileShelf& shelf)
{
    const bool isMove = std::find(kMoves.begin(), kMoves.end(), key) != kMoves.end();
    if (!isMove || shelf.tiles.empty() || shelf.columns <= 0 || shelf.tilesPerPage <= 0) {
        return std::nullopt;
    }
    if (selected < 0 || selected > shelf.tiles.back()) {
        return key == Qt::Key_End ? shelf.tiles.back() : shelf.tiles.front();
    }
    const auto tile = tileFrom(wantedPlace(key, selected, shelf), leadsBack(key), shelf.tiles);
    return tile == selected ? std::nullopt : tile;
}

} // namespace thumbs
