#include "platform/os/registry.h"
#include "support/temp_tree.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>

namespace {

constexpr int kPatience = 60000; // milliseconds
constexpr int kGlance = 20;

const QString kMarkerKey = QStringLiteral("Software\\Corvane\\Qlink");
const QString kMarkerName = QStringLiteral("Brelmark");

// The real program as a process of its own, started without a display.
class ProcessTest : public testing::Test {
protected:
    ProcessTest()
    {
        tree.setVariable("QT_QPA_PLATFORM", "offscreen");
        tree.add({"pics/x.swf", "x"});
        tree.add({"app/config.ini",
                  "[QUILLPOST]\nObcBrowse=1\nSpeciFolder=" + tree.native("pics") + "\n"});
    }

    static void start(QProcess& process, const QStringList& arguments = {})
    {
        process.start(QStringLiteral(VISTARA_PROGRAM), arguments);
        ASSERT_TRUE(process.waitForStarted(kPatience));
    }

    static bool waitFor(const std::function<bool()>& condition)
    {
        QElapsedTimer timer;
        timer.start();
        while (!condition()) {
            if (timer.elapsed() > kPatience) {
                return false;
            }
            QThread::msleep(kGlance);
        }
        return true;
    }

    [[nodiscard]] static bool isMarked()
    {
        return platform::registryValue(kMarkerKey, kMarkerName) == QStringLiteral("1");
    }

    // The last things that starting writes are there.
    [[nodiscard]] bool isUp() const
    {
        return isMarked() &&
               tree.content("app/config.ini").find("fastZoomshow") != std::string::npos &&
               platform::getSetting(QStringLiteral("Locations"), QStringLiteral("Path")) ==
                   tree.path("pics");
    }

    // Starts the program so that it ends by itself once the first folder is shown.
    int runToItsEnd()
    {
        tree.setVariable("VISTARA_SCREENSHOT", tree.native("screenshot.png"));
        QProcess process;
        start(process);
        const bool ended = process.waitForFinished(kPatience);
        tree.setVariable("VISTARA_SCREENSHOT", "");
        return ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    [[nodiscard]] static bool ignores(qint64 process, int signal)
    {
        std::ifstream file("/proc/" + std::to_string(process) + "/status");
        const std::string label = "SigIgn:";
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with(label)) {
                const auto ignored = std::stoull(line.substr(label.size()), nullptr, 16);
                return (ignored >> (signal - 1) & 1U) != 0;
            }
        }
        return false;
    }

    // Every file below the test's folder with its bytes. The lock of somebody who is writing comes
    // and goes.
    [[nodiscard]] std::map<std::string, std::string> everything() const
    {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(tree.native(""))) {
            const std::string name = entry.path().native();
            if (entry.is_regular_file() && !name.ends_with(".ini.lock")) {
                std::ifstream file(name, std::ios::binary);
                files[name] = std::string(std::istreambuf_iterator<char>(file), {});
            } else if (entry.is_directory()) {
                files[name] = "a folder";
            }
        }
        return files;
    }

    support::TempTree tree;
};

} // namespace

TEST_F(ProcessTest, EndsASecondStartWithoutTouchingAnything)
{
    QProcess first;
    start(first);
    ASSERT_TRUE(waitFor([this] { return isUp(); }));
    std::filesystem::remove_all(tree.native("app/Lib"));
    const auto before = everything();
    QProcess second;
    start(second, {tree.path("pics/x.swf")});
    ASSERT_TRUE(second.waitForFinished(kPatience));
    EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(second.readAllStandardOutput().isEmpty());
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(first.state(), QProcess::Running);
    first.kill();
    first.waitForFinished(kPatience);
}

TEST_F(ProcessTest, LeavesItsMarkWhenItIsKilledUntilTheNextCleanEnd)
{
    QProcess first;
    start(first);
    ASSERT_TRUE(waitFor([this] { return isUp(); }));
    tree.add({"app/openTemp/left.jpg", "x"});
    first.kill();
    ASSERT_TRUE(first.waitForFinished(kPatience));
    EXPECT_TRUE(isMarked());
    EXPECT_TRUE(tree.exists("app/openTemp/left.jpg"));

    EXPECT_EQ(runToItsEnd(), 0);
    EXPECT_FALSE(isMarked());
    EXPECT_FALSE(tree.exists("app/openTemp/left.jpg"));
}

TEST_F(ProcessTest, EndsAsTheExitCommandDoesWhenASignalAsksForIt)
{
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        tree.setVariable("XDG_CONFIG_HOME", tree.native("config" + std::to_string(signal)));
        QProcess process;
        start(process);
        ASSERT_TRUE(waitFor([this] { return isUp(); }));
        tree.add({"app/openTemp/left.jpg", "x"});
        tree.add({"app/Frametemp.bmp", "x"});
        ::kill(static_cast<pid_t>(process.processId()), signal);
        ASSERT_TRUE(process.waitForFinished(kPatience));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << signal;
        EXPECT_EQ(process.exitCode(), 0) << signal;
        EXPECT_FALSE(isMarked());
        EXPECT_FALSE(tree.exists("app/openTemp/left.jpg"));
        EXPECT_FALSE(tree.exists("app/Frametemp.bmp"));
    }
}

TEST_F(ProcessTest, GoesOnWhereASignalIsIgnored)
{
    QProcess process;
    process.setChildProcessModifier([] { std::signal(SIGHUP, SIG_IGN); });
    start(process);
    ASSERT_TRUE(waitFor([this] { return isUp(); }));
    EXPECT_TRUE(ignores(process.processId(), SIGHUP));
    EXPECT_FALSE(ignores(process.processId(), SIGTERM));
    ::kill(static_cast<pid_t>(process.processId()), SIGTERM);
    ASSERT_TRUE(process.waitForFinished(kPatience));
    EXPECT_EQ(process.exitCode(), 0);
}

TEST_F(ProcessTest, RemovesTheWorkingFilesOfACrashBeforeItsFirstWindow)
{
    for (const char* name : {"app/temp.bmp", "app/Frametemp.bmp", "app/Temp2.bmp",
                             "app/Images/Temp.bmp", "app/saveTemp.bmp", "app/openTemp/left.jpg"}) {
        tree.add({name, "left"});
    }
    // Without a display the program gets no further.
    tree.setVariable("QT_QPA_PLATFORM", "none");
    QProcess process;
    start(process);
    ASSERT_TRUE(process.waitForFinished(kPatience));
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    for (const char* name :
         {"app/temp.bmp", "app/Frametemp.bmp", "app/Temp2.bmp", "app/Images/Temp.bmp"}) {
        EXPECT_FALSE(tree.exists(name)) << name;
    }
    EXPECT_EQ(tree.content("app/saveTemp.bmp"), "left");
    EXPECT_EQ(tree.content("app/openTemp/left.jpg"), "left");
}
