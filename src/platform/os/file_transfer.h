#pragma once

#include <QString>
#include <functional>

// Copying and moving one file that may be large.
namespace platform {

// Told after each step, of about a megabyte, how many bytes are done and how many there are. May
// let events run: nothing but open files is kept across it. False ends the transfer, which then has
// failed. May be empty.
using TransferProgress = std::function<bool(qint64 done, qint64 total)>;

// Copies a regular file with its times, permissions, access list and attributes, as far as this
// user may set them and nobody else can read more by it. A target there is replaced at once when
// the copy is whole; when the copy fails, or the program dies, it is what it was. Fails where the
// target is the same file under whatever name, is no regular file or can't be written, where its
// folder can't be written, and where the source gets shorter meanwhile.
[[nodiscard]] bool copyTo(const QString& from, const QString& to,
                          const TransferProgress& progress = {});

// The same for a file that has no other place then: by a rename on one file system, else by a copy,
// after which the source goes when all of the copy is on the disk and the source hasn't changed. Of
// a link the file goes to the target, and the link away. False with a copy in place means that the
// source couldn't be removed.
[[nodiscard]] bool moveTo(const QString& from, const QString& to,
                          const TransferProgress& progress = {});

} // namespace platform
