#include "platform/os/paths.h"

#include "platform/os/delivered_files.h"
#include "platform/os/files.h"
#include "platform/os/mounts.h"
#include "platform/os/user_folders.h"

#include <QStandardPaths>
#include <array>
#include <cassert>
#include <climits>
#include <cstdlib>
#include <memory>
#include <pwd.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr QChar kSeparator = u'/';
constexpr int kMostLinks = 40; // as many as the system follows

QString g_appPath;

QString environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? fromNative(value) : QString();
}

QString absolute(const QString& folder)
{
    if (folder.startsWith(kSeparator)) {
        return withoutSeparator(folder);
    }
    const QString current = currentFolder();
    return withoutSeparator(current.isEmpty() ? folder : joinPath(current, folder));
}

// A relative value of such a variable counts as none.
QString userFolder(const char* variable, const char* belowHome)
{
    const QString named = environment(variable);
    return named.startsWith(kSeparator) ? withoutSeparator(named)
                                        : joinPath(homeFolder(), QString::fromLatin1(belowHome));
}

QString decideAppPath()
{
    const QString named = environment("VISTARA_HOME");
    if (!named.isEmpty()) {
        return absolute(named);
    }
    const QString program = programFolder();
    const bool isWritable = ::access(toNative(program).c_str(), W_OK) == 0;
    if (isWritable && holdsDeliveredFiles(program)) {
        return program;
    }
    return ownDataFolder();
}

// Where the delivered files stand; "" when they aren't found.
QString deliveredFolder()
{
    const QString program = programFolder();
    const QString installed = joinPath(folderOf(program), QStringLiteral("share/vistara"));
    for (const QString& folder : {program, installed}) {
        if (holdsDeliveredFiles(folder)) {
            return folder;
        }
    }
    return {};
}

// The path that a link tells, seen from where the link stands; nothing for what is no link.
std::optional<std::string> linkTarget(const std::string& link)
{
    std::array<char, PATH_MAX> text{};
    const ssize_t length = ::readlink(link.c_str(), text.data(), text.size());
    if (length <= 0 || static_cast<std::size_t>(length) == text.size()) {
        return std::nullopt;
    }
    const std::string target(text.data(), static_cast<std::size_t>(length));
    return target.front() == '/' ? target : folderPart(link) + target;
}

} // namespace

QString withSeparator(const QString& folder)
{
    return folder.endsWith(kSeparator) ? folder : folder + kSeparator;
}

QString joinPath(const QString& folder, const QString& name)
{
    return withSeparator(folder) + name;
}

bool isPlainName(const QString& text)
{
    return !text.isEmpty() && text != QLatin1String(".") && text != QLatin1String("..") &&
           !text.contains(kSeparator) && !text.contains(QChar(u'\0'));
}

QString withoutSeparator(QString folder)
{
    while (folder.size() > 1 && folder.endsWith(kSeparator)) {
        folder.chop(1);
    }
    return folder;
}

bool holdsPath(const QString& folder, const QString& path)
{
    return path == folder || path.startsWith(withSeparator(folder));
}

std::optional<QString> canonicalPath(const QString& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(
        ::realpath(toNative(path).c_str(), nullptr), &std::free);
    return real ? std::optional<QString>(fromNative(real.get())) : std::nullopt;
}

std::string behindLinks(std::string path)
{
    for (int links = 0; links <= kMostLinks; ++links) {
        const std::optional<std::string> next = linkTarget(path);
        if (!next) {
            return path;
        }
        path = *next;
    }
    return {};
}

QString fileNameOf(const QString& path)
{
    return path.mid(path.lastIndexOf(kSeparator) + 1);
}

std::string folderPart(const std::string& path)
{
    const std::size_t separator = path.rfind('/');
    return separator == std::string::npos ? std::string() : path.substr(0, separator + 1);
}

QString folderOf(const QString& path)
{
    const qsizetype separator = path.lastIndexOf(kSeparator);
    if (separator == 0) {
        return QString(kSeparator);
    }
    return separator < 0 ? QString() : path.left(separator);
}

void locateAppPath()
{
    g_appPath = decideAppPath();
}

void prepareAppPath()
{
    const QString delivered = deliveredFolder();
    if (!delivered.isEmpty() && delivered != g_appPath) {
        seedDeliveredFiles(delivered, g_appPath);
    }
    for (const char* const folder : {"openTemp", "Lib", "Lib/pLib"}) {
        makeFolder(appFile(QString::fromLatin1(folder)));
    }
}

void initialisePaths()
{
    locateAppPath();
    prepareAppPath();
}

QString appPath()
{
    assert(!g_appPath.isEmpty());
    return g_appPath;
}

QString appFile(const QString& relative)
{
    return joinPath(appPath(), relative);
}

QString programFolder()
{
    char path[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0) {
        return {};
    }
    return folderOf(fromNative(std::string(path, static_cast<std::size_t>(length))));
}

QString homeFolder()
{
    const QString named = environment("HOME");
    if (named.startsWith(kSeparator)) {
        return withoutSeparator(named);
    }
    const passwd* const user = ::getpwuid(::getuid());
    return user != nullptr ? withoutSeparator(fromNative(user->pw_dir)) : QString(kSeparator);
}

QString picturesFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return isFolder(folder) ? folder : homeFolder();
}

QString userDataFolder()
{
    return userFolder("XDG_DATA_HOME", ".local/share");
}

QString userConfigFolder()
{
    return userFolder("XDG_CONFIG_HOME", ".config");
}

QString ownDataFolder()
{
    return joinPath(userDataFolder(), QStringLiteral("vistara"));
}

QString drivePrefix(const QString& path)
{
    return drivePrefixAmong(path, mediaMounts(), homeFolder());
}

} // namespace platform
