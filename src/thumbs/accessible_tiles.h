#pragma once

class ThumbNailList;

// What screen readers get to know of the thumbnails: a list with an entry for each tile, named as
// its file and pressed like it.
namespace thumbs {

void installAccessibleTiles();

// Tells a reader that a tile has been selected.
void announceTile(ThumbNailList& list, int row);

} // namespace thumbs
