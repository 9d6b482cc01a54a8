#include "editing/save_pipeline.h"

#include "editing/edit_fixture.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

using editing::SaveSource;
using test::expectPixels;
using test::numbered;

namespace {

class SavePipeline : public EditTest {
protected:
    void answerSaveDialog(const std::string& name, int filterIndex)
    {
        dialogs.saveAnswers.push_back(platform::SaveChoice{tree.path(name), filterIndex});
    }

    // As a command of the program runs it.
    void save(SaveSource source = SaveSource::Picture)
    {
        editing::save(form, source, form.Xiala());
    }

    [[nodiscard]] std::string signature(const std::string& name, std::size_t length) const
    {
        return tree.content(name).substr(0, length);
    }
};

} // namespace

TEST_F(SavePipeline, WritesTheWorkingFileBeforeTheDialogOpens)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    bool wasThere = false;
    dialogs.whileOpen = [&] { wasThere = exists("saveTemp.bmp"); };
    save();
    EXPECT_TRUE(wasThere);
    expectFile("saveTemp.bmp", image);
}

TEST_F(SavePipeline, ChangesNothingElseWhenCancelled)
{
    showInViewer(numbered(20, 10));
    core::state().PictureChanged = true;
    save();
    ASSERT_EQ(dialogs.fileRequests.size(), 1U);
    EXPECT_TRUE(core::state().PictureChanged);
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(SavePipeline, AsksForOneOfThreeFormatsAndReplacesWithoutAQuestion)
{
    showInViewer(numbered(20, 10));
    save();
    ASSERT_EQ(dialogs.fileRequests.size(), 1U);
    EXPECT_EQ(dialogs.fileRequests[0].filter,
              "BMP (*.BMP)|*.bmp|GIF (*.Gif)|*.gif|JPG (*.JPG)|*.jpg");
    EXPECT_FALSE(dialogs.fileRequests[0].askBeforeReplacing);
}

TEST_F(SavePipeline, ProposesTheNameOfThePictureInItsFolder)
{
    tree.add({"pics/Birch wood.jpg", "x"});
    showInViewer(numbered(20, 10));
    form.setXiala(tree.path("pics/Birch wood.jpg"));
    save();
    ASSERT_EQ(dialogs.fileRequests.size(), 1U);
    EXPECT_EQ(dialogs.fileRequests[0].title, "Save as");
    EXPECT_EQ(dialogs.fileRequests[0].folder, tree.path("pics"));
    EXPECT_EQ(dialogs.fileRequests[0].fileName, "Birch wood.bmp");
}

// What stands in the program's own folders goes when the program ends.
TEST_F(SavePipeline, ProposesNoFolderOfItsOwn)
{
    tree.add({"app/openTemp/lake.tif", "x"});
    showInViewer(numbered(20, 10));
    form.setXiala(tree.path("app/openTemp/lake.tif"));
    save();
    form.setXiala(tree.path("app/temp.bmp"));
    save();
    form.setXiala("words");
    save();
    ASSERT_EQ(dialogs.fileRequests.size(), 3U);
    for (const platform::FileRequest& request : dialogs.fileRequests) {
        EXPECT_EQ(request.folder, "");
        EXPECT_EQ(request.title, "Save as");
    }
    EXPECT_EQ(dialogs.fileRequests[0].fileName, "lake.bmp");
    EXPECT_EQ(dialogs.fileRequests[1].fileName, "");
    EXPECT_EQ(dialogs.fileRequests[2].fileName, "");
}

TEST_F(SavePipeline, WritesABmpUnderTheFirstFilterWhateverTheName)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    tree.add({"picture.gif", "old"});
    core::state().PictureChanged = true;
    answerSaveDialog("picture.gif", 1);
    save();
    const std::string bytes = tree.content("picture.gif");
    ASSERT_GE(bytes.size(), 54U);
    EXPECT_EQ(bytes.substr(0, 2), "BM");
    EXPECT_EQ(bytes[28], 24);
    const auto saved = platform::loadPicture(tree.path("picture.gif"));
    ASSERT_TRUE(saved);
    expectPixels(saved->flattened(), image);
    EXPECT_FALSE(core::state().PictureChanged);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(SavePipeline, WritesAGifUnderTheSecondFilterAndAddsNoExtension)
{
    const QImage image = numbered(12, 12);
    showInViewer(image);
    answerSaveDialog("picture", 2);
    save(SaveSource::DrawnImage);
    EXPECT_EQ(signature("picture", 6), "GIF87a");
    const auto saved = platform::loadPicture(tree.path("picture"));
    ASSERT_TRUE(saved);
    expectPixels(saved->flattened(), image);
    EXPECT_FALSE(tree.exists("picture.gif"));
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(SavePipeline, OpensTheJpegWindowUnderTheThirdFilter)
{
    showInViewer(numbered(20, 10));
    core::state().PictureChanged = true;
    answerSaveDialog("picture.bmp", 3);
    QTimer::singleShot(0, qApp, [&] {
        QWidget* window = core::windows().find(core::Window::frmSaveJPGc);
        ASSERT_NE(window, nullptr);
        EXPECT_TRUE(window->isModal());
        EXPECT_EQ(window->findChild<QLineEdit*>("OutputPath")->text(), tree.path("picture.bmp"));
        window->findChild<QPushButton*>("Command1_0")->click();
    });
    save();
    EXPECT_EQ(signature("picture.bmp", 2), "\xFF\xD8");
    EXPECT_EQ(dialogs.boxTexts(), QStringList({tree.path("picture.bmp")}));
    EXPECT_FALSE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    EXPECT_FALSE(core::state().PictureChanged);
}

TEST_F(SavePipeline, MakesTheMainWindowActiveAgainAfterAJpeg)
{
    QWidget main;
    form.parentWindow = &main;
    main.show();
    main.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
    showInViewer(numbered(20, 10));
    answerSaveDialog("picture.jpg", 3);
    QTimer::singleShot(0, qApp, [&] {
        QWidget* window = core::windows().find(core::Window::frmSaveJPGc);
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        window->findChild<QPushButton*>("Command1_0")->click();
    });
    save();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main));
    form.parentWindow = nullptr;
}

TEST_F(SavePipeline, SavesWhatTheWorkingFileHoldsAsGif)
{
    const QImage image = numbered(12, 12);
    showInViewer(image);
    save(); // its dialog is cancelled
    form.fakeViewer.picture = platform::Picture(test::filled(3, 3, qRgb(9, 9, 9)));
    answerSaveDialog("picture.gif", 2);
    editing::saveByDialog(form, {});
    const auto saved = platform::loadPicture(tree.path("picture.gif"));
    ASSERT_TRUE(saved);
    expectPixels(saved->flattened(), image);
    expectPixels(form.Image1().drawnImage().flattened(), image);
}

TEST_F(SavePipeline, NeedsAPicture)
{
    save();
    expectNoPictureBox();
    EXPECT_TRUE(dialogs.fileRequests.empty());
    EXPECT_FALSE(exists("saveTemp.bmp"));
}

TEST_F(SavePipeline, PassesOverAWriterThatFails)
{
    showInViewer(numbered(20, 10));
    for (const int filter : {1, 2}) {
        core::state().PictureChanged = true;
        answerSaveDialog("missing/picture", filter);
        save();
        EXPECT_FALSE(core::state().PictureChanged);
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    }
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(SavePipeline, WritesNothingUnderAnUnknownFilter)
{
    showInViewer(numbered(20, 10));
    answerSaveDialog("picture", 4);
    save();
    EXPECT_FALSE(tree.exists("picture"));
}
