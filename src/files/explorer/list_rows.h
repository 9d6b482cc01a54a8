#pragma once

#include "files/explorer/explorer_images.h"

#include <QString>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace files {

// What a line of the list stands for, and so what a double click on it means.
enum class RowTag : std::uint8_t { Folder = 0, File = 1, Root = 2 };

enum class ListColumn { Name, Size, Type, Modified, Created };
inline constexpr int kListColumns = 5;

[[nodiscard]] QString columnCaption(ListColumn column);

enum class SortOrder { Ascending, Descending };

inline constexpr std::int64_t kNoTime = std::numeric_limits<std::int64_t>::min();

// What a line is made with beside its name. The two times are those that its columns show, in
// seconds since 1970.
struct RowFacts {
    RowTag tag = RowTag::Folder;
    ImageRole image = ImageRole::Folder;
    std::uint16_t attributes = 0;
    std::int64_t modified = kNoTime;
    std::int64_t created = kNoTime;
};

// The lines of the list. Names stand as the file system's bytes in one piece of memory, and texts
// are made when they are asked for. Lines and columns are zero-based.
class ListRows {
public:
    ListRows() = default;

    // Lines for what a folder holds; their keys are its path and their names.
    explicit ListRows(const QString& folder);

    // An entry of the folder, by the bytes of its name.
    void addEntry(std::string_view name, const RowFacts& facts);

    // A line with a key and a text of its own, where there is no folder. Nothing is added, and
    // false given, when there is a line with that key.
    bool addPlace(const QString& key, const QString& text, const RowFacts& facts);

    // Room for lines whose names have so many bytes together.
    void reserve(std::size_t rows, std::size_t bytes);

    [[nodiscard]] int count() const { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] QString key(int row) const;
    [[nodiscard]] QString text(int row) const;
    [[nodiscard]] QString columnText(int row, ListColumn column) const;
    [[nodiscard]] RowTag tag(int row) const { return at(row).facts.tag; }
    [[nodiscard]] ImageRole image(int row) const;
    [[nodiscard]] std::uint16_t attributes(int row) const { return at(row).facts.attributes; }

    [[nodiscard]] bool isChecked(int row) const { return at(row).isChecked; }
    void setChecked(int row, bool checked);

    // Shows a line under another text. Its key, type and picture stay.
    void setText(int row, const QString& text);

    // The line with a key, -1 for none.
    [[nodiscard]] int indexOf(const QString& key) const;
    [[nodiscard]] int countOf(RowTag tag) const;
    [[nodiscard]] int checkedCount() const;

    // Orders the lines by a column, those of files always behind those of folders. Lines that are
    // equal there stay as they stood. Gives the former place of each line.
    std::vector<std::uint32_t> sort(ListColumn column, SortOrder order);

    // Bytes taken above those of the keys and texts.
    [[nodiscard]] std::size_t overhead() const;

private:
    struct Row {
        std::uint64_t start = 0;     // of the name; or of the key, behind which the text stands
        std::uint32_t keyLength = 0; // bytes
        std::uint32_t textLength = 0;
        RowFacts facts;
        bool isChecked = false;
        bool hasOwnText = false; // one stands behind the key though it is an entry
    };

    [[nodiscard]] const Row& at(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    [[nodiscard]] std::string_view keyBytes(const Row& row) const;
    [[nodiscard]] std::string_view textBytes(const Row& row) const;
    [[nodiscard]] QString name(int row) const; // of the entry
    [[nodiscard]] std::vector<std::uint32_t> sortedPlaces(ListColumn column, SortOrder order) const;

    std::string m_folder; // with its separator; "" where keys stand whole
    std::string m_bytes;
    std::vector<Row> m_rows;
};

} // namespace files
