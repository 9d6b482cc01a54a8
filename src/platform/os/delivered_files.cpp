#include "platform/os/delivered_files.h"

#include "platform/os/files.h"
#include "platform/os/folder_reader.h"
#include "platform/os/paths.h"

#include <cstdio>

namespace platform {

namespace {

constexpr const char* kConfigFile = "config.ini";
constexpr const char* kPictureFolder = "Images";

// Files and folders, beside the picture folder, that come with the program. The executable's folder
// may hold anything else too, which isn't ours to copy.
constexpr const char* kDelivered[] = {
    kConfigFile, "Frame", "HelpDocuments.chm", "LiveUpdate", "Samples", "flashplay.swf", "help",
};

QString inFolder(const QString& folder, const char* name)
{
    return joinPath(folder, QString::fromLatin1(name));
}

void copyMissing(const QString& source, const QString& target)
{
    if (isRegularFile(source)) {
        if (!isRegularFile(target)) {
            // A file that can't be copied is missing later, which every reader copes with.
            static_cast<void>(copyFile(source, target, Flush::No));
        }
        return;
    }
    FolderReader folder(source);
    if (!folder.isOpen() || !makeFolder(target)) {
        return;
    }
    while (folder.next()) {
        const QString name = fromNative(folder.name());
        copyMissing(joinPath(source, name), joinPath(target, name));
    }
}

} // namespace

bool holdsDeliveredFiles(const QString& folder)
{
    return isRegularFile(inFolder(folder, kConfigFile)) &&
           isFolder(inFolder(folder, kPictureFolder));
}

void seedDeliveredFiles(const QString& source, const QString& target)
{
    const QString pictures = inFolder(target, kPictureFolder);
    if (isFolder(pictures)) {
        return;
    }
    for (const char* const name : kDelivered) {
        copyMissing(inFolder(source, name), inFolder(target, name));
    }
    // The picture folder gets its name last: it says that the rest is complete.
    const QString unfinished = pictures + QStringLiteral(".part");
    copyMissing(inFolder(source, kPictureFolder), unfinished);
    std::rename(toNative(unfinished).c_str(), toNative(pictures).c_str());
}

} // namespace platform
