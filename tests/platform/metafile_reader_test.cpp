#include "platform/metafile_reader.h"

#include "support/temp_tree.h"

#include <QFile>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

using platform::readMetafile;
using support::TempTree;

namespace {

// Octal escapes of the shell's printf: the head of an answer of two pixels in a row.
constexpr const char* kHead = "VMetaf1\\n\\002\\000\\000\\000\\001\\000\\000\\000";

// A helper that runs a line of shell script, and a file for it.
class Helper {
public:
    explicit Helper(const std::string& line)
        : m_tree({{"helper", "#!/bin/sh\n" + line + "\n"}, {"file", "the file"}})
    {
        std::filesystem::permissions(m_tree.native("helper"), std::filesystem::perms::owner_exec,
                                     std::filesystem::perm_options::add);
        m_file.setFileName(m_tree.path("file"));
        EXPECT_TRUE(m_file.open(QIODevice::ReadOnly));
    }

    QImage read(std::chrono::milliseconds patience = std::chrono::seconds(20))
    {
        return readMetafile(m_file, m_tree.path("helper"), patience);
    }

    [[nodiscard]] const TempTree& tree() const { return m_tree; }
    QFile& file() { return m_file; }

private:
    TempTree m_tree;
    QFile m_file;
};

std::string printed(const std::string& what)
{
    return "printf '" + what + "'";
}

bool isRunning(const std::string& pid)
{
    return std::filesystem::exists("/proc/" + pid);
}

} // namespace

TEST(ReadMetafile, TakesACompleteAnswer)
{
    Helper helper(printed(kHead + std::string("\\377\\000\\000\\377\\000\\000\\377\\000")));
    const QImage image = helper.read();
    ASSERT_EQ(image.size(), QSize(2, 1));
    EXPECT_EQ(image.pixel(0, 0), qRgb(255, 0, 0));
    EXPECT_EQ(qAlpha(image.pixel(1, 0)), 0);
}

TEST(ReadMetafile, HandsTheWholeFileOver)
{
    Helper helper("cat > \"$(dirname \"$0\")/copy\"");
    char some = 0;
    ASSERT_TRUE(helper.file().getChar(&some));
    EXPECT_TRUE(helper.read().isNull());
    EXPECT_EQ(helper.tree().content("copy"), "the file");
}

TEST(ReadMetafile, RefusesAnswersThatAreNotComplete)
{
    const std::string head = kHead;
    for (const std::string& answer :
         {std::string(), std::string("VMetaf1"), head, head + "1234567", head + "123456789",
          "VMetaf2\\n\\002\\000\\000\\000\\001\\000\\000\\000" + std::string("12345678"),
          std::string("VMetaf1\\n\\000\\000\\000\\000\\001\\000\\000\\000"),
          std::string("VMetaf1\\n\\377\\377\\377\\377\\377\\377\\377\\377")}) {
        Helper helper(printed(answer));
        EXPECT_TRUE(helper.read().isNull()) << answer;
    }
}

TEST(ReadMetafile, RefusesTheAnswerOfAHelperThatFails)
{
    const std::string answer = printed(kHead + std::string("12345678"));
    EXPECT_FALSE(Helper(answer).read().isNull());
    EXPECT_TRUE(Helper(answer + "; exit 3").read().isNull());
    EXPECT_TRUE(Helper(answer + "; kill -SEGV $$").read().isNull());
}

TEST(ReadMetafile, KillsAHelperThatTakesTooLong)
{
    Helper helper("echo $$ > \"$(dirname \"$0\")/pid\"; exec sleep 1000");
    EXPECT_TRUE(helper.read(std::chrono::seconds(1)).isNull());
    const std::string pid = helper.tree().content("pid");
    ASSERT_FALSE(pid.empty());
    EXPECT_FALSE(isRunning(pid.substr(0, pid.size() - 1)));
}

TEST(ReadMetafile, KillsAHelperThatAnswersAndStays)
{
    Helper helper(printed(kHead + std::string("12345678")) +
                  "; echo $$ > \"$(dirname \"$0\")/pid\"; exec sleep 1000 >&-");
    EXPECT_TRUE(helper.read(std::chrono::seconds(1)).isNull());
    const std::string pid = helper.tree().content("pid");
    ASSERT_FALSE(pid.empty());
    EXPECT_FALSE(isRunning(pid.substr(0, pid.size() - 1)));
}

TEST(ReadMetafile, KillsAHelperThatAnswersWithoutEnd)
{
    Helper helper("echo $$ > \"$(dirname \"$0\")/pid\"; exec cat /dev/zero");
    EXPECT_TRUE(helper.read().isNull());
    const std::string pid = helper.tree().content("pid");
    ASSERT_FALSE(pid.empty());
    EXPECT_FALSE(isRunning(pid.substr(0, pid.size() - 1)));
}

TEST(ReadMetafile, FailsWithoutAHelper)
{
    const TempTree tree({{"file", "the file"}});
    QFile file(tree.path("file"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(readMetafile(file, tree.path("missing")).isNull());
    EXPECT_TRUE(readMetafile(file, tree.path("file")).isNull());
    EXPECT_TRUE(readMetafile(file, tree.root()).isNull());
}
