#include "platform/os/paths.h"

#include "platform/os/files.h"
#include "platform/os/mounts.h"
#include "support/temp_tree.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

using platform::fromNative;
using platform::toNative;
using support::TempTree;

namespace {

void expectRoundTrip(const std::string& bytes)
{
    EXPECT_EQ(toNative(fromNative(bytes)), bytes);
}

} // namespace

TEST(NativeText, KeepsEveryPairOfBytes)
{
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string bytes = {static_cast<char>(first), static_cast<char>(second), 'x'};
            ASSERT_EQ(toNative(fromNative(bytes)), bytes) << first << " " << second;
        }
    }
}

TEST(NativeText, KeepsWhatOnlyLooksLikeUtf8)
{
    expectRoundTrip("\xC0\xAF");             // overlong
    expectRoundTrip("\xE0\x80\xAF");         // overlong
    expectRoundTrip("\xED\xB2\x80");         // a surrogate, written as three bytes
    expectRoundTrip("\xF4\x90\x80\x80");     // beyond the last code point
    expectRoundTrip("\xF0\x9F\x98");         // cut short
    expectRoundTrip("\xF0\x9F\x98\x80\x80"); // a pair and then a lone byte
    expectRoundTrip("\xEF\xBB\xBFname");     // a byte order mark belongs to the name
    expectRoundTrip("\xEF\xBF\xBD");         // the replacement character itself
    expectRoundTrip("\xEF\xBF\xBD\xFF");
}

TEST(NativeText, ShowsUndecodableBytesAsLoneSurrogates)
{
    EXPECT_EQ(fromNative("a\xFF"), QStringLiteral("a") + QChar(0xDCFF));
    EXPECT_EQ(fromNative("\xC3\xA9"), QString(QChar(0xE9)));
    EXPECT_EQ(fromNative("\xF0\x9F\x98\x80"), QString::fromUcs4(U"\U0001F600", 1));
}

TEST(Paths, AddTheSeparatorOnlyWhenItIsMissing)
{
    EXPECT_EQ(platform::withSeparator("/a/b"), "/a/b/");
    EXPECT_EQ(platform::withSeparator("/a/b/"), "/a/b/");
    EXPECT_EQ(platform::withSeparator("/"), "/");
    EXPECT_EQ(platform::withSeparator(""), "/");
    EXPECT_EQ(platform::joinPath("/a", "b.txt"), "/a/b.txt");
    EXPECT_EQ(platform::joinPath("/", "b.txt"), "/b.txt");
}

TEST(Paths, SplitAtTheLastSeparator)
{
    EXPECT_EQ(platform::fileNameOf("/a/b.txt"), "b.txt");
    EXPECT_EQ(platform::fileNameOf("b.txt"), "b.txt");
    EXPECT_EQ(platform::fileNameOf("/a/"), "");
    EXPECT_EQ(platform::folderOf("/a/b.txt"), "/a");
    EXPECT_EQ(platform::folderOf("/b.txt"), "/");
    EXPECT_EQ(platform::folderOf("b.txt"), "");
}

TEST(AppPath, IsTheFolderThatTheEnvironmentNames)
{
    TempTree tree;
    EXPECT_EQ(platform::appPath(), tree.path("app"));
    EXPECT_EQ(platform::appFile("Images/gif.ico"), tree.path("app/Images/gif.ico"));

    tree.setVariable("VISTARA_HOME", tree.native("portable/"));
    platform::initialisePaths();
    EXPECT_EQ(platform::appPath(), tree.path("portable"));
    EXPECT_TRUE(tree.exists("portable/Lib/pLib"));
}

TEST(AppPath, TakesARelativeNameFromTheCurrentFolder)
{
    TempTree tree;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(tree.native("home"));
    tree.setVariable("VISTARA_HOME", "mine");
    platform::initialisePaths();
    std::filesystem::current_path(before);
    EXPECT_EQ(platform::appPath(), tree.path("home/mine"));
}

TEST(AppPath, IsTheDataFolderWithoutTheVariable)
{
    TempTree tree;
    tree.setVariable("VISTARA_HOME", "");
    platform::initialisePaths();
    EXPECT_EQ(platform::appPath(), tree.path("data/vistara"));

    tree.setVariable("XDG_DATA_HOME", "");
    platform::initialisePaths();
    EXPECT_EQ(platform::appPath(), tree.path("home/.local/share/vistara"));
}

TEST(AppPath, GetsItsWorkingFolders)
{
    const TempTree tree;
    EXPECT_TRUE(tree.exists("app/openTemp"));
    EXPECT_TRUE(tree.exists("app/Lib"));
    EXPECT_TRUE(tree.exists("app/Lib/pLib"));
}

TEST(AppPath, MayBeReadOnly)
{
    TempTree tree;
    tree.setVariable("VISTARA_HOME", "/proc/vistara");
    platform::initialisePaths();
    EXPECT_EQ(platform::appPath(), "/proc/vistara");
    EXPECT_FALSE(platform::writeFileWhole(platform::appFile("a"), "a"));
    EXPECT_FALSE(platform::appendToFile(platform::appFile("a"), "a"));
}

TEST(Mounts, AreThoseOfMediaThatComeAndGo)
{
    const QByteArray table = "/dev/sda1 / ext4 rw 0 0\n"
                             "/dev/sdb1 /media/eva/My\\040Stick vfat rw 0 0\n"
                             "/dev/sdc1 /run/media/eva/card vfat rw 0 0\n"
                             "/dev/sdd1 /run/media/tom/card vfat rw 0 0\n"
                             "nas:/x /mnt/nas nfs rw 0 0\n"
                             "/dev/sde1 /mediatheque ext4 rw 0 0\n"
                             "nonsense\n"
                             "nas:/x /mnt/nas nfs rw 0 0";
    EXPECT_EQ(platform::mediaMountsIn(table, "eva"),
              QStringList({"/media/eva/My Stick", "/mnt/nas", "/run/media/eva/card"}));
}

TEST(Mounts, GiveAPathItsDrive)
{
    const QStringList mounts = {"/media/eva/stick", "/media/eva/stick/inner", "/mnt/nas"};
    const auto drive = [&](const QString& path) {
        return platform::drivePrefixAmong(path, mounts, "/home/eva");
    };
    EXPECT_EQ(drive("/media/eva/stick/a/b"), "/media/eva/stick");
    EXPECT_EQ(drive("/media/eva/stick/inner/b"), "/media/eva/stick/inner");
    EXPECT_EQ(drive("/media/eva/stick"), "/media/eva/stick");
    EXPECT_EQ(drive("/media/eva/sticky"), "");
    EXPECT_EQ(drive("/home/eva/Pictures"), "/home/eva");
    EXPECT_EQ(drive("/home/evan"), "");
    EXPECT_EQ(drive("/usr/share"), "");
}

TEST(Mounts, LeaveTheHomeFolderAsTheDrive)
{
    const TempTree tree;
    EXPECT_EQ(platform::drivePrefix(tree.path("home/Pictures/Trip")), tree.path("home"));
    EXPECT_EQ(platform::drivePrefix(tree.path("elsewhere")), "");
}

TEST(Paths, FallBackToTheHomeFolderForPictures)
{
    const TempTree tree;
    EXPECT_EQ(platform::picturesFolder(), tree.path("home"));
    tree.add({"home/Pictures/"});
    EXPECT_EQ(platform::picturesFolder(), tree.path("home/Pictures"));
}

TEST(Paths, TellWhatCanNameAFile)
{
    for (const char* const name : {"a", "a.bmp", ".hidden", "...", " ", "two\nlines", "a\\b"}) {
        EXPECT_TRUE(platform::isPlainName(QString::fromLatin1(name))) << name;
    }
    for (const char* const text : {"", ".", "..", "/", "a/b", "/a", "a/"}) {
        EXPECT_FALSE(platform::isPlainName(QString::fromLatin1(text))) << text;
    }
    EXPECT_FALSE(platform::isPlainName(QStringLiteral("a") + QChar(u'\0')));
}

TEST(Paths, FollowLinksToWhatNeedNotBeThere)
{
    const TempTree tree;
    std::filesystem::create_symlink("second", tree.native("first"));
    std::filesystem::create_symlink(tree.native("missing"), tree.native("second"));
    std::filesystem::create_symlink("circle", tree.native("circle"));
    EXPECT_EQ(platform::behindLinks(tree.native("first")), tree.native("missing"));
    EXPECT_EQ(platform::behindLinks(tree.native("plain")), tree.native("plain"));
    EXPECT_EQ(platform::behindLinks(tree.native("circle")), "");
}
