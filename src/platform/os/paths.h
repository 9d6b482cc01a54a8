#pragma once

#include <QString>
#include <optional>
#include <string>

// Native paths. A path is a QString; bytes of a file name that are no UTF-8 stand in it as lone
// surrogates U+DC80 to U+DCFF, one for each byte, so that every path survives the way through
// fields, lists and settings and back to the file system.
namespace platform {

// Between the bytes of the file system and the text of the program. toNative(fromNative(b)) == b.
QString fromNative(const std::string& bytes);
std::string toNative(const QString& path);

// The folder with a separator at its end, added only when it is missing. "" gives the separator.
QString withSeparator(const QString& folder);
QString joinPath(const QString& folder, const QString& name);

// Whether a text can name a file in a folder: neither "" nor "." nor "..", and no path.
bool isPlainName(const QString& text);

// The folder without separators at its end; "/" stays.
QString withoutSeparator(QString folder);

// Whether a path is the folder or lies below it, by their texts alone.
bool holdsPath(const QString& folder, const QString& path);

// The path with every link on it resolved; nothing where there is nothing.
std::optional<QString> canonicalPath(const QString& path);

// The file that a path of native bytes leads to through links at its end, whether it is there
// already or not. "" for links that lead in a circle.
std::string behindLinks(std::string path);

// The text behind the last separator, and the text before it ("/" for a name in the root, "" for a
// bare name).
QString fileNameOf(const QString& path);
std::string folderPart(const std::string& path); // of native bytes, with its separator; or ""
QString folderOf(const QString& path);

// Decides where the program's data lives: the environment variable VISTARA_HOME, else the
// executable's folder if it is writable and holds the delivered files, else
// ~/.local/share/vistara. Nothing on the disk changes. Called once, before anything else here; a
// second call decides anew (tests).
void locateAppPath();

// Seeds that folder from the delivered files, once and where they stand elsewhere, and makes the
// folders openTemp, Lib and Lib/pLib there when they are missing.
void prepareAppPath();

// Both steps.
void initialisePaths();

// The folder so decided, without a separator at its end.
QString appPath();

// A delivered or working file under appPath(), named relative to it: appFile("Images/gif.ico").
QString appFile(const QString& relative);

// The folder of the running executable; the program's own helper programs stand there.
QString programFolder();

QString homeFolder();
QString picturesFolder(); // the home folder where there is none

// The user's folders for programs' data and settings ($XDG_DATA_HOME, $XDG_CONFIG_HOME).
QString userDataFolder();
QString userConfigFolder();
QString ownDataFolder(); // this program's own in the first one

// The part of a path that plays the role of a drive: the mount point under /media, /run/media/USER
// or /mnt that holds the path, else the home folder if that holds it, else "".
QString drivePrefix(const QString& path);

} // namespace platform
