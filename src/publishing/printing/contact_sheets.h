#pragma once

class ThumbNailList;

namespace printing {

// Lays the pictures of a list's folder out on sheets, in the list's pages; while it is printing
// (state IsPrinting) they go to the program's printer too, each at its own pixels unless those are
// more than paper can show. The sheets have the proportions of the printer's paper; without a
// printer they keep those of the pages before. Lets events run once per file and where a file is
// asked for; a run that begins meanwhile ends this one. What was printed until the end of the run
// comes out. False where that isn't all of it.
bool makeContactSheets(ThumbNailList& list);

} // namespace printing
