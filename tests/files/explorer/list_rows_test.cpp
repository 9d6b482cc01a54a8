#include "files/explorer/list_rows.h"

#include "files/explorer/attribute_word.h"
#include "platform/os/paths.h"

#include <QDateTime>
#include <QLocale>
#include <gtest/gtest.h>

using files::ImageRole;
using files::ListColumn;
using files::ListRows;
using files::RowFacts;
using files::RowTag;
using files::SortOrder;

namespace {

RowFacts file(std::int64_t created = 0)
{
    return {RowTag::File, ImageRole::File, files::kFileBit, created, created};
}

RowFacts folder(std::int64_t modified = 0, std::int64_t created = 0)
{
    return {RowTag::Folder, ImageRole::Folder, files::kFolderBit, modified, created};
}

QStringList texts(const ListRows& rows)
{
    QStringList result;
    for (int row = 0; row < rows.count(); ++row) {
        result.append(rows.text(row));
    }
    return result;
}

QStringList sortedBy(ListRows rows, ListColumn column, SortOrder order)
{
    rows.sort(column, order);
    return texts(rows);
}

ListRows sample()
{
    ListRows rows("/p");
    rows.addEntry("Zoo", folder(30, 1));
    rows.addEntry("art", folder(10, 2));
    rows.addEntry("b.jpg", file(300));
    rows.addEntry("C.avi", file(100));
    rows.addEntry("a.zzz", file(200));
    return rows;
}

} // namespace

TEST(ListRows, MakeKeysFromFolderAndName)
{
    for (const char* const path : {"/p", "/p/"}) {
        ListRows rows(path);
        rows.addEntry("a.jpg", file());
        EXPECT_EQ(rows.key(0), "/p/a.jpg");
        EXPECT_EQ(rows.text(0), "a.jpg");
        EXPECT_EQ(rows.indexOf("/p/a.jpg"), 0);
        EXPECT_EQ(rows.indexOf("a.jpg"), -1);
        EXPECT_EQ(rows.indexOf("/p/a.jp"), -1);
    }
}

TEST(ListRows, KeepNamesThatAreNoText)
{
    const std::vector<std::string> names = {" leading", "line\nbreak", "bad\xFF", "..dots",
                                            std::string(255, 'x')};
    ListRows rows("/p");
    for (const std::string& name : names) {
        rows.addEntry(name, file());
    }
    for (int row = 0; row < rows.count(); ++row) {
        const std::string& name = names[static_cast<std::size_t>(row)];
        EXPECT_EQ(platform::toNative(rows.text(row)), name);
        EXPECT_EQ(rows.indexOf(rows.key(row)), row);
    }
}

TEST(ListRows, RefuseAPlaceWhoseKeyIsTaken)
{
    ListRows rows;
    EXPECT_TRUE(rows.addPlace("/a", "First", folder()));
    EXPECT_FALSE(rows.addPlace("/a", "Second", folder()));
    EXPECT_TRUE(rows.addPlace("", "", folder()));
    EXPECT_EQ(texts(rows), QStringList({"First", ""}));
    EXPECT_EQ(rows.key(0), "/a");
    EXPECT_EQ(rows.key(1), "");
}

TEST(ListRows, ShowTypeAndDatesButNoSize)
{
    ListRows rows("/p");
    rows.addEntry("sub", folder(86400, 172800));
    rows.addEntry("a.jpg", file(86400));
    const auto date = [](qint64 seconds) {
        return QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat);
    };
    const QStringList expected[] = {
        {"sub", "", "File Folder", date(86400), date(172800)},
        {"a.jpg", "", "JPEG Picture", date(86400), date(86400)},
    };
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < files::kListColumns; ++column) {
            EXPECT_EQ(rows.columnText(row, static_cast<ListColumn>(column)), expected[row][column]);
        }
    }
    EXPECT_EQ(rows.image(0), ImageRole::Folder);
    EXPECT_EQ(rows.image(1), ImageRole::Picture);
}

TEST(ListRows, LeaveTheColumnsOfAPlaceEmpty)
{
    ListRows rows;
    RowFacts place;
    place.tag = RowTag::Root;
    place.image = ImageRole::MyComputer;
    rows.addPlace("Root_MyComputer", "My Computer", place);
    for (const ListColumn column :
         {ListColumn::Size, ListColumn::Type, ListColumn::Modified, ListColumn::Created}) {
        EXPECT_EQ(rows.columnText(0, column), "");
    }
}

TEST(ListRows, HaveCaptionsForTheirColumns)
{
    QStringList captions;
    for (int column = 0; column < files::kListColumns; ++column) {
        captions.append(files::columnCaption(static_cast<ListColumn>(column)));
    }
    EXPECT_EQ(captions, QStringList({"Name", "Size", "Type", "Modified", "Created in"}));
}

TEST(ListRows, SortByEachColumnBothWaysWithFoldersFirst)
{
    using Texts = QStringList;
    const auto up = SortOrder::Ascending;
    const auto down = SortOrder::Descending;
    EXPECT_EQ(sortedBy(sample(), ListColumn::Name, up),
              Texts({"art", "Zoo", "a.zzz", "b.jpg", "C.avi"}));
    EXPECT_EQ(sortedBy(sample(), ListColumn::Name, down),
              Texts({"Zoo", "art", "C.avi", "b.jpg", "a.zzz"}));
    EXPECT_EQ(sortedBy(sample(), ListColumn::Size, up), texts(sample()));
    EXPECT_EQ(sortedBy(sample(), ListColumn::Size, down), texts(sample()));
    EXPECT_EQ(sortedBy(sample(), ListColumn::Type, up),
              Texts({"Zoo", "art", "C.avi", "b.jpg", "a.zzz"}));
    EXPECT_EQ(sortedBy(sample(), ListColumn::Type, down),
              Texts({"Zoo", "art", "a.zzz", "b.jpg", "C.avi"}));
    EXPECT_EQ(sortedBy(sample(), ListColumn::Modified, up),
              Texts({"art", "Zoo", "C.avi", "a.zzz", "b.jpg"}));
    EXPECT_EQ(sortedBy(sample(), ListColumn::Modified, down),
              Texts({"Zoo", "art", "b.jpg", "a.zzz", "C.avi"}));
    EXPECT_EQ(sortedBy(sample(), ListColumn::Created, up),
              Texts({"Zoo", "art", "C.avi", "a.zzz", "b.jpg"}));
    EXPECT_EQ(sortedBy(sample(), ListColumn::Created, down),
              Texts({"art", "Zoo", "b.jpg", "a.zzz", "C.avi"}));
}

TEST(ListRows, TellWhereEachLineStoodBefore)
{
    ListRows rows = sample();
    rows.setChecked(2, true);
    EXPECT_EQ(rows.sort(ListColumn::Name, SortOrder::Ascending),
              std::vector<std::uint32_t>({1, 0, 4, 2, 3}));
    EXPECT_TRUE(rows.isChecked(3));
    EXPECT_EQ(rows.checkedCount(), 1);
}

TEST(ListRows, CountByTag)
{
    EXPECT_EQ(sample().countOf(RowTag::Folder), 2);
    EXPECT_EQ(sample().countOf(RowTag::File), 3);
    EXPECT_EQ(sample().countOf(RowTag::Root), 0);
}

TEST(AttributeWord, IsComparedAsAWhole)
{
    for (int word = 0; word < 128; ++word) {
        const auto attributes = static_cast<std::uint16_t>(word);
        EXPECT_EQ(files::isListedFolder(attributes), word == 16 || word == 17 || word == 20);
        EXPECT_EQ(files::isGhosted(attributes), word == 2);
    }
}
