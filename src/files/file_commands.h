#pragma once

#include <QString>

class QImage;

namespace core {
class MainWindow;
}

// Commands on the current file that both the menus and the pane's buttons offer.
namespace files {

// Asks with the path in the question and, on yes, moves the file or folder to the trash. Where that
// fails it says so and the file stays. No text means nothing to delete. The question shows the
// miniature of a picture, null for what is none, and of a folder its icon and how many files it
// holds. Return answers it with No.
void deleteWithQuestion(const QString& path, const QImage& miniature);

enum class Transfer { Copy, Move };

// Opens the window Movefile modally with a title; it finds title, picture and the file to preview
// in its dynamic properties captionText, pictureFile and previewFile. A file in an own format is
// previewed through the working file, which gets the viewer's picture first.
void openTransferWindow(core::MainWindow& window, const QString& title, Transfer kind);

} // namespace files
