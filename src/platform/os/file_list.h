#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace platform {

// The files of one folder that match a pattern: regular files without a leading dot, ordered by
// code point without regard to case. Reading is synchronous; nothing watches the folder.
class FileList {
public:
    // Wildcards separated by ";", matched without regard to case. Reads the folder anew.
    void setPattern(const QString& pattern);
    [[nodiscard]] const QString& pattern() const { return m_pattern; }

    // The folder, without a separator at its end ("/" itself excepted). Setting a folder that can't
    // be read fails and changes nothing. A different folder empties the selection, reads the files
    // and then calls the path-change handler; the same folder does nothing.
    bool setPath(const QString& folder);
    [[nodiscard]] const QString& path() const { return m_path; }

    // Takes folder and files over from a list with the same pattern, as setPath() and refresh()
    // would read them, without reading. A list with another pattern is asked for its folder alone.
    bool setPathFrom(const FileList& other);

    // Called after the path has changed, with the new list in place.
    void onPathChange(std::function<void()> handler) { m_pathChanged = std::move(handler); }

    // Reads the folder again; the selection becomes none.
    void refresh();

    [[nodiscard]] int count() const { return static_cast<int>(m_names.size()); }

    // Zero-based; an index outside the list gives "".
    [[nodiscard]] QString name(int index) const;

    // The selected entry, -1 for none. Setting an index outside 0..count-1 fails and changes
    // nothing.
    [[nodiscard]] int listIndex() const { return m_index; }
    bool setListIndex(int index);

    // Selects the entry of a name; what was selected stays when there is none.
    void select(const QString& name);

    // The selected entry's name, "" for none.
    [[nodiscard]] QString fileName() const { return name(m_index); }

private:
    void take(const QString& path, std::vector<QString> names);

    QString m_pattern = QStringLiteral("*");
    QString m_path;
    std::vector<QString> m_names;
    int m_index = -1;
    std::function<void()> m_pathChanged;
};

// How many entries a list with this pattern would show for a folder; 0 for one that can't be read.
int countFiles(const QString& folder, const QString& pattern);

} // namespace platform
