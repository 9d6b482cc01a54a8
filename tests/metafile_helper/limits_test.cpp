// What a hostile metafile can take from the system, with the real helper program.

#include "metafile_helper/metafile_files.h"
#include "platform/os/helper_process.h"
#include "platform/pictures/metafile_answer.h"
#include "platform/pictures/metafile_reader.h"
#include "support/temp_tree.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>

using platform::HelperEnd;
using test::EmfFile;

namespace {

constexpr int kPatience = 120000; // milliseconds
constexpr int kGlance = 10;
constexpr rlim_t kMegabyte = rlim_t(1) << 20;

struct Allowed {
    __rlimit_resource resource;
    rlim_t most;
};

// Runs in the process that is about to become the helper. Without the capability even root's limits
// stay down; who hasn't got it needn't lose it.
void allowNoMore(const std::vector<Allowed>& limits)
{
    ::prctl(PR_CAPBSET_DROP, CAP_SYS_RESOURCE);
    for (const Allowed& limit : limits) {
        const rlimit value{limit.most, limit.most};
        if (::setrlimit(limit.resource, &value) != 0) {
            ::_exit(EXIT_FAILURE);
        }
    }
}

QByteArray drawing()
{
    EmfFile file({120, 80});
    file.paintWith(255, 0, 0);
    file.rectangle(10, 10, 60, 70);
    return file.bytes();
}

// Small, and work for minutes: every ellipse covers the largest picture that is drawn.
QByteArray slowDrawing()
{
    constexpr int kSide = platform::kLongestMetafileSide;
    EmfFile file({kSide, kSide});
    for (int i = 0; i < 20000; ++i) {
        file.paintWith(i % 256, 0, 0);
        file.ellipse(0, 0, kSide, kSide);
    }
    return file.bytes();
}

class MetafileLimits : public testing::Test {
protected:
    void start(const QByteArray& file, const std::vector<Allowed>& limits = {})
    {
        tree.add({"file", file.toStdString()});
        process.setProgram(platform::metafileHelper());
        process.setStandardInputFile(tree.path("file"));
        process.setStandardErrorFile(QProcess::nullDevice());
        process.setChildProcessModifier([limits] { allowNoMore(limits); });
        process.start();
        ASSERT_TRUE(process.waitForFinished(kPatience));
    }

    [[nodiscard]] bool answered() const
    {
        return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }

    [[nodiscard]] bool refused() const
    {
        return process.exitStatus() == QProcess::NormalExit &&
               process.exitCode() == platform::kMetafileRefused;
    }

    platform::HelperAnswer answerTo(const QByteArray& bytes)
    {
        tree.add({"file", bytes.toStdString()});
        QFile file(tree.path("file"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return platform::helperAnswer({platform::metafileHelper(), file.handle(),
                                       platform::kLongestMetafileAnswer,
                                       std::chrono::milliseconds(kPatience)});
    }

    // A line of what the system says about the running helper: the name, then how much is allowed
    // and how much can be asked for.
    [[nodiscard]] QByteArray limitOf(const QByteArray& name) const
    {
        QFile file(QStringLiteral("/proc/%1/limits").arg(process.processId()));
        if (!file.open(QIODevice::ReadOnly)) {
            return {};
        }
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (line.startsWith(name)) {
                return line.mid(name.size()).simplified();
            }
        }
        return {};
    }

    support::TempTree tree;
    QProcess process;
};

} // namespace

TEST_F(MetafileLimits, StandWhileTheHelperReads)
{
    process.start(platform::metafileHelper(), QStringList());
    ASSERT_TRUE(process.waitForStarted(kPatience));
    QElapsedTimer waited;
    waited.start();
    // The last one to be set.
    while (!limitOf("Max core file size").startsWith("0 0") && waited.elapsed() < kPatience) {
        QThread::msleep(kGlance);
    }
#ifndef __SANITIZE_ADDRESS__
    EXPECT_EQ(limitOf("Max address space"), "1073741824 1073741824 bytes");
#endif
    EXPECT_EQ(limitOf("Max cpu time"), "5 6 seconds");
    EXPECT_EQ(limitOf("Max open files"), "64 64 files");
    EXPECT_EQ(limitOf("Max file size"), "0 0 bytes");
    EXPECT_EQ(limitOf("Max core file size"), "0 0 bytes");
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForFinished(kPatience));
    EXPECT_TRUE(refused()); // an empty file
}

TEST_F(MetafileLimits, StayWhereTheyAreLowerAlready)
{
    start(drawing(), {
#ifndef __SANITIZE_ADDRESS__
                         {RLIMIT_AS, 600 * kMegabyte},
#endif
                         {RLIMIT_CPU, 4},
                         {RLIMIT_NOFILE, 40}});
    EXPECT_TRUE(answered());
    EXPECT_TRUE(process.readAllStandardOutput().startsWith("VMetaf1\n"));
}

TEST_F(MetafileLimits, LetNothingBeWrittenToAFile)
{
    process.setStandardOutputFile(tree.path("out"));
    start(drawing());
    EXPECT_TRUE(refused());
    EXPECT_EQ(tree.content("out"), "");
}

TEST_F(MetafileLimits, EndADrawingThatTakesTooLong)
{
    const platform::HelperAnswer answer = answerTo(slowDrawing());
    EXPECT_EQ(answer.end, HelperEnd::Crashed);
    EXPECT_EQ(answer.code, SIGXCPU);
}

#ifndef __SANITIZE_ADDRESS__ // which takes terabytes of addresses before the program begins
TEST_F(MetafileLimits, LeaveALargeDrawingUndrawnWhereMemoryIsShort)
{
    const std::vector<Allowed> little{{RLIMIT_AS, 110 * kMegabyte}};
    start(drawing(), little);
    EXPECT_TRUE(answered());
    constexpr int kSide = platform::kLongestMetafileSide;
    EmfFile file({kSide, kSide});
    file.paintWith(255, 0, 0);
    file.rectangle(0, 0, kSide, kSide);
    start(file.bytes(), little);
    EXPECT_TRUE(refused());
}
#endif
