#include "platform/os/registry.h"
#include "smoke/smoke_fixture.h"

#include <QFile>
#include <QProcess>
#include <csignal>
#include <fstream>

using namespace smoke;

namespace {

const QString kMarkerKey = QStringLiteral("Software\\Corvane\\Qlink");
const QString kMarkerName = QStringLiteral("Brelmark");

// Whether a process has a signal in its own hands.
bool catches(qint64 process, int signal)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/status");
    const std::string label = "SigCgt:";
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(label)) {
            return (std::stoull(line.substr(label.size()), nullptr, 16) >> (signal - 1) & 1U) != 0;
        }
    }
    return false;
}

} // namespace

// The program ended from outside, in the middle of something.
class Ending : public SmokeTest {
protected:
    // A session with a picture that has been edited, so that there are working files.
    void edit(DesktopSession& session)
    {
        ASSERT_TRUE(session.isUp());
        const WindowParts parts(session.inside());
        ASSERT_TRUE(tilesAppear(parts));
        openByPath(session, tree.path("pics/c.pcx"));
        ASSERT_TRUE(colourAppears(parts.viewer(), kBlue, kPcxSize));
        session.click(parts.viewer().center());
        session.key(QStringLiteral("v"));
        ASSERT_TRUE(waitUntil([this] {
            return tree.exists("app/temp.bmp") && tree.exists("app/Frametemp.bmp") &&
                   !tree.exists("app/Images/Temp.bmp");
        }));
        tree.add({"app/openTemp/opened.jpg", "opened"});
    }

    void expectCleanEnd()
    {
        for (const char* name : {"app/temp.bmp", "app/Frametemp.bmp", "app/Images/Temp.bmp",
                                 "app/openTemp/opened.jpg"}) {
            EXPECT_FALSE(tree.exists(name)) << name;
        }
        EXPECT_EQ(platform::registryValue(kMarkerKey, kMarkerName), std::nullopt);
    }
};

TEST_F(Ending, ComesWithEverySignalThatAsksForIt)
{
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        DesktopSession session;
        ASSERT_NO_FATAL_FAILURE(edit(session));
        EXPECT_EQ(session.endBySignal(signal), 0);
        expectCleanEnd();
    }
}

TEST_F(Ending, ComesWhileTheScaleWindowIsOpen)
{
    DesktopSession session;
    ASSERT_NO_FATAL_FAILURE(edit(session));
    session.keys({QStringLiteral("alt+i"), QStringLiteral("s")});
    ASSERT_TRUE(session.dialogOpens());
    EXPECT_EQ(session.endBySignal(SIGTERM), 0);
    expectCleanEnd();
}

TEST_F(Ending, ComesWhileADialogIsOpen)
{
    DesktopSession session;
    ASSERT_NO_FATAL_FAILURE(edit(session));
    session.keys({QStringLiteral("alt+f"), QStringLiteral("s"), QStringLiteral("Return")});
    ASSERT_TRUE(session.dialogOpens());
    EXPECT_EQ(session.endBySignal(SIGTERM), 0);
    expectCleanEnd();
}

TEST_F(Ending, ComesWhileAMenuIsOpen)
{
    DesktopSession session;
    ASSERT_NO_FATAL_FAILURE(edit(session));
    const QRect inside = session.inside();
    const QImage before = screen();
    session.key(QStringLiteral("alt+f"));
    ASSERT_TRUE(waitUntil([&] { return screen().copy(inside) != before.copy(inside); }));
    EXPECT_EQ(session.endBySignal(SIGTERM), 0);
    expectCleanEnd();
}

TEST_F(Ending, ComesDuringAGalleryRun)
{
    constexpr int kMany = 500;
    settings["SpeciFolder"] = tree.native("many");
    writeSettings();
    tree.add({"many/", ""});
    const QString picture = tree.path("pics/a.jpg");
    for (int i = 0; i < kMany; ++i) {
        ASSERT_TRUE(QFile::link(picture, tree.path("many") + QStringLiteral("/%1.jpg").arg(i)));
    }
    tree.add({"app/openTemp/opened.jpg", "opened"});
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    EXPECT_EQ(session.endBySignal(SIGTERM), 0);
    expectCleanEnd();
}

TEST_F(Ending, ComesWhileTheProgramStarts)
{
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(QStringLiteral(VISTARA_PROGRAM), QStringList());
    ASSERT_TRUE(program.waitForStarted());
    ASSERT_TRUE(waitUntil([&] { return catches(program.processId(), SIGTERM); }));
    ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
    constexpr int kPatience = 60000; // milliseconds
    ASSERT_TRUE(program.waitForFinished(kPatience));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    expectCleanEnd();
}
