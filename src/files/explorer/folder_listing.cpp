#include "files/explorer/folder_listing.h"

#include "files/explorer/attribute_word.h"
#include "platform/os/entry_facts.h"
#include "platform/os/folder_reader.h"
#include "platform/os/name_order.h"
#include "platform/os/paths.h"
#include "platform/os/wildcards.h"

#include <optional>
#include <string>
#include <vector>

namespace files {

namespace {

using platform::EntryFacts;
using platform::EntryKind;

// The names of one group, each with a NUL at its end.
class Names {
public:
    void add(const char* name)
    {
        m_starts.push_back(m_bytes.size());
        m_bytes.append(name);
        m_bytes += '\0';
        m_sorter.add(name);
    }

    [[nodiscard]] std::size_t count() const { return m_starts.size(); }
    [[nodiscard]] std::size_t bytes() const { return m_bytes.size(); }
    [[nodiscard]] const char* at(std::uint32_t place) const { return &m_bytes[m_starts[place]]; }
    [[nodiscard]] std::vector<std::uint32_t> order() const { return m_sorter.order(); }

private:
    std::string m_bytes;
    std::vector<std::size_t> m_starts;
    platform::NameSorter m_sorter;
};

std::uint16_t attributesOf(const EntryFacts& facts, const char* name)
{
    const int bits = (facts.isFolder ? kFolderBit : kFileBit) |
                     (facts.isReadOnly ? kReadOnlyBit : 0) | (name[0] == '.' ? kHiddenBit : 0);
    return static_cast<std::uint16_t>(bits);
}

std::optional<RowFacts> folderRow(const EntryFacts& facts, const char* name)
{
    const std::uint16_t attributes = attributesOf(facts, name);
    if (!facts.isFolder || !isListedFolder(attributes)) {
        return std::nullopt;
    }
    return RowFacts{RowTag::Folder, ImageRole::Folder, attributes, facts.modified, facts.created};
}

// Both dates of a file are that of its making.
std::optional<RowFacts> fileRow(const EntryFacts& facts, const char* name)
{
    if (!facts.isFile) {
        return std::nullopt;
    }
    return RowFacts{RowTag::File, ImageRole::File, attributesOf(facts, name), facts.created,
                    facts.created};
}

class FolderListing {
public:
    FolderListing(const FolderRequest& request, const ProgressHandler& progress)
        : m_request(request)
        , m_progress(progress)
        , m_entries(request.path)
        , m_rows(request.path)
    {
    }

    ListRows run()
    {
        if (!m_entries.isOpen()) {
            return std::move(m_rows);
        }
        gather();
        m_rows.reserve(m_folders.count() + m_files.count(), m_folders.bytes() + m_files.bytes());
        add(m_folders, &folderRow);
        add(m_files, &fileRow);
        return m_entries.isStillServed() ? std::move(m_rows) : ListRows(m_request.path);
    }

private:
    // By the kinds that the listing itself tells; only links cost a look at the disk here.
    void gather()
    {
        const platform::Wildcards filter = platform::Wildcards::single(m_request.filter);
        while (m_entries.next()) {
            const EntryKind kind = m_entries.kind();
            if (kind == EntryKind::Folder && m_request.showFolders && !m_entries.isHidden()) {
                m_folders.add(m_entries.name());
            } else if (kind == EntryKind::File &&
                       filter.matches(platform::fromNative(m_entries.name()))) {
                m_files.add(m_entries.name());
            }
        }
    }

    template<typename MakeRow> void add(const Names& names, MakeRow makeRow)
    {
        std::int64_t position = 0;
        for (const std::uint32_t place : names.order()) {
            m_progress(PercentOf(++position, static_cast<std::int64_t>(names.count())));
            const char* const name = names.at(place);
            const auto facts = m_inspector.look(m_entries.descriptor(), name);
            if (const auto row = facts ? makeRow(*facts, name) : std::nullopt) {
                m_rows.addEntry(name, *row);
            }
        }
    }

    const FolderRequest& m_request;
    const ProgressHandler& m_progress;
    platform::FolderReader m_entries;
    platform::EntryInspector m_inspector;
    Names m_folders;
    Names m_files;
    ListRows m_rows;
};

} // namespace

ListRows listFolder(const FolderRequest& request, const ProgressHandler& progress)
{
    return FolderListing(request, progress).run();
}

} // namespace files
