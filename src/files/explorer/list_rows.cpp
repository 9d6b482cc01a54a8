#include "files/explorer/list_rows.h"

#include "files/explorer/attribute_word.h"
#include "platform/os/name_order.h"
#include "platform/os/paths.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <array>
#include <functional>
#include <numeric>

namespace files {

namespace {

constexpr std::array<const char*, kListColumns> kCaptions{"Name", "Size", "Type", "Modified",
                                                          "Created in"};

QString dateText(std::int64_t seconds)
{
    if (seconds == kNoTime) {
        return {};
    }
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat);
}

QString asText(std::string_view bytes)
{
    return platform::fromNative(std::string(bytes));
}

// Below, equal to or above zero, for the lines at two places.
using Comparison = std::function<int(std::uint32_t, std::uint32_t)>;

int compareTimes(std::int64_t left, std::int64_t right)
{
    return left < right ? -1 : int(left > right);
}

} // namespace

QString columnCaption(ListColumn column)
{
    return QString::fromLatin1(kCaptions[static_cast<std::size_t>(column)]);
}

ListRows::ListRows(const QString& folder)
    : m_folder(platform::toNative(platform::withSeparator(folder)))
{
}

void ListRows::addEntry(std::string_view name, const RowFacts& facts)
{
    m_rows.push_back({m_bytes.size(), static_cast<std::uint32_t>(name.size()), 0, facts});
    m_bytes += name;
}

bool ListRows::addPlace(const QString& key, const QString& text, const RowFacts& facts)
{
    if (indexOf(key) >= 0) {
        return false;
    }
    const std::string keyText = platform::toNative(key);
    const std::string shown = platform::toNative(text);
    m_rows.push_back({m_bytes.size(), static_cast<std::uint32_t>(keyText.size()),
                      static_cast<std::uint32_t>(shown.size()), facts});
    m_bytes += keyText + shown;
    return true;
}

void ListRows::reserve(std::size_t rows, std::size_t bytes)
{
    m_rows.reserve(rows);
    m_bytes.reserve(bytes);
}

std::string_view ListRows::keyBytes(const Row& row) const
{
    return std::string_view(m_bytes).substr(row.start, row.keyLength);
}

std::string_view ListRows::textBytes(const Row& row) const
{
    return m_folder.empty() || row.hasOwnText
               ? std::string_view(m_bytes).substr(row.start + row.keyLength, row.textLength)
               : keyBytes(row);
}

QString ListRows::key(int row) const
{
    return platform::fromNative(m_folder + std::string(keyBytes(at(row))));
}

QString ListRows::text(int row) const
{
    return asText(textBytes(at(row)));
}

QString ListRows::name(int row) const
{
    return m_folder.empty() ? text(row) : asText(keyBytes(at(row)));
}

// No size is shown, neither of a file nor of a folder or a drive: the column stands empty.
QString ListRows::columnText(int row, ListColumn column) const
{
    const RowFacts& facts = at(row).facts;
    const bool isEntry = (facts.attributes & (kFolderBit | kFileBit)) != 0;
    switch (column) {
    case ListColumn::Name:
        return text(row);
    case ListColumn::Size:
        return {};
    case ListColumn::Type:
        if (!isEntry) {
            return {};
        }
        return facts.tag == RowTag::File ? fileType(name(row)) : folderType();
    case ListColumn::Modified:
        return dateText(facts.modified);
    case ListColumn::Created:
        break;
    }
    return dateText(facts.created);
}

ImageRole ListRows::image(int row) const
{
    const ImageRole role = at(row).facts.image;
    return role == ImageRole::File ? fileImage(name(row)) : role;
}

void ListRows::setChecked(int row, bool checked)
{
    m_rows[static_cast<std::size_t>(row)].isChecked = checked;
}

void ListRows::setText(int row, const QString& text)
{
    Row& line = m_rows[static_cast<std::size_t>(row)];
    const std::string key(keyBytes(line));
    const std::string shown = platform::toNative(text);
    line.start = m_bytes.size();
    line.textLength = static_cast<std::uint32_t>(shown.size());
    line.hasOwnText = true;
    m_bytes += key + shown;
}

int ListRows::indexOf(const QString& key) const
{
    const std::string wanted = platform::toNative(key);
    if (!wanted.starts_with(m_folder)) {
        return -1;
    }
    const std::string_view rest = std::string_view(wanted).substr(m_folder.size());
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&](const Row& row) { return keyBytes(row) == rest; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int ListRows::countOf(RowTag tag) const
{
    return static_cast<int>(std::count_if(m_rows.begin(), m_rows.end(),
                                          [tag](const Row& row) { return row.facts.tag == tag; }));
}

int ListRows::checkedCount() const
{
    return static_cast<int>(
        std::count_if(m_rows.begin(), m_rows.end(), [](const Row& row) { return row.isChecked; }));
}

std::vector<std::uint32_t> ListRows::sortedPlaces(ListColumn column, SortOrder order) const
{
    platform::NameSorter texts;
    if (column == ListColumn::Name || column == ListColumn::Type) {
        for (int row = 0; row < count(); ++row) {
            texts.add(column == ListColumn::Name
                          ? std::string(textBytes(at(row)))
                          : platform::toNative(columnText(row, ListColumn::Type)));
        }
    }
    const std::array<Comparison, kListColumns> comparisons{
        [&](auto left, auto right) { return texts.compare(left, right); },
        [](auto, auto) { return 0; },
        [&](auto left, auto right) { return texts.compare(left, right); },
        [&](auto left, auto right) {
            return compareTimes(m_rows[left].facts.modified, m_rows[right].facts.modified);
        },
        [&](auto left, auto right) {
            return compareTimes(m_rows[left].facts.created, m_rows[right].facts.created);
        },
    };
    const Comparison& compare = comparisons[static_cast<std::size_t>(column)];
    std::vector<std::uint32_t> places(m_rows.size());
    std::iota(places.begin(), places.end(), 0U);
    std::stable_sort(places.begin(), places.end(), [&](std::uint32_t left, std::uint32_t right) {
        const bool isLeftFile = m_rows[left].facts.tag == RowTag::File;
        const bool isRightFile = m_rows[right].facts.tag == RowTag::File;
        if (isLeftFile != isRightFile) {
            return isRightFile;
        }
        const int outcome = compare(left, right);
        return order == SortOrder::Ascending ? outcome < 0 : outcome > 0;
    });
    return places;
}

std::vector<std::uint32_t> ListRows::sort(ListColumn column, SortOrder order)
{
    std::vector<std::uint32_t> places = sortedPlaces(column, order);
    std::vector<Row> sorted;
    sorted.reserve(places.size());
    for (const std::uint32_t place : places) {
        sorted.push_back(m_rows[place]);
    }
    m_rows = std::move(sorted);
    return places;
}

std::size_t ListRows::overhead() const
{
    return m_rows.capacity() * sizeof(Row) + (m_bytes.capacity() - m_bytes.size());
}

} // namespace files
