#include "files/explorer/folder_listing.h"

#include "files/explorer/attribute_word.h"
#include "platform/os/paths.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"

#include <QStringList>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

using files::FolderRequest;
using files::listFolder;
using files::ListRows;
using files::RowTag;
using support::OrdinaryUser;
using support::TempTree;

namespace {

void ignoreProgress(std::int16_t /*percent*/) {}

ListRows list(const FolderRequest& request)
{
    return listFolder(request, &ignoreProgress);
}

QStringList texts(const ListRows& rows)
{
    QStringList result;
    for (int row = 0; row < rows.count(); ++row) {
        result.append(rows.text(row));
    }
    return result;
}

} // namespace

TEST(FolderListing, ShowsFoldersThenFilesEachInOrder)
{
    const TempTree tree(
        {{"p/z/", ""}, {"p/B/", ""}, {"p/b.txt", ""}, {"p/A.txt", ""}, {"p/c", ""}});
    const ListRows rows = list({tree.path("p")});
    EXPECT_EQ(texts(rows), QStringList({"B", "z", "A.txt", "b.txt", "c"}));
    EXPECT_EQ(rows.key(0), tree.path("p/B"));
    EXPECT_EQ(rows.tag(1), RowTag::Folder);
    EXPECT_EQ(rows.tag(2), RowTag::File);
}

TEST(FolderListing, LeavesHiddenFoldersOutAndShowsHiddenFiles)
{
    const TempTree tree({{"p/.folder/", ""}, {"p/.file", ""}, {"p/plain/", ""}});
    const ListRows rows = list({tree.path("p")});
    EXPECT_EQ(texts(rows), QStringList({"plain", ".file"}));
    EXPECT_EQ(rows.attributes(0), 16);
    EXPECT_EQ(rows.attributes(1), 34);
    EXPECT_FALSE(files::isGhosted(rows.attributes(1)));
}

TEST(FolderListing, ShowsWhatIsReadOnly)
{
    const TempTree tree({{"p/folder/", ""}, {"p/file", ""}});
    ::chmod(tree.native("p/folder").c_str(), 0555);
    ::chmod(tree.native("p/file").c_str(), 0444);
    ::chmod(tree.native("").c_str(), 0755);
    const OrdinaryUser user;
    const ListRows rows = list({tree.path("p")});
    EXPECT_EQ(texts(rows), QStringList({"folder", "file"}));
    EXPECT_EQ(rows.attributes(0), 17);
    EXPECT_EQ(rows.attributes(1), 33);
}

TEST(FolderListing, TakesOnePatternForFilesAlone)
{
    const TempTree tree({{"p/sub/", ""}, {"p/a.JPG", ""}, {"p/b.bmp", ""}, {"p/none", ""}});
    const auto shown = [&](const char* filter) { return texts(list({tree.path("p"), filter})); };
    EXPECT_EQ(shown("*.jpg"), QStringList({"sub", "a.JPG"}));
    EXPECT_EQ(shown("*.jpg;*.bmp"), QStringList({"sub"}));
    EXPECT_EQ(shown("*.*"), QStringList({"sub", "a.JPG", "b.bmp", "none"}));
    EXPECT_EQ(shown(""), QStringList({"sub"}));
}

TEST(FolderListing, ShowsFilesAloneOnDemand)
{
    const TempTree tree({{"p/sub/", ""}, {"p/b", ""}, {"p/a", ""}});
    EXPECT_EQ(texts(list({tree.path("p"), "*.*", false})), QStringList({"a", "b"}));
}

TEST(FolderListing, ShowsBothDatesOfAFileAsThatOfItsMaking)
{
    const TempTree tree({{"p/sub/", ""}, {"p/file", ""}});
    const timespec times[] = {{1000, 0}, {2000, 0}};
    for (const char* const name : {"p/sub", "p/file"}) {
        ASSERT_EQ(::utimensat(AT_FDCWD, tree.native(name).c_str(), times, 0), 0);
    }
    const ListRows rows = list({tree.path("p")});
    using files::ListColumn;
    EXPECT_NE(rows.columnText(0, ListColumn::Modified), rows.columnText(0, ListColumn::Created));
    EXPECT_EQ(rows.columnText(1, ListColumn::Modified), rows.columnText(1, ListColumn::Created));
    EXPECT_EQ(rows.columnText(1, ListColumn::Created), rows.columnText(0, ListColumn::Created));
}

TEST(FolderListing, TellsThePercentOfEachGroup)
{
    const TempTree tree({{"p/a/", ""}, {"p/b/", ""}, {"p/1", ""}, {"p/2", ""}, {"p/3", ""}});
    std::vector<int> told;
    static_cast<void>(listFolder({tree.path("p")}, [&](int percent) { told.push_back(percent); }));
    EXPECT_EQ(told, std::vector<int>({50, 100, 33, 67, 100}));
}

TEST(FolderListing, KeepsUnrulyNames)
{
    const std::string longName(255, 'n');
    const TempTree tree({{"p/ blank ", ""},
                         {"p/line\nbreak", ""},
                         {"p/tab\there", ""},
                         {"p/bad\xFF", ""},
                         {"p/..a", ""},
                         {"p/" + longName, ""}});
    const ListRows rows = list({tree.path("p")});
    const std::vector<std::string> expected = {" blank ",     "..a",    "bad\xFF",
                                               "line\nbreak", longName, "tab\there"};
    ASSERT_EQ(rows.count(), 6);
    for (int row = 0; row < rows.count(); ++row) {
        const std::string& name = expected[static_cast<std::size_t>(row)];
        EXPECT_EQ(platform::toNative(rows.text(row)), name);
        EXPECT_EQ(platform::toNative(rows.key(row)), tree.native("p/" + name));
    }
}

TEST(FolderListing, ShowsWhatLinksLeadTo)
{
    const TempTree tree({{"p/sub/", ""}, {"p/file", ""}});
    std::filesystem::create_symlink("sub", tree.native("p/toFolder"));
    std::filesystem::create_symlink("file", tree.native("p/toFile"));
    std::filesystem::create_symlink("none", tree.native("p/dangling"));
    std::filesystem::create_symlink("loop", tree.native("p/loop"));
    std::filesystem::create_symlink(".", tree.native("p/here"));
    ASSERT_EQ(::mkfifo(tree.native("p/pipe").c_str(), 0600), 0);
    EXPECT_EQ(texts(list({tree.path("p")})),
              QStringList({"here", "sub", "toFolder", "file", "toFile"}));
}

TEST(FolderListing, IsEmptyWhereNothingCanBeRead)
{
    const TempTree tree({{"p/closed/inside", ""}, {"p/blind/inside", ""}, {"p/file", ""}});
    ::chmod(tree.native("").c_str(), 0755);
    ::chmod(tree.native("p/closed").c_str(), 0311);
    ::chmod(tree.native("p/blind").c_str(), 0644);
    const OrdinaryUser user;
    for (const char* const name : {"p/closed", "p/blind", "p/file", "p/none"}) {
        EXPECT_EQ(list({tree.path(name)}).count(), 0) << name;
    }
}

TEST(FolderListing, LeavesOutWhatGoesMeanwhile)
{
    const TempTree tree({{"p/1", ""}, {"p/2", ""}, {"p/3", ""}, {"p/4", ""}});
    const ListRows some = listFolder({tree.path("p")}, [&](int percent) {
        if (percent == 50) {
            tree.remove("p/2");
            tree.remove("p/4");
        }
    });
    EXPECT_EQ(texts(some), QStringList({"1", "3"}));
    const ListRows none = listFolder({tree.path("p")}, [&](int) { tree.remove("p"); });
    EXPECT_EQ(none.count(), 0);
}

TEST(FolderListing, LeavesOutWhatBecomesAFolderMeanwhile)
{
    const TempTree tree({{"p/a", ""}, {"p/b", ""}});
    const ListRows rows = listFolder({tree.path("p")}, [&](int percent) {
        if (percent == 50) {
            tree.remove("p/b");
            tree.add({"p/b/", ""});
        }
    });
    EXPECT_EQ(texts(rows), QStringList({"a"}));
}

TEST(FolderListing, TakesLittleMemoryForALine)
{
    const TempTree tree({{"p/", ""}}, TempTree::Medium::Memory);
    constexpr int kFiles = 2000;
    for (int i = 0; i < kFiles; ++i) {
        tree.add({"p/picture " + std::to_string(i) + ".jpg", ""});
    }
    EXPECT_LE(list({tree.path("p")}).overhead(), std::size_t(kFiles) * 64);
}
