// Every command, by every way to it, at a bad moment.

#include "shell/every_command.h"

#include "core/browser_pane.h"
#include "core/services.h"
#include "core/state.h"
#include "files/display_pipeline.h"
#include "files/explorer/folder_tree.h"
#include "platform/desktop/clipboard.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/pictures/picture_saver.h"
#include "shell/commands.h"
#include "shell/running_program.h"
#include "viewer/picture_viewer.h"

#include <QApplication>
#include <QFile>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

const std::string kNoPicture = "[No picture to process.]";
const std::string kNoBrowser = "[Fout met openen van de browser !!]";
const std::string kDeleteQuestion = "[Move it to the trash?]";

enum class Hand { Empty, Picture };

// What a route may tell: the question before a file is deleted, and that there is no picture.
std::string expectedBoxes(const CommandRoute& route, Hand hand)
{
    if (route.deletes) {
        return kDeleteQuestion;
    }
    return route.asksForPicture && hand == Hand::Empty ? kNoPicture : "";
}

class EveryCommandTest : public testing::Test {
protected:
    EveryCommandTest()
    {
        useStubWindows(program);
        platform::clearClipboard();
    }

    static void useStubWindows(RunningProgram& program)
    {
        for (const core::Window window : kLaterWindows) {
            program.stubWindow(window);
        }
    }

    // The boxes since the record was cleared, in order.
    static std::string told(const RunningProgram& program)
    {
        std::string texts;
        for (const support::FakeDialogs::Box& box : program.dialogs.boxes) {
            const bool question = box.icon == platform::BoxIcon::Question &&
                                  box.text.startsWith(QStringLiteral("Move \""));
            texts += question ? kDeleteQuestion : '[' + box.text.toStdString() + ']';
        }
        return texts;
    }

    // The screen is captured once the window has had the time to leave.
    static bool getsPointerBack()
    {
        return QTest::qWaitFor([] { return platform::pointer() == platform::Pointer::Default; });
    }

    // Lets what the command left behind run, and closes what it left open.
    static void settle(Form1& form)
    {
        EXPECT_TRUE(getsPointerBack());
        QApplication::processEvents();
        for (const core::Window window : kLaterWindows) {
            core::windows().unload(window);
        }
        if (form.isMinimized()) {
            form.setWindowState(Qt::WindowMaximized);
        }
        QApplication::processEvents();
    }

    // The focus goes back to the viewer, unless the command took the window off the screen.
    static void expectFocus(Form1& form, const CommandRoute& route)
    {
        if (route.handler != nullptr && !form.isMinimized()) {
            EXPECT_EQ(form.focusWidget(), &form.cpvPicScroll1()) << route.name;
        }
    }

    static void expectAtRest(Form1& form, const CommandRoute& route)
    {
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default) << route.name;
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << route.name;
        EXPECT_NE(core::services().browserPane, nullptr) << route.name;
        EXPECT_TRUE(form.isVisible()) << route.name;
    }

    static QWidget& part(Form1& form, const char* name)
    {
        return *form.findChild<QWidget*>(QString::fromLatin1(name));
    }

    // Shows a picture and takes its file away.
    void showVanishedPicture(Form1& form)
    {
        const QString path = program.picture("b.bmp");
        QImage image(50, 30, QImage::Format_RGB32);
        image.fill(Qt::green);
        ASSERT_TRUE(platform::savePicture(platform::Picture(image), path));
        form.setXiala(path);
        form.clickXiala();
        ASSERT_EQ(form.cpvPicScroll1().PictureWidth(), 50);
        ASSERT_TRUE(QFile::remove(path));
    }

    RunningProgram program;
};

} // namespace

TEST_F(EveryCommandTest, BearsThatThereIsNoPictureTwiceInARow)
{
    program.tree.add({"empty/"});
    program.config[QStringLiteral("SpeciFolder")] = program.tree.path("empty");
    program.run([this](Form1& form) {
        for (const CommandRoute& route : everyCommand()) {
            if (route.leaves) {
                continue;
            }
            program.dialogs.boxes.clear();
            const std::string once = expectedBoxes(route, Hand::Empty);
            route.go(form);
            EXPECT_EQ(told(program), once) << route.name;
            route.go(form);
            EXPECT_EQ(told(program), once + once) << route.name;
            settle(form);
            EXPECT_EQ(told(program), once + once) << route.name;
            EXPECT_FALSE(form.viewer().PictureExists()) << route.name;
            expectAtRest(form, route);
        }
    });
}

TEST_F(EveryCommandTest, BearsThatTheFileOfThePictureHasVanished)
{
    program.desktop.succeeds = false;
    program.run([this](Form1& form) {
        for (const CommandRoute& route : everyCommand()) {
            if (route.leaves) {
                continue;
            }
            form.stop_slideshow();
            showVanishedPicture(form);
            part(form, "Xiala").setFocus();
            program.dialogs.boxes.clear();
            route.go(form);
            EXPECT_EQ(told(program), route.handler == &shell::commands::createAlbum
                                         ? kNoBrowser
                                         : expectedBoxes(route, Hand::Picture))
                << route.name;
            expectFocus(form, route);
            route.go(form);
            settle(form);
            expectAtRest(form, route);
        }
    });
}

TEST_F(EveryCommandTest, TellsThatAVanishedFileCantBeDeleted)
{
    program.desktop.succeeds = false;
    program.run([this](Form1& form) {
        for (const CommandRoute& route : everyCommand()) {
            if (!route.deletes) {
                continue;
            }
            showVanishedPicture(form);
            program.dialogs.boxes.clear();
            program.dialogs.yesNoAnswers.push_back(true);
            route.go(form);
            ASSERT_EQ(program.dialogs.boxes.size(), 2U) << route.name;
            EXPECT_TRUE(program.dialogs.boxes[1].text.endsWith(
                QStringLiteral("could not be moved to the trash.")));
            EXPECT_EQ(form.cpvPicScroll1().PictureWidth(), 50);
        }
    });
}

TEST_F(EveryCommandTest, BearsAGalleryRunUnderIt)
{
    program.run([this](Form1& form) {
        for (const CommandRoute& route : everyCommand()) {
            if (route.leaves) {
                continue;
            }
            form.stop_slideshow();
            showVanishedPicture(form);
            files::folderTree().select(program.tree.path("pics"));
            program.dialogs.boxes.clear();
            bool within = false;
            bool ranWithin = false;
            QTimer::singleShot(0, &form, [&] {
                ranWithin = within;
                route.go(form);
            });
            within = true;
            core::services().browserPane->rebuildThumbnails();
            within = false;
            EXPECT_TRUE(ranWithin) << route.name;
            EXPECT_EQ(told(program), expectedBoxes(route, Hand::Picture)) << route.name;
            settle(form);
            expectAtRest(form, route);
            if (core::state().PictureWide) {
                form.OCbrowse();
                settle(form);
            }
        }
    });
}

TEST_F(EveryCommandTest, BearsASlideShow)
{
    program.run([this](Form1& form) {
        for (const CommandRoute& route : everyCommand()) {
            if (route.leaves) {
                continue;
            }
            files::folderTree().select(program.tree.path("pics"));
            form.start_slideshow();
            form.pipeline().tick();
            program.dialogs.boxes.clear();
            route.go(form);
            form.pipeline().tick();
            EXPECT_EQ(told(program), expectedBoxes(route, Hand::Picture)) << route.name;
            settle(form);
            expectAtRest(form, route);
        }
    });
}

TEST_F(EveryCommandTest, BearsItsOwnSecondCallWhileADialogIsOpen)
{
    program.run([this](Form1& form) {
        for (const CommandRoute& route : everyCommand()) {
            if (route.leaves) {
                continue;
            }
            showVanishedPicture(form);
            int depth = 0;
            program.dialogs.whileOpen = [&] {
                if (++depth == 1) {
                    route.go(form);
                }
            };
            route.go(form);
            program.dialogs.whileOpen = {};
            settle(form);
            expectAtRest(form, route);
        }
    });
}

TEST_F(EveryCommandTest, DoesNothingOnceTheWindowHasClosed)
{
    program.run([this](Form1& form) {
        form.close();
        program.shown.clear();
        for (const CommandRoute& route : everyCommand()) {
            route.go(form);
        }
        EXPECT_TRUE(program.dialogs.boxes.empty());
        EXPECT_TRUE(program.dialogs.fileRequests.empty());
        EXPECT_TRUE(program.desktop.started.empty() && program.desktop.opened.empty());
        EXPECT_TRUE(program.shown.isEmpty() && program.modals.isEmpty());
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    });
}

// The window closes at the first chance that the command gives events to run, or right after it.
TEST_F(EveryCommandTest, EndsWithTheWindowThatClosesUnderIt)
{
    for (const CommandRoute& route : everyHandler()) {
        RunningProgram again;
        useStubWindows(again);
        again.run([&](Form1& form) {
            form.setXiala(again.picture("a.bmp"));
            form.clickXiala();
            again.dialogs.openAnswers.push_back({again.picture("b.bmp")});
            again.dialogs.whileOpen = [&form] { form.close(); };
            QTimer::singleShot(0, &form, [&form] { form.close(); });
            route.go(form);
            QApplication::processEvents();
            EXPECT_TRUE(platform::isClosing()) << route.name;
        });
        EXPECT_EQ(again.unloaded.last(), QStringLiteral("Form1")) << route.name;
        EXPECT_TRUE(getsPointerBack()) << route.name;
    }
}
