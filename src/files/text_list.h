#pragma once

#include "core/settings.h"

#include <QString>
#include <QStringList>
#include <vector>

// Lists that persist as one line of text: the favourites and editors as "name#path;" records, the
// recent paths as "path;" records. A count in config.ini, not the file, says how many there are.
// Texts are UTF-8; bytes of a path that are no UTF-8 are kept.
namespace files {

struct TextList {
    QString fileName; // under the program's data folder
    core::NumberKey countKey;
};

inline const TextList kFavourites{QStringLiteral("testfile.txt"), core::kFavouriteCount};
inline const TextList kRecentPaths{QStringLiteral("xialafile.txt"), core::kRecentPathCount};
inline const TextList kEditors{QStringLiteral("SwitchName.txt"), core::kEditorCount};

struct NamedPath {
    QString name;
    QString path;
    friend bool operator==(const NamedPath&, const NamedPath&) = default;
};

// As many entries as the count says; those beyond the records are empty, and a thousand at the
// most. Of more than a hundred thousand the newest. A last record without its mark has a name and
// no path. Nothing when the file can't be opened.
std::vector<NamedPath> readNamed(const TextList& list);
QStringList readPaths(const TextList& list);

// Appends a record and adds one to the count. Names and paths are stored as they stand.
void addNamed(const TextList& list, const NamedPath& entry);
void addPath(const TextList& list, const QString& path);

// Takes one from the count and removes the record wherever it stands in the file.
void deleteOne(const TextList& list, const NamedPath& entry);

// Replaces a text by another everywhere in the line.
void replaceText(const TextList& list, const QString& oldText, const QString& newText);

// Gives one entry another name; only its own record changes.
void renameEntry(const TextList& list, const NamedPath& entry, const QString& newName);

// Makes the file anew with this text.
void rewrite(const TextList& list, const QString& text);

} // namespace files
