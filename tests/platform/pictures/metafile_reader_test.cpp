#include "platform/pictures/metafile_reader.h"

#include "support/temp_tree.h"

#include <QFile>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

using platform::HelperEnd;
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
        const platform::DrawnMetafile drawn = readMetafile(m_file, m_tree.path("helper"), patience);
        EXPECT_TRUE(drawn.image.isNull() || drawn.end == HelperEnd::Answered);
        m_end = drawn.end;
        return drawn.image;
    }

    // How the helper ended that read() started.
    [[nodiscard]] HelperEnd end() const { return m_end; }

    platform::HelperAnswer answer()
    {
        constexpr qint64 kMost = 1000;
        return platform::helperAnswer(
            {m_tree.path("helper"), m_file.handle(), kMost, std::chrono::seconds(20)});
    }

    [[nodiscard]] const TempTree& tree() const { return m_tree; }
    QFile& file() { return m_file; }

private:
    TempTree m_tree;
    QFile m_file;
    HelperEnd m_end = HelperEnd::NotStarted;
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
        EXPECT_EQ(helper.end(), HelperEnd::Answered) << answer;
    }
}

TEST(ReadMetafile, RefusesTheAnswerOfAHelperThatFails)
{
    const std::string answer = printed(kHead + std::string("12345678"));
    EXPECT_FALSE(Helper(answer).read().isNull());
    Helper refusing(answer + "; exit 3");
    EXPECT_TRUE(refusing.read().isNull());
    EXPECT_EQ(refusing.end(), HelperEnd::Refused);
    Helper crashing(answer + "; kill -SEGV $$");
    EXPECT_TRUE(crashing.read().isNull());
    EXPECT_EQ(crashing.end(), HelperEnd::Crashed);
}

TEST(ReadMetafile, TellsARefusalFromACrash)
{
    const platform::HelperAnswer answered = Helper(printed("words")).answer();
    EXPECT_EQ(answered.end, HelperEnd::Answered);
    EXPECT_EQ(answered.output, "words");
    const platform::HelperAnswer refused = Helper(printed("words") + "; exit 3").answer();
    EXPECT_EQ(refused.end, HelperEnd::Refused);
    EXPECT_EQ(refused.code, 3);
    EXPECT_EQ(refused.output, "");
    const platform::HelperAnswer crashed = Helper("kill -SEGV $$").answer();
    EXPECT_EQ(crashed.end, HelperEnd::Crashed);
    EXPECT_EQ(crashed.code, SIGSEGV);
}

TEST(ReadMetafile, KillsAHelperThatTakesTooLong)
{
    Helper helper("echo $$ > \"$(dirname \"$0\")/pid\"; exec sleep 1000");
    EXPECT_TRUE(helper.read(std::chrono::seconds(1)).isNull());
    EXPECT_EQ(helper.end(), HelperEnd::TooLong);
    const std::string pid = helper.tree().content("pid");
    ASSERT_FALSE(pid.empty());
    EXPECT_FALSE(isRunning(pid.substr(0, pid.size() - 1)));
}

TEST(ReadMetafile, KillsAHelperThatAnswersAndStays)
{
    Helper helper(printed(kHead + std::string("12345678")) +
                  "; echo $$ > \"$(dirname \"$0\")/pid\"; exec sleep 1000 >&-");
    EXPECT_TRUE(helper.read(std::chrono::seconds(1)).isNull());
    EXPECT_EQ(helper.end(), HelperEnd::TooLong);
    const std::string pid = helper.tree().content("pid");
    ASSERT_FALSE(pid.empty());
    EXPECT_FALSE(isRunning(pid.substr(0, pid.size() - 1)));
}

TEST(ReadMetafile, KillsAHelperThatAnswersWithoutEnd)
{
    Helper helper("echo $$ > \"$(dirname \"$0\")/pid\"; exec cat /dev/zero");
    EXPECT_TRUE(helper.read().isNull());
    EXPECT_EQ(helper.end(), HelperEnd::TooMuch);
    const std::string pid = helper.tree().content("pid");
    ASSERT_FALSE(pid.empty());
    EXPECT_FALSE(isRunning(pid.substr(0, pid.size() - 1)));
}

TEST(ReadMetafile, FailsWithoutAHelper)
{
    const TempTree tree({{"file", "the file"}});
    QFile file(tree.path("file"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    for (const QString& helper : {tree.path("missing"), tree.path("file"), tree.root()}) {
        const platform::DrawnMetafile drawn = readMetafile(file, helper);
        EXPECT_TRUE(drawn.image.isNull());
        EXPECT_EQ(drawn.end, HelperEnd::NotStarted);
    }
}
