#pragma once

#include "editing/filter_numbers.h"

namespace core {
class PictureDisplay;
}

namespace editing {

// An entry of the Filters menu or the Color submenu: keeps the picture for Undo, closes the pan
// view, tells the separate editor the filter's number, and starts it. Entries without a number do
// nothing.
void runFilter(core::PictureDisplay& display, FilterMenu menu, int index);

// Saves the viewer's picture as the working file that the separate editor reads, and starts that
// program. Nothing waits for it, and nothing comes back by itself. Without the file nothing starts.
void startSeparateEditor(core::PictureDisplay& display);

// The same with the program at a place (from 1) of the user's list of editors, which gets the path
// of the working file. A place without a program only saves.
void startListedEditor(core::PictureDisplay& display, int place);

} // namespace editing
