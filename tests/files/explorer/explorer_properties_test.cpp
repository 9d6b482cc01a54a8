#include "files/explorer/explorer_properties.h"

#include "platform/os/user_folders.h"

#include <gtest/gtest.h>

using core::PropertyBag;
using files::ExplorerProperties;
using files::ExplorerPropertyRow;
using files::explorerPropertyRows;
using files::readExplorerProperties;

namespace {

struct Expected {
    const char* name;
    QVariant fallback;
};

std::vector<Expected> expectedRows()
{
    return {
        {"Style", 0},
        {"View", 0},
        {"Path", platform::currentFolder()},
        {"Filter", "*.*"},
        {"ShowFolders", true},
        {"BorderStyle", 1},
        {"Arrange", 0},
        {"CheckBoxes", false},
        {"Enabled", true},
        {"Font", {}},
        {"FullRowSelect", false},
        {"GridLines", false},
        {"HideColumnHeaders", false},
        {"HideSelection", true},
        {"HotTracking", false},
        {"LabelEdit", 0},
        {"LabelWrap", false},
        {"MultiSelect", false},
        {"MouseIcon", {}},
        {"MousePointer", 0},
        {"OleDragMode", 0},
        {"OleDropMode", 0},
        {"SingleSel", false},
        {"Sorted", false},
        {"SortKey", 0},
        {"SortOrder", 0},
        {"HideFavorites", false},
        {"HideMyDocuments", false},
        {"HideNetwork", false},
        {"HideControlPanel", false},
    };
}

QVariant valueOf(const ExplorerProperties& properties, const ExplorerPropertyRow& row)
{
    return std::visit([&](auto field) { return core::kept(properties.*field); }, row.field);
}

// A value that differs from the one given and fits the property.
QVariant otherThan(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return !value.toBool();
    case QMetaType::Int:
        return value.toInt() + 7;
    default:
        return value.toString() + "other";
    }
}

} // namespace

TEST(ExplorerProperties, HaveTheirNamesAndDefaults)
{
    const std::vector<Expected> expected = expectedRows();
    ASSERT_EQ(explorerPropertyRows().size(), expected.size());
    const ExplorerProperties fresh = files::freshExplorerProperties();
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const ExplorerPropertyRow& row = explorerPropertyRows()[i];
        EXPECT_STREQ(row.name, expected[i].name);
        EXPECT_EQ(valueOf(fresh, row), expected[i].fallback) << row.name;
        EXPECT_EQ(valueOf(readExplorerProperties({}), row), expected[i].fallback) << row.name;
    }
}

TEST(ExplorerProperties, ComeBackUnderTheirNames)
{
    for (const Expected& expected : expectedRows()) {
        const QVariant changed = otherThan(expected.fallback);
        PropertyBag bag;
        bag.write(expected.name, changed, expected.fallback);
        const ExplorerProperties read = readExplorerProperties(bag);
        for (const ExplorerPropertyRow& row : explorerPropertyRows()) {
            const bool isIt = QString(row.name) == expected.name;
            EXPECT_EQ(valueOf(read, row) == changed, isIt || valueOf({}, row) == changed)
                << row.name;
        }
        PropertyBag written;
        files::writeProperties(read, written);
        EXPECT_EQ(written.values(), bag.values()) << expected.name;
    }
}

TEST(ExplorerProperties, DontKeepHoverSelection)
{
    ExplorerProperties properties = files::freshExplorerProperties();
    properties.HoverSelection = true;
    PropertyBag bag;
    files::writeProperties(properties, bag);
    EXPECT_TRUE(bag.values().empty());
    EXPECT_FALSE(readExplorerProperties(bag).HoverSelection);
}

TEST(ExplorerProperties, ReadWhatDoesntFitAsTheDefault)
{
    PropertyBag bag;
    bag.write("Style", 40000, 0);
    bag.write("BorderStyle", "thick", 1);
    bag.write("ShowFolders", "maybe", true);
    const ExplorerProperties read = readExplorerProperties(bag);
    EXPECT_EQ(read.Style, 0);
    EXPECT_EQ(read.BorderStyle, 1);
    EXPECT_TRUE(read.ShowFolders);
}
