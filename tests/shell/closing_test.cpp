#include "core/browser_pane.h"
#include "core/services.h"
#include "core/state.h"
#include "files/display_pipeline.h"
#include "files/explorer/folder_tree.h"
#include "platform/desktop/pump.h"
#include "platform/os/end_requests.h"
#include "platform/os/registry.h"
#include "shell/program.h"
#include "shell/running_program.h"
#include "viewer/picture_viewer.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QTimer>
#include <csignal>
#include <gtest/gtest.h>

namespace {

const QString kMarkerKey = QStringLiteral("Software\\Corvane\\Qlink");
const QString kMarkerName = QStringLiteral("Brelmark");

// A PSD file that ends before its pixels, which its reader reports in a box.
const std::string kCutPsd("8BPS\0\1\0\0\0\0\0\0\0\3\0\0\0\4\0\0\0\4\0\10\0\3"
                          "\0\0\0\0\0\0\0\0\0\0\0\0\0\1",
                          40);

// The end of the program, come upon it in the middle of something.
class ClosingTest : public testing::Test {
protected:
    // The next events to run bring the end: the window's close box, or the Exit command.
    static void closeSoon(Form1& form)
    {
        QTimer::singleShot(0, &form, [&form] { form.close(); });
    }
    static void exitSoon(Form1& form)
    {
        QTimer::singleShot(0, &form, [&form] { RunningProgram::trigger(form, "optFile", 14); });
    }

    void fillFolder()
    {
        for (int i = 0; i < 60; ++i) {
            QFile::copy(program.picture("a.bmp"),
                        program.tree.path("pics") + QStringLiteral("/n%1.bmp").arg(i));
        }
    }

    void expectClosed()
    {
        EXPECT_EQ(program.unloaded.last(), QStringLiteral("Form1"));
        EXPECT_FALSE(files::folderTree().isOpen());
        EXPECT_FALSE(platform::registryValue(kMarkerKey, kMarkerName));
    }

    RunningProgram program;
};

} // namespace

TEST_F(ClosingTest, EndsDuringASlideShow)
{
    program.run([](Form1& form) {
        form.start_slideshow();
        RunningProgram::trigger(form, "optFile", 14);
        EXPECT_FALSE(form.pipeline().isRunning());
    });
    expectClosed();
}

TEST_F(ClosingTest, EndsDuringAGalleryRun)
{
    fillFolder();
    program.run([](Form1& form) {
        exitSoon(form);
        core::services().browserPane->rebuildThumbnails();
        EXPECT_TRUE(platform::isClosing());
    });
    expectClosed();
}

TEST_F(ClosingTest, EndsWhileOpenShowsTheThumbnailsOfItsFolder)
{
    program.run([this](Form1& form) {
        program.dialogs.openAnswers.push_back({program.picture("a.bmp"), program.picture("b.bmp")});
        closeSoon(form);
        RunningProgram::trigger(form, "optFile", 0);
        EXPECT_TRUE(platform::isClosing());
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp")); // no step any more
    });
    expectClosed();
}

TEST_F(ClosingTest, EndsWhileTheTreeChangesTheFolder)
{
    program.tree.add({"more/x.swf", "x"});
    program.run([this](Form1& form) {
        closeSoon(form);
        files::folderTree().select(program.tree.path("more"));
        EXPECT_TRUE(platform::isClosing());
    });
    expectClosed();
}

TEST_F(ClosingTest, EndsWhileTheThumbnailsTakeAnotherSize)
{
    program.run([this](Form1& form) {
        closeSoon(form);
        RunningProgram::trigger(form, "MnuThumbsize", 9);
        EXPECT_TRUE(platform::isClosing());
        EXPECT_EQ(program.stored("BrowserSize"), QStringLiteral("100"));
    });
    expectClosed();
}

TEST_F(ClosingTest, EndsWhileAModalWindowIsOpen)
{
    for (const bool byExit : {false, true}) {
        RunningProgram again;
        again.run([&](Form1& form) {
            (byExit ? &exitSoon : &closeSoon)(form);
            RunningProgram::trigger(form, "OptFav", 1);
            EXPECT_TRUE(platform::isClosing());
        });
        EXPECT_TRUE(again.unloaded.contains(QStringLiteral("FavortiesModi")));
        EXPECT_EQ(again.unloaded.last(), QStringLiteral("Form1"));
    }
}

TEST_F(ClosingTest, EndsWhileAModalWindowThatAKeyOpenedIsOpen)
{
    program.stubWindow(core::Window::frmTemp);
    program.run([this](Form1& form) {
        form.setXiala(program.picture("a.bmp"));
        form.clickXiala();
        closeSoon(form);
        RunningProgram::pressKey(form, Qt::Key_P);
        EXPECT_TRUE(platform::isClosing());
    });
    expectClosed();
}

TEST_F(ClosingTest, EndsWhileAQuestionIsOpen)
{
    program.run([this](Form1& form) {
        program.dialogs.whileOpen = [&form] { form.close(); };
        RunningProgram::trigger(form, "optEdit", 5);
        EXPECT_TRUE(platform::isClosing());
    });
    expectClosed();
    EXPECT_TRUE(program.desktop.trashed.isEmpty());
}

TEST_F(ClosingTest, EndsWhileAReaderReportsADamagedFile)
{
    program.tree.add({"pics/0.psd", kCutPsd});
    program.run([this](Form1& form) {
        program.dialogs.boxes.clear(); // what the thumbnails reported
        program.dialogs.whileOpen = [&form] { form.close(); };
        form.start_slideshow();
        form.pipeline().tick();
        form.pipeline().tick();
        EXPECT_EQ(program.dialogs.boxTexts(), QStringList{QStringLiteral("Error Open!")});
        EXPECT_TRUE(platform::isClosing());
    });
    expectClosed();
}

TEST_F(ClosingTest, TakesNoCommandOnceItHasBegun)
{
    program.run([this](Form1& form) {
        form.close();
        RunningProgram::trigger(form, "optFile", 0);
        RunningProgram::trigger(form, "optFile", 14);
        form.unload();
        EXPECT_TRUE(program.dialogs.fileRequests.empty());
    });
    EXPECT_EQ(program.unloaded.count(QStringLiteral("Form1")), 1);
}

TEST_F(ClosingTest, StopsThePlayerBeforeAndAfterTheWindowsOfTheExitCommand)
{
    QStringList order;
    program.stubWindow(core::Window::MpegForm);
    program.run([&](Form1& form) {
        core::windows().show(core::Window::MpegForm);
        core::services().stopPlayer = [&] {
            const bool open = core::windows().isLoaded(core::Window::MpegForm);
            order.append(open ? QStringLiteral("with window") : QStringLiteral("without window"));
        };
        RunningProgram::trigger(form, "optFile", 14);
    });
    EXPECT_EQ(order,
              (QStringList{QStringLiteral("with window"), QStringLiteral("without window")}));
}

TEST_F(ClosingTest, StopsThePlayerOnceBehindTheWindowsWhenTheMainWindowCloses)
{
    int stops = 0;
    program.run([&](Form1& form) {
        core::services().stopPlayer = [&] {
            ++stops;
            EXPECT_TRUE(program.unloaded.contains(QStringLiteral("Form1")));
        };
        form.close();
    });
    EXPECT_EQ(stops, 1);
}

TEST_F(ClosingTest, PassesOverFilesThatAreMissingOrInTheWay)
{
    for (const char* name : {"app/openTemp/sub/deep.txt", "app/openTemp/.hidden",
                             "app/openTemp/last.jpg", "app/temp.bmp/in the way", "app/Temp2.bmp"}) {
        program.tree.add({name, "bytes"});
    }
    ASSERT_TRUE(
        QFile::setPermissions(program.tree.path("app/openTemp/last.jpg"), QFileDevice::ReadOwner));
    program.run([](Form1&) {});
    EXPECT_FALSE(program.tree.exists("app/openTemp/last.jpg"));
    EXPECT_FALSE(program.tree.exists("app/openTemp/.hidden"));
    EXPECT_TRUE(program.tree.exists("app/openTemp/sub/deep.txt"));
    EXPECT_TRUE(program.tree.exists("app/temp.bmp/in the way"));
    EXPECT_FALSE(program.tree.exists("app/Temp2.bmp"));
    expectClosed();
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(ClosingTest, ComesWhenASignalAsksForIt)
{
    fillFolder();
    platform::EndRequests requests;
    requests.deliverTo(&shell::endProgram);
    program.run([](Form1&) {
        std::raise(SIGTERM);
        core::services().browserPane->rebuildThumbnails();
        EXPECT_TRUE(platform::isClosing());
    });
    expectClosed();
}

TEST_F(ClosingTest, ComesWhenTheSessionEnds)
{
    QStringList order;
    program.stubWindow(core::Window::MpegForm);
    platform::EndRequests requests;
    requests.deliverTo(&shell::endProgram);
    program.run([&](Form1&) {
        core::windows().show(core::Window::MpegForm);
        core::services().stopPlayer = [&] {
            const bool open = core::windows().isLoaded(core::Window::MpegForm);
            order.append(open ? QStringLiteral("with window") : QStringLiteral("without window"));
        };
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        EXPECT_TRUE(platform::isClosing());
    });
    EXPECT_EQ(order,
              (QStringList{QStringLiteral("with window"), QStringLiteral("without window")}));
    expectClosed();
}

TEST_F(ClosingTest, LeavesNoTraceOfAStartThatASignalEnds)
{
    for (const char* last : {"welcome shown", "main window loaded", "pane shown"}) {
        const RunningProgram again;
        platform::resetClosing();
        platform::EndRequests requests;
        requests.deliverTo(&shell::endProgram);
        shell::runProgram([last](const QString& step) {
            if (step == QLatin1String(last)) {
                std::raise(SIGTERM);
            }
        });
        EXPECT_TRUE(platform::isClosing()) << last;
        EXPECT_FALSE(files::folderTree().isOpen()) << last;
        EXPECT_FALSE(platform::registryValue(kMarkerKey, kMarkerName)) << last;
        for (const core::Window window :
             {core::Window::frmWelcome, core::Window::Form1, core::Window::frmThumbnaillist}) {
            EXPECT_FALSE(core::windows().isLoaded(window))
                << last << qPrintable(core::windowName(window));
        }
    }
}
