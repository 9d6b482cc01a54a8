#pragma once

#include "platform/desktop/pointer.h"

#include <QSize>
#include <QString>
#include <optional>

namespace core {
class ProgressStrip;
}

namespace platform {
class FileList;
}

namespace thumbs {

struct GalleryState;

// A file of the folder that a run walks over.
struct FileInRun {
    int index = 0; // in the list, from 0
    int count = 0; // of the files when the run began
    QString path;  // empty at design time, where no file is read
};

// What a run keeps from the user while it works.
struct HostHold {
    bool splitter = true; // of the browser pane, whose size stays then
    // The shape that the pointer has meanwhile; nothing leaves it to the user.
    std::optional<platform::Pointer> pointer = platform::Pointer::ArrowHourGlass;
};

// What is made of the files of a folder, one after the other. The run asks for everything anew for
// each file, since other runs may work on the same list whenever one lets events run. Functions
// that aren't const may let events run; the list may be gone afterwards.
class FolderStep {
public:
    virtual ~FolderStep() = default;

    // This and the strip are asked for even when the list has gone.
    [[nodiscard]] virtual HostHold hold() const { return {}; }
    // The files to walk over, where a step keeps to those that it began with. Null: the list's, as
    // they stand when each is asked for.
    [[nodiscard]] virtual const platform::FileList* files() const { return nullptr; }
    // The strip that tells how far the run has come, null where there is none. The main window's,
    // as long as a step has none of its own.
    [[nodiscard]] virtual core::ProgressStrip* strip() const;
    // Asked after events have run; true ends the run before the next file.
    [[nodiscard]] virtual bool isCancelled(const GalleryState& state) const;

    // Makes ready and tells how many files there are. Nothing: the folder is refused, and what the
    // run holds stays held.
    virtual std::optional<int> begin() = 0;

    // False where there is no place for the file; the run ends there.
    [[nodiscard]] virtual bool takes(const FileInRun& file) const = 0;
    // False for a file that needs no picture, such as one that is done already.
    [[nodiscard]] virtual bool needsPicture(const FileInRun& file) const = 0;
    // The room of a tile's picture, in pixels of the screen: files come as tiles show them, by
    // their kind and with a badge. Nothing: the files themselves are loaded.
    [[nodiscard]] virtual std::optional<QSize> tileRoom() const = 0;
    // For files that are loaded themselves: the room of the picture, in pixels of the screen, where
    // it needn't come larger than it takes.
    [[nodiscard]] virtual std::optional<QSize> fileRoom() const { return std::nullopt; }
    // For files that are loaded themselves: those in the program's own formats, too, as they are in
    // tiles. They come whole.
    [[nodiscard]] virtual bool readsOwnFormats() const { return false; }
    [[nodiscard]] virtual std::optional<QString> barText(const FileInRun& file) const = 0;
    // Comes right before a picture is loaded. What stands in the list's scratch box then is what
    // is there in place of a file that can't be.
    virtual void makeReadyToLoad() {}
    virtual void make(const FileInRun& file) = 0;

    // Work behind the last file and after a cancel, a piece at each call. Events run before the
    // next piece. False: there is none left.
    [[nodiscard]] virtual bool workOn() { return false; }

    // After all that.
    virtual void end() = 0;
    // The index is behind the last file done.
    [[nodiscard]] virtual std::optional<QString> closingText(int index, int count) const = 0;
    // Comes last, when the host has everything back but the strip.
    virtual void finished() {}
};

} // namespace thumbs
