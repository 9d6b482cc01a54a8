#pragma once

#include <QString>

namespace platform {

// Moves a file or folder to the trash of its file system, as the desktops of the free world keep
// it: the home trash, or a folder at the top of another file system. Never copies; false where a
// rename isn't possible, and then nothing has changed.
[[nodiscard]] bool trashFile(const QString& path);

// The same into a given trash folder, made when it is missing. The record of the file names it
// relative to topFolder, or by its whole path where that is "".
[[nodiscard]] bool trashInto(const QString& path, const QString& trash, const QString& topFolder);

// The top folder of the file system that holds an absolute path; links in its folders are resolved.
QString topFolderOf(const QString& path);

} // namespace platform
