#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <optional>

class QFile;

// Whole files by path. Nothing here blocks on a pipe or a device: where a regular file is wanted,
// anything else counts as a failure.
namespace platform {

// Opens a regular file for reading, or gives null.
std::unique_ptr<QFile> openForReading(const QString& path);

// All bytes of a regular file of at most maxBytes; nothing when it can't be read or is larger.
std::optional<QByteArray> readFile(const QString& path, qint64 maxBytes = qint64(1) << 31);

// What a whole write waits for. A process that dies never leaves half a file either way; a disk
// that tells late that it is full and a machine that loses power may, unless the bytes were
// flushed. So a file of the user's goes to the disk. Working files needn't.
enum class Flush { No, ToDisk };

// Writes a temporary file in the target's folder and renames it, so that the target holds either
// all of the bytes or what it held before. Keeps owner, permissions, access list and attributes of
// a target that exists, as far as nobody can read more by it. A link stays a link: the file that it
// leads to is written, or made when it is missing. A target that may be written in a folder that
// may not is written in place.
[[nodiscard]] bool writeFileWhole(const QString& path, const QByteArray& bytes,
                                  Flush flush = Flush::No);

// Appends to a file and makes it when it is missing. On disk when it is true; the file is as long
// as before when it isn't.
[[nodiscard]] bool appendToFile(const QString& path, const QByteArray& bytes);

// Copies the bytes, permissions and time of a regular file, replacing the target. False without
// touching either when both names lead to the same file.
[[nodiscard]] bool copyFile(const QString& from, const QString& to, Flush flush);

// Gives a file another name on the same file system. False when the new name is taken: no file is
// ever lost under it. Killed on a file system without such a rename, it may leave both names.
[[nodiscard]] bool renameFile(const QString& from, const QString& to);

// Removes a file or a link, never a folder.
bool removeFile(const QString& path);

// Removes all regular files and links of a folder (not of its subfolders); errors are passed over.
void removeFilesIn(const QString& folder);

bool makeFolder(const QString& path); // with its parents; true if it exists afterwards
bool isFolder(const QString& path);
bool isRegularFile(const QString& path);
std::optional<qint64> fileSize(const QString& path);

} // namespace platform
