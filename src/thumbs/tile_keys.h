#pragma once

#include "thumbs/tile_table.h"

#include <optional>
#include <span>

// Where keys take the selection among the tiles, as plain numbers.
namespace thumbs {

struct TileShelf {
    std::span<const int> tiles; // places that have a tile, ascending; a key leads to these alone
    int columns = 1;
    int tilesPerPage = 1;
};

// The tile that a key (of Qt::Key) leads to from the one selected, kNoTile for none: the first key
// of a folder takes its first tile. A place without a tile is passed over in the key's direction.
// Nothing for other keys and where there is no further tile that way.
[[nodiscard]] std::optional<int> tileAfterKey(int key, int selected, const TileShelf& shelf);

} // namespace thumbs
