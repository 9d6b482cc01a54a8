#include "files/explorer/explorer_images.h"

#include <algorithm>
#include <array>

namespace files {

namespace {

constexpr std::array kRoles{
    RoleRow{ImageRole::WorkSpace, "Desktop", "workspace"},
    RoleRow{ImageRole::MyComputer, "My Computer", "computer"},
    RoleRow{ImageRole::ControlPanel, "Control Panel", "controlpanel"},
    RoleRow{ImageRole::Network, "Network", "network"},
    RoleRow{ImageRole::NetworkFolder, "", "networkfolder"},
    RoleRow{ImageRole::Favorites, "", "favorites"},
    RoleRow{ImageRole::MyDocuments, "", "documents"},
    RoleRow{ImageRole::Home, "Home", "home"},
    RoleRow{ImageRole::Drive, "", "drive"},
    RoleRow{ImageRole::RemovableDrive, "Removable Disk", "removable"},
    RoleRow{ImageRole::FixedDrive, "Local Disk", "disk"},
    RoleRow{ImageRole::NetworkDrive, "", "networkdrive"},
    RoleRow{ImageRole::DiscDrive, "", "disc"},
    RoleRow{ImageRole::Folder, "File Folder", "folder"},
    RoleRow{ImageRole::Applet, "", "applet"},
    RoleRow{ImageRole::File, "File", "file"},
    RoleRow{ImageRole::Picture, "", "picture"},
    RoleRow{ImageRole::Film, "", "film"},
    RoleRow{ImageRole::Sound, "", "sound"},
    RoleRow{ImageRole::Text, "", "text"},
    RoleRow{ImageRole::WebPage, "", "webpage"},
    RoleRow{ImageRole::Archive, "", "archive"},
};

// In the order of the extensions.
constexpr std::array kKinds{
    FileKind{"7z", "7z Archive", ImageRole::Archive},
    FileKind{"asf", "Film", ImageRole::Film},
    FileKind{"avi", "AVI Film", ImageRole::Film},
    FileKind{"avif", "AVIF Picture", ImageRole::Picture},
    FileKind{"bmp", "Bitmap Picture", ImageRole::Picture},
    FileKind{"bz2", "Packed File", ImageRole::Archive},
    FileKind{"cur", "Pointer", ImageRole::Picture},
    FileKind{"dat", "Film Data", ImageRole::Film},
    FileKind{"emf", "Enhanced Metafile", ImageRole::Picture},
    FileKind{"flac", "FLAC Sound", ImageRole::Sound},
    FileKind{"gif", "GIF Picture", ImageRole::Picture},
    FileKind{"gz", "Packed File", ImageRole::Archive},
    FileKind{"heic", "HEIF Picture", ImageRole::Picture},
    FileKind{"htm", "Web Page", ImageRole::WebPage},
    FileKind{"html", "Web Page", ImageRole::WebPage},
    FileKind{"ico", "Icon", ImageRole::Picture},
    FileKind{"iff", "IFF Picture", ImageRole::Picture},
    FileKind{"jpe", "JPEG Picture", ImageRole::Picture},
    FileKind{"jpeg", "JPEG Picture", ImageRole::Picture},
    FileKind{"jpg", "JPEG Picture", ImageRole::Picture},
    FileKind{"jxl", "JPEG XL Picture", ImageRole::Picture},
    FileKind{"lbm", "IFF Picture", ImageRole::Picture},
    FileKind{"mid", "MIDI Sound", ImageRole::Sound},
    FileKind{"mkv", "Matroska Film", ImageRole::Film},
    FileKind{"mov", "QuickTime Film", ImageRole::Film},
    FileKind{"mp3", "MP3 Sound", ImageRole::Sound},
    FileKind{"mp4", "MPEG-4 Film", ImageRole::Film},
    FileKind{"mpeg", "MPEG Film", ImageRole::Film},
    FileKind{"mpg", "MPEG Film", ImageRole::Film},
    FileKind{"ogg", "Ogg Sound", ImageRole::Sound},
    FileKind{"pcx", "PCX Picture", ImageRole::Picture},
    FileKind{"png", "PNG Picture", ImageRole::Picture},
    FileKind{"psd", "Layered Picture", ImageRole::Picture},
    FileKind{"svg", "SVG Drawing", ImageRole::Picture},
    FileKind{"swf", "Flash Film", ImageRole::Film},
    FileKind{"tar", "Archive", ImageRole::Archive},
    FileKind{"tga", "TGA Picture", ImageRole::Picture},
    FileKind{"tif", "TIFF Picture", ImageRole::Picture},
    FileKind{"tiff", "TIFF Picture", ImageRole::Picture},
    FileKind{"txt", "Text", ImageRole::Text},
    FileKind{"vob", "DVD Film", ImageRole::Film},
    FileKind{"wav", "Wave Sound", ImageRole::Sound},
    FileKind{"webm", "WebM Film", ImageRole::Film},
    FileKind{"webp", "WebP Picture", ImageRole::Picture},
    FileKind{"wmf", "Metafile", ImageRole::Picture},
    FileKind{"wmv", "Windows Media Film", ImageRole::Film},
    FileKind{"xz", "Packed File", ImageRole::Archive},
    FileKind{"zip", "ZIP Archive", ImageRole::Archive},
};

// "" for a name without a dot, and for one that has its only dot at its front.
QString extensionOf(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.mid(dot + 1) : QString();
}

const FileKind* kindOf(const QString& extension)
{
    const QString lower = extension.toLower();
    const auto precedes = [](const FileKind& kind, const QString& wanted) {
        return QLatin1String(kind.extension) < wanted;
    };
    const auto found = std::lower_bound(kKinds.begin(), kKinds.end(), lower, precedes);
    const bool isKnown = found != kKinds.end() && QLatin1String(found->extension) == lower;
    return isKnown ? &*found : nullptr;
}

} // namespace

std::span<const RoleRow> roleRows()
{
    return kRoles;
}

QString roleName(ImageRole role)
{
    return QString::fromLatin1(kRoles[static_cast<std::size_t>(role)].name);
}

QString rolePicture(ImageRole role)
{
    return QString::fromLatin1(kRoles[static_cast<std::size_t>(role)].picture);
}

std::span<const FileKind> fileKinds()
{
    return kKinds;
}

ImageRole fileImage(const QString& name)
{
    const FileKind* const kind = kindOf(extensionOf(name));
    return kind != nullptr ? kind->image : ImageRole::File;
}

QString fileType(const QString& name)
{
    const QString extension = extensionOf(name);
    if (const FileKind* const kind = kindOf(extension)) {
        return QString::fromLatin1(kind->type);
    }
    const QString plain = roleName(ImageRole::File);
    return extension.isEmpty() ? plain : extension.toUpper() + u' ' + plain;
}

QString folderType()
{
    return roleName(ImageRole::Folder);
}

} // namespace files
