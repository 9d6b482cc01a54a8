#pragma once

class ThumbNailList;

// What screen readers get to know of the pane's own parts: the thumbnails as a list with an entry
// for each tile, named as its file and pressed like it, and the two bars as what they are.
namespace thumbs {

void installAccessibleParts();

// Tells a reader that a tile has been selected.
void announceTile(ThumbNailList& list, int row);

} // namespace thumbs
