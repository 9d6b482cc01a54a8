#include "core/state.h"
#include "files/explorer/folder_tree.h"
#include "platform/os/file_list.h"
#include "shell/running_program.h"
#include "thumbs/pane/browser_pane.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/chameleon_button.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

// A choice in the folder tree, and what the pane then shows.
class FolderChoiceTest : public testing::Test {
protected:
    static QTreeWidget& tree() { return *static_cast<QTreeWidget*>(files::folderTree().widget()); }

    static void click(const QTreeWidgetItem* item)
    {
        const QPointF place = tree().visualItemRect(item).center();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool isPress = type == QEvent::MouseButtonPress;
            QMouseEvent event(type, place, tree().viewport()->mapToGlobal(place), Qt::LeftButton,
                              isPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(tree().viewport(), &event);
        }
    }

    static void clickCurrent() { click(tree().currentItem()); }

    static void pressReturn()
    {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(&tree(), &event);
    }

    static void pressParent() { pane().Tbmenub(0).click(); }

    // Opens a picture, which is shown from a folder beside the tree's.
    void open(Form1& form)
    {
        program.dialogs.openAnswers.push_back({program.picture("b.bmp")});
        RunningProgram::trigger(form, "optFile", 0);
        ASSERT_EQ(tilePaths(), QStringList{program.tree.path("app/openTemp/b.bmp")});
    }

    static QStringList tilePaths()
    {
        QStringList paths;
        const auto& table = pane().ThumbNailList1().surface().state.ThumbTable;
        for (int row = 0; const auto* tile = table.filledRow(row); ++row) {
            paths.append(tile->path);
        }
        return paths;
    }

    [[nodiscard]] QStringList picturePaths() const
    {
        return {program.picture("a.bmp"), program.picture("b.bmp"), program.picture("c.bmp")};
    }

    void expectPicturesShown(const Form1& form) const
    {
        EXPECT_TRUE(RunningProgram::waitFor([this] { return tilePaths() == picturePaths(); }));
        EXPECT_EQ(form.Xiala(), program.tree.path("pics"));
        EXPECT_EQ(core::state().CurrentFolder, program.tree.path("pics"));
        EXPECT_EQ(files::folderTree().selected(), program.tree.path("pics"));
    }

    static frmThumbnaillist& pane()
    {
        return *qobject_cast<frmThumbnaillist*>(
            core::windows().find(core::Window::frmThumbnaillist));
    }

    RunningProgram program;
};

} // namespace

TEST_F(FolderChoiceTest, ShowsTheSelectedFolderAgainAfterOpenShowedAnother)
{
    program.run([this](Form1& form) {
        for (const auto& choose : {&clickCurrent, &pressReturn}) {
            open(form);
            choose();
            expectPicturesShown(form);
        }
    });
}

TEST_F(FolderChoiceTest, GoesUpToTheSelectedFolderAfterOpenShowedOneInIt)
{
    program.run([this](Form1& form) {
        files::folderTree().select(program.tree.path("app"));
        open(form);
        pressParent();
        EXPECT_EQ(RunningProgram::File1().path(), program.tree.path("app"));
    });
}

TEST_F(FolderChoiceTest, HighlightsTheFolderChosenInTheRunOfAnother)
{
    constexpr int kPictures = 30;
    for (const char* folder : {"home/one/", "home/two/", "home/x/"}) {
        for (int i = 0; i < kPictures; ++i) {
            program.tree.add(
                {folder + std::to_string(i) + ".bmp", program.tree.content("pics/a.bmp")});
        }
    }
    program.run([this](Form1& form) {
        files::folderTree().select(program.tree.path("home"));
        QTreeWidgetItem* const home = tree().currentItem();
        home->setExpanded(true);
        QStringList highlights;
        ThumbNailList& tiles = pane().ThumbNailList1();
        QObject::connect(&tiles, &ThumbNailList::ThumbPageStatus, &form, [&] {
            highlights.append(tree().selectedItems().value(0)->text(0));
            if (highlights.size() == 1) {
                QTimer::singleShot(0, &form, [&] { click(home->child(1)); });
            }
        });
        click(home->child(0));
        EXPECT_TRUE(RunningProgram::waitFor([&] { return highlights.size() == 2; }));
        EXPECT_EQ(highlights, QStringList({"one", "two"}));
        EXPECT_EQ(tree().selectedItems(), QList{home->child(1)});
        EXPECT_EQ(RunningProgram::File1().path(), program.tree.path("home/two"));
        EXPECT_TRUE(RunningProgram::waitFor([&] { return !tiles.surface().state.IsLoading; }));
        EXPECT_EQ(core::state().CurrentFolder, program.tree.path("home/two"));
    });
}

TEST_F(FolderChoiceTest, LeavesAFolderThatIsShownAlone)
{
    program.run([](Form1& form) {
        int runs = 0;
        QObject::connect(&pane().ThumbNailList1(), &ThumbNailList::ThumbPageStatus, &form,
                         [&runs] { ++runs; });
        clickCurrent();
        pressReturn();
        QApplication::processEvents();
        EXPECT_EQ(runs, 0);
    });
}

TEST_F(FolderChoiceTest, StartsInThePictureFolderThatHoldsOnlyFolders)
{
    program.tree.add({"home/Pictures/Trip/a.bmp", program.tree.content("pics/a.bmp")});
    program.tree.add({"app/Samples/b.bmp", program.tree.content("pics/b.bmp")});
    program.config[QStringLiteral("SpeciFolder")].clear();
    program.run([this](Form1& form) {
        EXPECT_EQ(files::folderTree().selected(), program.tree.path("home/Pictures"));
        EXPECT_EQ(form.Xiala(), program.tree.path("home/Pictures"));
    });
}

TEST_F(FolderChoiceTest, StartsInThePictureFolderThatHoldsPictures)
{
    program.tree.add({"home/Pictures/a.bmp", program.tree.content("pics/a.bmp")});
    program.tree.add({"app/Samples/b.bmp", program.tree.content("pics/b.bmp")});
    program.config[QStringLiteral("SpeciFolder")].clear();
    program.run([this](Form1& form) {
        EXPECT_EQ(tilePaths(), QStringList{program.tree.path("home/Pictures/a.bmp")});
        EXPECT_EQ(form.Xiala(), program.tree.path("home/Pictures"));
    });
}

TEST_F(FolderChoiceTest, StartsInTheSamplesWhereThePictureFolderShowsNothing)
{
    for (const char* nothing :
         {"home/Documents/", "home/Pictures/.hidden/", "home/Pictures/notes"}) {
        RunningProgram again;
        again.tree.add({"app/Samples/b.bmp", again.tree.content("pics/b.bmp")});
        again.tree.add({nothing});
        again.config[QStringLiteral("SpeciFolder")].clear();
        again.run([&](Form1& form) {
            EXPECT_EQ(tilePaths(), QStringList{again.tree.path("app/Samples/b.bmp")}) << nothing;
            EXPECT_EQ(form.Xiala(), again.tree.path("app/Samples"));
        });
    }
}
