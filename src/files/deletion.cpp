#include "files/deletion.h"

#include "platform/desktop/desktop.h"
#include "platform/desktop/dialogs.h"
#include "platform/os/files.h"
#include "platform/os/folder_reader.h"
#include "platform/os/paths.h"
#include "platform/pictures/delivered_icon.h"

#include <QGuiApplication>

namespace files {

namespace {

const QString kDeleteTitle = QStringLiteral("Delete");

constexpr int kIconSide = 48;       // pixels
constexpr int kMostEntries = 20000; // looked at in a folder, so that the question comes soon

QImage folderIcon()
{
    const int variant = qGuiApp->devicePixelRatio() > 1 ? 3 : 2;
    QImage icon = platform::deliveredPng(
        platform::appFile(QStringLiteral("Images/toolbar/folder@%1x.png").arg(variant)));
    icon.setDevicePixelRatio(double(icon.width()) / kIconSide);
    return icon;
}

// How many files go with a folder: those of its subfolders too, links not followed.
QString fileCountText(const QString& folder)
{
    QStringList folders{folder};
    int files = 0;
    for (int entries = 0; !folders.isEmpty();) {
        const QString path = folders.takeLast();
        platform::FolderReader reader(path);
        while (reader.next()) {
            if (++entries > kMostEntries) {
                return QStringLiteral("More than %1 files").arg(files);
            }
            if (!reader.isLink() && reader.kind() == platform::EntryKind::Folder) {
                folders.append(platform::joinPath(path, platform::fromNative(reader.name())));
            } else {
                ++files;
            }
        }
    }
    return files == 1 ? QStringLiteral("1 file") : QStringLiteral("%1 files").arg(files);
}

platform::Subject subjectOf(const QString& path, const QImage& miniature)
{
    platform::Subject subject;
    subject.preset = platform::Answer::No;
    if (platform::isFolder(path)) {
        subject.picture = folderIcon();
        subject.facts = fileCountText(path);
    } else {
        subject.picture = miniature;
    }
    return subject;
}

} // namespace

void deleteWithQuestion(const QString& path, const QImage& miniature)
{
    if (path.isEmpty() ||
        !platform::dialogs().askYesNo(QStringLiteral("Move \"%1\" to the trash?").arg(path),
                                      kDeleteTitle, subjectOf(path, miniature))) {
        return;
    }
    if (!platform::desktop().moveToTrash(path)) {
        platform::dialogs().showMessage(
            QStringLiteral("\"%1\" could not be moved to the trash.").arg(path), kDeleteTitle,
            platform::BoxIcon::Exclamation);
    }
}

} // namespace files
