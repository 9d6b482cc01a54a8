#include "platform/os/desktop_menu.h"

#include "platform/os/desktop_entry.h"
#include "platform/os/detached_process.h"
#include "platform/os/files.h"
#include "platform/os/folder_reader.h"
#include "platform/os/paths.h"

#include <QSet>
#include <QStandardPaths>
#include <algorithm>
#include <cstdlib>

namespace platform {

namespace {

constexpr qint64 kMostEntryBytes = qint64(1) << 20;
constexpr int kDeepestFolder = 4;

QByteArray environmentText(const char* name)
{
    return QByteArray(std::getenv(name));
}

QByteArray messageLocale()
{
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QByteArray value = environmentText(name);
        if (!value.isEmpty()) {
            return value;
        }
    }
    return {};
}

QStringList menuFolders()
{
    QString shared = fromNative(environmentText("XDG_DATA_DIRS").toStdString());
    if (shared.isEmpty()) {
        shared = QStringLiteral("/usr/local/share:/usr/share");
    }
    QStringList folders = {joinPath(userDataFolder(), QStringLiteral("applications"))};
    for (const QString& folder : shared.split(u':', Qt::SkipEmptyParts)) {
        folders.append(joinPath(folder, QStringLiteral("applications")));
    }
    return folders;
}

bool meets(const QStringList& desktops, const QStringList& running)
{
    return std::any_of(desktops.begin(), desktops.end(),
                       [&](const QString& desktop) { return running.contains(desktop); });
}

bool isShown(const DesktopEntry& entry)
{
    const QStringList running =
        QString::fromUtf8(environmentText("XDG_CURRENT_DESKTOP")).split(u':');
    const QStringList only = entry.list("OnlyShowIn");
    const QString needed = entry.value("TryExec");
    return entry.value("Type") == u"Application" && !entry.isTrue("Hidden") &&
           !entry.isTrue("NoDisplay") && (only.isEmpty() || meets(only, running)) &&
           !meets(entry.list("NotShowIn"), running) &&
           (needed.isEmpty() || !QStandardPaths::findExecutable(needed).isEmpty());
}

DesktopEntry readEntry(const QString& file)
{
    return DesktopEntry(readFile(file, kMostEntryBytes).value_or(QByteArray()));
}

// Walks the menu files of a category. A file's name below the menu folder, "-" for each separator,
// tells programs apart.
class MenuWalk {
public:
    explicit MenuWalk(const QString& category)
        : m_category(category)
    {
    }

    void enter(const QString& folder, const QString& prefix = {}, int depth = 0)
    {
        FolderReader entries(folder);
        while (entries.isOpen() && entries.next()) {
            const QString name = fromNative(entries.name());
            const QString path = joinPath(folder, name);
            const EntryKind kind = entries.kind();
            if (kind == EntryKind::File && name.endsWith(u".desktop")) {
                take(path, prefix + name);
            } else if (kind == EntryKind::Folder && !entries.isLink() && depth < kDeepestFolder) {
                enter(path, prefix + name + u'-', depth + 1);
            }
        }
    }

    std::vector<MenuItem> items;

private:
    void take(const QString& path, const QString& id)
    {
        if (m_seen.contains(id)) {
            return;
        }
        m_seen.insert(id);
        const DesktopEntry entry = readEntry(path);
        if (entry.list("Categories").contains(m_category) && isShown(entry)) {
            items.push_back({path, entry.localValue("Name", m_locale)});
        }
    }

    QString m_category;
    QByteArray m_locale = messageLocale();
    QSet<QString> m_seen;
};

} // namespace

std::vector<MenuItem> menuItemsOf(const QString& category)
{
    MenuWalk walk(category);
    for (const QString& folder : menuFolders()) {
        walk.enter(folder);
    }
    return std::move(walk.items);
}

bool startMenuItem(const QString& file)
{
    const QStringList line = launchLine(readEntry(file), file);
    if (line.isEmpty()) {
        return false;
    }
    const QString program = QStandardPaths::findExecutable(line.first());
    return !program.isEmpty() && startDetached(program, line.mid(1));
}

} // namespace platform
