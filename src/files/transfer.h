#pragma once

#include <QString>

namespace core {
class Viewer;
}

// Copying and moving the current file, which the menus and the pane's buttons offer.
namespace files {

enum class TransferKind { Copy, Move };

// What the window of a transfer shows.
struct Transfer {
    QString title;
    QString picture; // path of the picture along its top
    QString preview; // path of the picture that stands for the file
};

// Movefile implements it beside QWidget.
class TransferWindow {
public:
    virtual ~TransferWindow() = default;
    // Called each time before it shows.
    virtual void setTransfer(const Transfer& transfer) = 0;
};

// Opens Movefile modally for a file. One in an own format is previewed through the working file,
// which gets the viewer's picture first.
void openTransferWindow(const core::Viewer& viewer, const QString& path, const QString& title,
                        TransferKind kind);

} // namespace files
