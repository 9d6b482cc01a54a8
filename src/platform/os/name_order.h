#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

// Order of texts by code point: below, equal to or above zero. Lists pass names whose case is
// folded.
int compareByCodePoint(QStringView left, QStringView right);

// A name of a list, with the text that it is sorted by.
struct FoldedName {
    explicit FoldedName(QString text)
        : folded(text.toCaseFolded())
        , name(std::move(text))
    {
    }

    QString folded;
    QString name;
};

// The names by code point without regard to case; those that differ in case only by that.
std::vector<QString> inOrder(std::vector<FoldedName> names);

// The same order for very many names, as the file system has their bytes: what they are sorted by
// stands in one piece of memory.
class NameSorter {
public:
    void add(std::string_view name);
    [[nodiscard]] std::uint32_t count() const { return static_cast<std::uint32_t>(m_keys.size()); }

    // The places of the names, zero-based in the order in which they were added, in their order.
    [[nodiscard]] std::vector<std::uint32_t> order() const;

    // Below, equal to or above zero, for two such places.
    [[nodiscard]] int compare(std::uint32_t left, std::uint32_t right) const;

private:
    struct Key {
        std::uint64_t start = 0;
        std::uint32_t length = 0;
    };
    [[nodiscard]] std::string_view key(std::uint32_t place) const;

    std::string m_bytes;
    std::vector<Key> m_keys;
};

} // namespace platform
