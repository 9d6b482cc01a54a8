#include "platform/os/file_list.h"

#include "platform/os/wildcards.h"
#include "support/temp_tree.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

using platform::FileList;
using platform::Wildcards;
using support::TempTree;

namespace {

QStringList namesOf(const FileList& list)
{
    QStringList names;
    for (int i = 0; i < list.count(); ++i) {
        names.append(list.name(i));
    }
    return names;
}

} // namespace

TEST(Wildcards, MatchWithoutRegardToCase)
{
    const Wildcards pictures("*.jpg; *.BMP ;;t?p.*");
    for (const char* const name : {"a.jpg", "A.JPG", ".jpg", "b.bmp", "tip.x", "TOP.gif"}) {
        EXPECT_TRUE(pictures.matches(name)) << name;
    }
    for (const char* const name : {"a.jpeg", "jpg", "tp.x", "tip", "a.jpg.gif"}) {
        EXPECT_FALSE(pictures.matches(name)) << name;
    }
}

TEST(Wildcards, TakeEveryNameForStarDotStar)
{
    for (const char* const pattern : {"*", "*.*", "", ";", "*.jpg;*.*"}) {
        EXPECT_TRUE(Wildcards(pattern).matches("noextension")) << pattern;
    }
}

TEST(Wildcards, CanBeASinglePatternAsItStands)
{
    EXPECT_FALSE(Wildcards::single("*.jpg;*.bmp").matches("a.jpg"));
    EXPECT_TRUE(Wildcards::single("*.jpg;*.bmp").matches("a.jpg;b.BMP"));
    EXPECT_TRUE(Wildcards::single("*.*").matches("noextension"));
    EXPECT_FALSE(Wildcards::single("").matches("a"));
}

TEST(Wildcards, TryEveryLengthForAStar)
{
    EXPECT_TRUE(Wildcards("a*b*c").matches("abbbxbcc"));
    EXPECT_FALSE(Wildcards("a*b*c").matches("abbbxbcd"));
    EXPECT_TRUE(Wildcards("*aab").matches("aaaab"));
    EXPECT_TRUE(Wildcards("*a?").matches("xaxab"));
    EXPECT_FALSE(Wildcards("name").matches("name.bmp"));
    EXPECT_TRUE(Wildcards("a[1].bmp").matches("a[1].bmp"));
    const QString manyStars = QString("a*").repeated(30) + "b";
    EXPECT_FALSE(Wildcards(manyStars).matches(QString(2000, 'a')));
}

TEST(FileList, HoldsRegularFilesInOrder)
{
    const TempTree tree({{"pics/b.bmp", ""},
                         {"pics/A.bmp", ""},
                         {"pics/a.bmp", ""},
                         {"pics/C.JPG", ""},
                         {"pics/.hidden.bmp", ""},
                         {"pics/note.txt", ""},
                         {"pics/folder.bmp/", ""}});
    ::mkfifo(tree.native("pics/pipe.bmp").c_str(), 0600);
    FileList list;
    list.setPattern("*.bmp;*.jpg");
    EXPECT_TRUE(list.setPath(tree.path("pics")));
    EXPECT_EQ(namesOf(list), QStringList({"A.bmp", "a.bmp", "b.bmp", "C.JPG"}));
}

TEST(FileList, OrdersByCodePoint)
{
    // U+FF5E stands before U+1F600, although its UTF-16 unit is the larger one.
    const TempTree tree({{"p/\xF0\x9F\x98\x80", ""},
                         {"p/\xEF\xBD\x9E", ""},
                         {"p/\xF0\x9F\x98\x81", ""},
                         {"p/z_", ""},
                         {"p/Z", ""},
                         {"p/_", ""},
                         {"p/\xC3\xA9", ""}});
    FileList list;
    list.setPath(tree.path("p"));
    QStringList expected;
    for (const char* const name :
         {"_", "Z", "z_", "\xC3\xA9", "\xEF\xBD\x9E", "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x81"}) {
        expected.append(QString::fromUtf8(name));
    }
    EXPECT_EQ(namesOf(list), expected);
}

TEST(FileList, FollowsLinksToFiles)
{
    const TempTree tree({{"real.bmp", ""}, {"folder/", ""}, {"pics/", ""}});
    std::filesystem::create_symlink(tree.native("real.bmp"), tree.native("pics/link.bmp"));
    std::filesystem::create_symlink(tree.native("folder"), tree.native("pics/folder.bmp"));
    std::filesystem::create_symlink(tree.native("none"), tree.native("pics/dangling.bmp"));
    FileList list;
    list.setPath(tree.path("pics"));
    EXPECT_EQ(namesOf(list), QStringList({"link.bmp"}));
}

TEST(FileList, KeepsOddNames)
{
    const std::string names[] = {"bad\xFF.bmp", "new\nline.bmp", "quote\".bmp", "semi;#.bmp",
                                 std::string(255, 'z')};
    const TempTree tree;
    for (const std::string& name : names) {
        tree.add({"pics/" + name, ""});
    }
    FileList list;
    list.setPath(tree.path("pics"));
    ASSERT_EQ(list.count(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(platform::toNative(list.name(i)), names[i]);
        EXPECT_TRUE(platform::isRegularFile(platform::joinPath(list.path(), list.name(i))));
    }
}

TEST(FileList, FailsAtAnIndexOutOfRangeAndChangesNothing)
{
    const TempTree tree({{"pics/a.bmp", ""}, {"pics/b.bmp", ""}});
    FileList list;
    EXPECT_FALSE(list.setListIndex(0));
    list.setPath(tree.path("pics"));
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.fileName(), "");
    EXPECT_TRUE(list.setListIndex(1));
    for (const int index : {-1, 2, 100, -100}) {
        EXPECT_FALSE(list.setListIndex(index));
        EXPECT_EQ(list.listIndex(), 1);
        EXPECT_EQ(list.name(index), "");
    }
    EXPECT_EQ(list.fileName(), "b.bmp");
}

TEST(FileList, SelectsByNameWhatIsThere)
{
    const TempTree tree({{"pics/a.bmp", ""}, {"pics/b.bmp", ""}});
    FileList list;
    list.setPath(tree.path("pics"));
    list.select(QStringLiteral("b.bmp"));
    EXPECT_EQ(list.listIndex(), 1);
    for (const char* const name : {"c.bmp", "B.bmp", ""}) {
        list.select(QString::fromLatin1(name));
        EXPECT_EQ(list.listIndex(), 1) << name;
    }
}

TEST(FileList, TellsAChangeOfPathOnce)
{
    const TempTree tree({{"a/x.bmp", ""}, {"b/", ""}});
    FileList list;
    QStringList told;
    list.onPathChange([&] { told.append(list.path() + " " + QString::number(list.count())); });
    EXPECT_TRUE(list.setPath(tree.path("a/")));
    EXPECT_TRUE(list.setListIndex(0));
    EXPECT_TRUE(list.setPath(tree.path("a")));
    EXPECT_EQ(list.listIndex(), 0);
    EXPECT_TRUE(list.setPath(tree.path("b")));
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(told, QStringList({tree.path("a") + " 1", tree.path("b") + " 0"}));
}

TEST(FileList, LetsTheHandlerChangeThePathAgain)
{
    const TempTree tree({{"a/x.bmp", ""}, {"b/y.bmp", ""}});
    FileList list;
    list.onPathChange([&] {
        list.onPathChange({});
        list.setPath(tree.path("b"));
    });
    EXPECT_TRUE(list.setPath(tree.path("a")));
    EXPECT_EQ(namesOf(list), QStringList({"y.bmp"}));
}

TEST(FileList, KeepsWhatItHadWhenAFolderCantBeRead)
{
    const TempTree tree({{"a/x.bmp", ""}, {"file", ""}});
    FileList list;
    list.setPath(tree.path("a"));
    list.setListIndex(0);
    int changes = 0;
    list.onPathChange([&] { ++changes; });
    for (const QString& folder : {tree.path("none"), tree.path("file"), QString()}) {
        EXPECT_FALSE(list.setPath(folder));
    }
    EXPECT_EQ(list.path(), tree.path("a"));
    EXPECT_EQ(list.fileName(), "x.bmp");
    EXPECT_EQ(changes, 0);
}

TEST(FileList, ReadsAgainOnRefreshAndOnANewPattern)
{
    const TempTree tree({{"a/x.bmp", ""}, {"a/x.jpg", ""}});
    FileList list;
    list.setPath(tree.path("a"));
    list.setListIndex(0);
    tree.add({"a/w.bmp", ""});
    EXPECT_EQ(list.count(), 2);
    list.refresh();
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.listIndex(), -1);
    list.setPattern("*.JPG");
    EXPECT_EQ(namesOf(list), QStringList({"x.jpg"}));
    tree.remove("a");
    list.refresh();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.path(), tree.path("a"));
}

TEST(FileList, CountsWithoutAList)
{
    const TempTree tree({{"a/x.bmp", ""}, {"a/y.BMP", ""}, {"a/.z.bmp", ""}, {"a/n.txt", ""}});
    EXPECT_EQ(platform::countFiles(tree.path("a"), "*.bmp"), 2);
    EXPECT_EQ(platform::countFiles(tree.path("a"), "*"), 3);
    EXPECT_EQ(platform::countFiles(tree.path("none"), "*"), 0);
    EXPECT_EQ(platform::countFiles("", "*"), 0);
}

TEST(FileList, KeepsTheRootsSeparator)
{
    FileList list;
    EXPECT_TRUE(list.setPath("/"));
    EXPECT_EQ(list.path(), "/");
}

TEST(FileList, TakesOverWhatAnotherListHasRead)
{
    const TempTree tree({{"pics/a.bmp", "a"}, {"pics/b.bmp", "b"}});
    FileList source;
    source.setPattern("*.bmp");
    ASSERT_TRUE(source.setPath(tree.path("pics")));
    tree.remove("pics/a.bmp");

    FileList list;
    list.setPattern("*.bmp");
    int changes = 0;
    list.onPathChange([&changes] { ++changes; });
    EXPECT_TRUE(list.setPathFrom(source));
    EXPECT_EQ(list.path(), tree.path("pics"));
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(changes, 1);

    source.refresh();
    EXPECT_TRUE(list.setPathFrom(source));
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(changes, 1);
}

TEST(FileList, ReadsAnewForAListWithAnotherPattern)
{
    const TempTree tree({{"pics/a.bmp", "a"}, {"pics/b.gif", "b"}});
    FileList source;
    source.setPattern("*.bmp");
    ASSERT_TRUE(source.setPath(tree.path("pics")));
    FileList list;
    list.setPattern("*.gif");
    EXPECT_TRUE(list.setPathFrom(source));
    EXPECT_EQ(list.name(0), "b.gif");
}
