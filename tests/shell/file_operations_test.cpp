#include "core/browser_pane.h"
#include "core/services.h"
#include "platform/desktop/pump.h"
#include "shell/running_program.h"
#include "thumbs/thumbnail_list.h"
#include "viewer/picture_viewer.h"

#include <QComboBox>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

constexpr int kEditCopy = 7; // of the Edit menu
constexpr int kEditMove = 8;
constexpr int kEditDelete = 5;
constexpr int kRightCopy = 0; // of the menu of the right button
constexpr int kRightMove = 1;
constexpr std::size_t kLarge = std::size_t(24) << 20;

class FileOperationsTest : public testing::Test {
protected:
    FileOperationsTest() { program.tree.add({"there/", ""}); }

    // What the window of a transfer is told: the folder to go to.
    void go(QWidget& window)
    {
        window.findChild<QComboBox*>(QStringLiteral("Cb1"))
            ->setEditText(program.tree.path("there"));
        window.findChild<QPushButton*>(QStringLiteral("Command1"))->click();
    }

    static ThumbNailList& tiles(const Form1& form)
    {
        return *form.findChild<ThumbNailList*>(QStringLiteral("ThumbNailList1"));
    }

    // A click on the tile, then a double click.
    static void openTile(const Form1& form, int tile)
    {
        tiles(form).pressTile(tile);
        tiles(form).doubleClickTile();
    }

    RunningProgram program;
};

} // namespace

TEST_F(FileOperationsTest, ATileOfAFileThatWasMovedShowsNoPicture)
{
    program.onModal = [this](QWidget& window) { go(window); };
    program.run([this](Form1& form) {
        tiles(form).pressTile(0);
        ASSERT_EQ(form.viewer().PictureWidth(), 40);
        RunningProgram::trigger(form, "optEdit", kEditMove);
        ASSERT_TRUE(program.tree.exists("there/a.bmp"));
        ASSERT_FALSE(program.tree.exists("pics/a.bmp"));
        EXPECT_EQ(form.viewer().PictureWidth(), 0);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));

        openTile(form, 0);
        EXPECT_EQ(form.viewer().PictureWidth(), 0);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
        tiles(form).pressTile(1);
        EXPECT_EQ(form.viewer().PictureWidth(), 50);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
        EXPECT_TRUE(program.dialogs.boxes.empty());
    });
    EXPECT_EQ(program.modals, QStringList(QStringLiteral("Movefile")));
}

TEST_F(FileOperationsTest, TheWindowOfATransferIsNamedByTheMenuThatOpensIt)
{
    QStringList titles;
    program.onModal = [&titles](const QWidget& window) { titles.append(window.windowTitle()); };
    program.run([](Form1& form) {
        tiles(form).pressTile(0);
        RunningProgram::trigger(form, "optEdit", kEditCopy);
        RunningProgram::trigger(form, "optEdit", kEditMove);
        RunningProgram::trigger(form, "CmdRightEdit", kRightCopy);
        RunningProgram::trigger(form, "CmdRightEdit", kRightMove);
    });
    EXPECT_EQ(titles, QStringList({"Copy File to...", "Move file to...", "Copy file to...",
                                   "Move file to..."}));
}

TEST_F(FileOperationsTest, AMovedFileIsGoneFromTheTilesAfterTheyWereMadeAnew)
{
    program.onModal = [this](QWidget& window) { go(window); };
    program.run([this](Form1& form) {
        tiles(form).pressTile(0);
        RunningProgram::trigger(form, "optEdit", kEditMove);
        core::services().browserPane->rebuildThumbnails();
        tiles(form).pressTile(0);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
        EXPECT_EQ(form.viewer().PictureWidth(), 50);
    });
}

TEST_F(FileOperationsTest, ATileOfAFileThatWasDeletedIsOpenedWithoutACrash)
{
    program.dialogs.yesNoAnswers = {true};
    program.run([this](Form1& form) {
        tiles(form).pressTile(0);
        RunningProgram::trigger(form, "optEdit", kEditDelete);
        std::filesystem::remove(program.tree.native("pics/a.bmp")); // the fake desktop keeps it
        openTile(form, 0);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
        EXPECT_EQ(program.dialogs.boxes.size(), 1U);
    });
}

TEST_F(FileOperationsTest, AMovedFileCanBeGoneThroughByTheCommandsAllTheSame)
{
    program.onModal = [this](QWidget& window) { go(window); };
    program.run([](Form1& form) {
        tiles(form).pressTile(1);
        RunningProgram::trigger(form, "optEdit", kEditMove);
        form.nextpic();
        EXPECT_EQ(form.viewer().PictureWidth(), 60);
        form.prevpic();
        form.prevpic();
        EXPECT_EQ(form.viewer().PictureWidth(), 40);
    });
}

TEST_F(FileOperationsTest, TheProgramEndsInTheMiddleOfACopy)
{
    program.tree.add({"there/a.bmp", "old"});
    program.run([this](Form1& form) {
        tiles(form).pressTile(0);
        ASSERT_EQ(form.viewer().PictureWidth(), 40);
        program.tree.add({"pics/a.bmp", std::string(kLarge, 'a')});
        program.onModal = [&](QWidget& window) {
            if (!platform::isClosing()) {
                QTimer::singleShot(0, &form, [&form] { form.close(); });
                go(window);
            }
        };
        RunningProgram::trigger(form, "optEdit", kEditCopy);
        EXPECT_TRUE(platform::isClosing());
    });
    EXPECT_EQ(program.tree.content("there/a.bmp"), "old");
    EXPECT_EQ(program.tree.content("pics/a.bmp").size(), kLarge);
    const std::filesystem::directory_iterator there(program.tree.native("there"));
    EXPECT_EQ(std::distance(begin(there), end(there)), 1);
    EXPECT_TRUE(program.unloaded.contains(QStringLiteral("Movefile")));
    EXPECT_EQ(program.unloaded.last(), QStringLiteral("Form1"));
}
