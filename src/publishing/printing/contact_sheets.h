#pragma once

class ThumbNailList;

namespace printing {

// Lays the pictures of a list's folder out on sheets, in the list's pages; while it is printing
// (state IsPrinting) they go to the program's printer too, each at its own pixels unless those are
// more than paper can show. The sheets have the proportions of the printer's paper; without a
// printer they keep those of the pages before. They are laid out anew for each zoom, and a file
// that the picture loader doesn't take has the picture before it in its place. Lets events run once
// per file and where a file is asked for; a run that begins meanwhile ends this one. What was
// printed until the end of the run comes out. True where all of it was printed.
bool makeContactSheets(ThumbNailList& list);

// The same with sheets that are laid out for the paper alone; the zoom is how they are shown. Files
// in the program's own formats are read, and one that can't be loaded leaves its place empty.
bool makeSheetsForPaper(ThumbNailList& list);

} // namespace printing
