#pragma once

#include <QString>

class ThumbNailList;

// Makes an album of web pages of the folder that a list shows, with what the setup window and the
// list's properties say, and opens it. An empty root is the program's folder; texts that are empty
// keep those of the album before. Lets events run once per file; the list may be gone when it
// returns, and its tiles can't be pressed until its next run.
void MakeHtmlGallery(ThumbNailList& list, const QString& root = {}, const QString& sideText = {},
                     const QString& subTitle = {});

namespace albums {

// The same of the pane's folder, onto the drive of its pictures; the pane's tiles are made anew
// afterwards. Nothing without a folder, or while the list makes an album already, whatever it shows by
// then.
void createAlbum();

} // namespace albums
