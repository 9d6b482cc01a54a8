#pragma once

#include <QString>

namespace core {
class MainWindow;
}

// Commands on the current file that both the menus and the pane's buttons offer.
namespace files {

// Asks with the path in the question and, on yes, moves the file or folder to the trash. Where that
// fails it says so and the file stays. No text means nothing to delete.
void deleteWithQuestion(const QString& path);

enum class Transfer { Copy, Move };

// Opens the window Movefile modally with a title; it finds title, picture and the file to preview
// in its dynamic properties captionText, pictureFile and previewFile. A file in an own format is
// previewed through the working file, which gets the viewer's picture first.
void openTransferWindow(core::MainWindow& window, const QString& title, Transfer kind);

} // namespace files
