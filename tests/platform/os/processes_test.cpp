#include "platform/os/paths.h"
#include "platform/os/profile.h"
#include "platform/os/single_instance.h"
#include "support/temp_tree.h"

#include <QProcess>
#include <QRegularExpression>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

using support::TempTree;

namespace {

constexpr const char* kBegin = "; first line\n[QUILLPOST]\nValue=";
constexpr const char* kEnd = "\nLast=kept\n; last line";

// Starts the writer and ends it somewhere in the middle of its work.
void killAWriter(const QString& file, int microseconds)
{
    QProcess writer;
    writer.start(OTHER_PROCESS, {"write-forever", file});
    ASSERT_TRUE(writer.waitForReadyRead());
    ::usleep(static_cast<useconds_t>(microseconds));
    writer.kill();
    ASSERT_TRUE(writer.waitForFinished());
}

// What the other process finds to be the program's folder when it stands in a folder of the tree.
QString appPathSeenFrom(const TempTree& tree, const std::string& folder)
{
    tree.add({folder + "/"});
    const std::string program = tree.native(folder + "/vistara");
    std::filesystem::copy_file(OTHER_PROCESS, program,
                               std::filesystem::copy_options::overwrite_existing);
    QProcess process;
    process.start(platform::fromNative(program), {"tell-paths"});
    EXPECT_TRUE(process.waitForFinished());
    return QString::fromUtf8(process.readAll()).trimmed();
}

void expectWhole(const std::string& content, int round)
{
    const QRegularExpression whole("\\A(x+|y+|start)\\z");
    ASSERT_TRUE(content.starts_with(kBegin)) << round << ": " << content;
    ASSERT_TRUE(content.ends_with(kEnd)) << round << ": " << content;
    const std::string value =
        content.substr(std::string(kBegin).size(),
                       content.size() - std::string(kBegin).size() - std::string(kEnd).size());
    EXPECT_TRUE(whole.match(QString::fromStdString(value)).hasMatch()) << round << ": " << value;
}

} // namespace

TEST(ProfileProcesses, LeaveAWholeFileWhereverTheyAreKilled)
{
    const TempTree tree({{"app/config.ini", std::string(kBegin) + "start" + kEnd}});
    bool hasChanged = false;
    for (int round = 0; round < 100; ++round) {
        killAWriter(tree.path("app/config.ini"), 200 + round * 173 % 7000);
        const std::string content = tree.content("app/config.ini");
        expectWhole(content, round);
        hasChanged = hasChanged || content.find("start") == std::string::npos;
    }
    EXPECT_TRUE(hasChanged);
}

TEST(ProfileProcesses, PileUpNoTemporaryFilesWhenKilled)
{
    const TempTree tree({{"app/config.ini", std::string(kBegin) + "start" + kEnd}});
    for (int round = 0; round < 20; ++round) {
        killAWriter(tree.path("app/config.ini"), 300 + round * 331 % 5000);
    }
    EXPECT_TRUE(platform::writeProfile(tree.path("app/config.ini"), "QUILLPOST", "Value", "end"));
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(tree.native("app"))) {
        files += entry.is_regular_file() ? 1 : 0;
    }
    EXPECT_EQ(files, 1U);
}

TEST(ProfileProcesses, LoseNothingWhenTheyWriteAtOnce)
{
    const TempTree tree;
    const QString file = tree.path("app/config.ini");
    constexpr int kKeys = 60;
    QProcess first;
    QProcess second;
    first.start(OTHER_PROCESS, {"write-keys", file, "a", QString::number(kKeys)});
    second.start(OTHER_PROCESS, {"write-keys", file, "b", QString::number(kKeys)});
    ASSERT_TRUE(first.waitForFinished());
    ASSERT_TRUE(second.waitForFinished());
    EXPECT_EQ(first.exitCode(), 0);
    EXPECT_EQ(second.exitCode(), 0);
    for (int i = 0; i < kKeys; ++i) {
        for (const char* const prefix : {"a", "b"}) {
            const QString key = QString::fromLatin1(prefix) + QString::number(i);
            EXPECT_EQ(platform::readProfile(file, "QUILLPOST", key, "ERROR"), QString::number(i));
        }
    }
}

TEST(ProgramFolder, IsTheProgramsDataFolderWhenItHoldsTheFiles)
{
    TempTree tree({{"copy/config.ini", "[A]\n"}, {"copy/Images/a.gif", "a"}});
    tree.setVariable("VISTARA_HOME", "");
    EXPECT_EQ(appPathSeenFrom(tree, "copy"), tree.path("copy"));
    EXPECT_TRUE(tree.exists("copy/Lib/pLib"));
    EXPECT_FALSE(tree.exists("data/vistara"));
}

TEST(ProgramFolder, GivesWayToTheFolderThatTheEnvironmentNames)
{
    const TempTree tree({{"copy/config.ini", "[A]\n"}, {"copy/Images/a.gif", "a"}});
    EXPECT_EQ(appPathSeenFrom(tree, "copy"), tree.path("app"));
    EXPECT_EQ(tree.content("app/config.ini"), "[A]\n");
    EXPECT_EQ(tree.content("app/Images/a.gif"), "a");
}

TEST(ProgramFolder, SeedsTheUsersFolderFromTheInstalledFiles)
{
    TempTree tree({{"usr/share/vistara/config.ini", "[A]\n"},
                   {"usr/share/vistara/Images/a.gif", "a"},
                   {"data/vistara/testfile.txt", "mine"}});
    tree.setVariable("VISTARA_HOME", "");
    EXPECT_EQ(appPathSeenFrom(tree, "usr/bin"), tree.path("data/vistara"));
    EXPECT_EQ(tree.content("data/vistara/config.ini"), "[A]\n");
    EXPECT_EQ(tree.content("data/vistara/Images/a.gif"), "a");
    EXPECT_EQ(tree.content("data/vistara/testfile.txt"), "mine");
}

TEST(SingleInstance, IsOneForEachFolder)
{
    TempTree tree;
    platform::SingleInstance first;
    EXPECT_TRUE(first.acquire());
    EXPECT_TRUE(first.acquire());
    platform::SingleInstance second;
    EXPECT_FALSE(second.acquire());

    tree.setVariable("VISTARA_HOME", tree.native("other"));
    platform::initialisePaths();
    platform::SingleInstance elsewhere;
    EXPECT_TRUE(elsewhere.acquire());
}

TEST(SingleInstance, KnowsItsFolderByEveryName)
{
    TempTree tree;
    platform::SingleInstance first;
    EXPECT_TRUE(first.acquire());
    std::filesystem::create_symlink(tree.native("app"), tree.native("alias"));
    tree.setVariable("VISTARA_HOME", tree.native("alias"));
    platform::initialisePaths();
    platform::SingleInstance second;
    EXPECT_FALSE(second.acquire());
}

TEST(SingleInstance, IsFreeAgainAfterItsEnd)
{
    const TempTree tree;
    {
        platform::SingleInstance first;
        EXPECT_TRUE(first.acquire());
    }
    platform::SingleInstance second;
    EXPECT_TRUE(second.acquire());
}

TEST(SingleInstance, TouchesNothingInTheProgramsFolder)
{
    const TempTree tree;
    const auto before = std::filesystem::last_write_time(tree.native("app"));
    platform::SingleInstance first;
    EXPECT_TRUE(first.acquire());
    EXPECT_EQ(std::filesystem::last_write_time(tree.native("app")), before);
}

TEST(SingleInstance, HoldsWithoutARuntimeFolder)
{
    TempTree tree;
    tree.add({"run/vistara", "a file in the way"});
    platform::SingleInstance first;
    EXPECT_TRUE(first.acquire());
    platform::SingleInstance second;
    EXPECT_FALSE(second.acquire());
}

TEST(SingleInstance, IsNotHandedToChildren)
{
    const TempTree tree;
    QProcess child;
    {
        platform::SingleInstance first;
        EXPECT_TRUE(first.acquire());
        child.start("/bin/sleep", {"60"});
        ASSERT_TRUE(child.waitForStarted());
    }
    platform::SingleInstance second;
    EXPECT_TRUE(second.acquire());
    child.kill();
    EXPECT_TRUE(child.waitForFinished());
}

TEST(SingleInstance, DiesWithAProcessThatIsKilled)
{
    const TempTree tree;
    QProcess other;
    other.start(OTHER_PROCESS, {"hold-instance"});
    ASSERT_TRUE(other.waitForReadyRead());
    EXPECT_EQ(other.readLine().trimmed(), "first");
    platform::SingleInstance instance;
    EXPECT_FALSE(instance.acquire());
    other.kill();
    ASSERT_TRUE(other.waitForFinished());
    EXPECT_TRUE(instance.acquire());
}
