#pragma once

#include <QString>
#include <cstdint>
#include <span>

// The names and pictures of what the explorer shows, by the part that it plays there.
namespace files {

enum class ImageRole : std::uint8_t {
    WorkSpace,
    MyComputer,
    ControlPanel,
    Network,
    NetworkFolder, // a folder of another machine
    Favorites,
    MyDocuments,
    Home,
    Drive, // of no type that is known
    RemovableDrive,
    FixedDrive,
    NetworkDrive,
    DiscDrive,
    Folder,
    Applet,
    File, // of no kind that is known
    Picture,
    Film,
    Sound,
    Text,
    WebPage,
    Archive,
};

// "name" stands where neither the file system nor the desktop has a name for it; "picture" is the
// delivered drawing.
struct RoleRow {
    ImageRole role;
    const char* name;
    const char* picture;
};

// A row for each role, in their order.
[[nodiscard]] std::span<const RoleRow> roleRows();
[[nodiscard]] QString roleName(ImageRole role);
[[nodiscard]] QString rolePicture(ImageRole role);

// What an extension says of a file.
struct FileKind {
    const char* extension; // in lower case
    const char* type;      // as the list's column shows it
    ImageRole image;
};

[[nodiscard]] std::span<const FileKind> fileKinds();

// By the extension of a name, without regard to case. A file of no known kind has the extension in
// its type: "XYZ File", "File".
[[nodiscard]] ImageRole fileImage(const QString& name);
[[nodiscard]] QString fileType(const QString& name);

// The type of every folder.
[[nodiscard]] QString folderType();

} // namespace files
