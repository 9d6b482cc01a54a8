#pragma once

#include <QString>
#include <functional>
#include <memory>

class QWidget;

namespace files {

// The tree of folders that the program lives in: open() runs the event loop and comes back only
// after close(). Branches are read when they are opened for the first time. Hidden folders are left
// out. The roots are the home folder, "/" and the mounts under /media, /run/media/USER and /mnt.
class FolderTree {
public:
    using SelectionHandler = std::function<void(const QString& folder)>;
    using ShownTest = std::function<bool(const QString& folder)>;

    FolderTree();
    ~FolderTree();
    FolderTree(const FolderTree&) = delete;
    FolderTree& operator=(const FolderTree&) = delete;

    // Fills the host with the tree, selects the start folder (the home folder where that is
    // missing) and runs the event loop until close(). The handler is called once for each
    // selection, the one made here included, in the order in which they were made. It may let
    // events run: a folder chosen then is highlighted at once and told while the handler is still
    // at work for the one before. Choosing the selected folder selects it anew where the test says
    // that another one is shown; without a test it always is. Destroying the host closes the tree.
    void open(QWidget& host, const QString& start, SelectionHandler selected,
              ShownTest isShown = {});

    // Takes the tree out of its host and ends open()'s loop. Does nothing when it isn't open.
    void close();
    [[nodiscard]] bool isOpen() const;

    // Selects a folder from code, opening the branches on its way; the handler is called as for a
    // click, before this comes back. A folder that doesn't exist leaves the selection.
    void select(const QString& folder);
    [[nodiscard]] QString selected() const;

    // Place inside the host, in pixels.
    void setGeometry(int x, int y, int width, int height);

    // The tree widget itself, null while closed; for focus and tests.
    [[nodiscard]] QWidget* widget() const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

// The one tree of the process.
FolderTree& folderTree();

} // namespace files
