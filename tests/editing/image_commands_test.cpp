#include "editing/image_commands.h"

#include "editing/edit_fixture.h"
#include "editing/edit_steps.h"
#include "platform/pictures/transforms.h"
#include "support/full_disk.h"
#include "support/ordinary_user.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <array>
#include <filesystem>

namespace fs = std::filesystem;
using test::expectPixels;
using test::numbered;

namespace {

class ImageCommands : public EditTest {
protected:
    // Lets somebody use the scale window once it is open.
    void whenScaleWindowOpens(const std::function<void(QWidget&)>& use)
    {
        QTimer::singleShot(0, qApp, [use] {
            QWidget* window = core::windows().find(core::Window::Form4);
            ASSERT_NE(window, nullptr);
            use(*window);
        });
    }

    static void scaleBy(QWidget& window, const QString& width)
    {
        window.findChild<QLineEdit*>("txtWidth")->setText(width);
        window.findChild<QPushButton*>("cmdOk")->click();
    }
};

} // namespace

TEST_F(ImageCommands, FlipTopToBottomUnderTheVerticalEntry)
{
    const QImage image = numbered(30, 21);
    showInViewer(image);
    editing::optImage(form, 2);
    expectPixels(shown(), platform::flippedTopToBottom(image));
    expectFile("Frametemp.bmp", image);
    EXPECT_FALSE(exists("Images/Temp.bmp"));
    EXPECT_EQ(form.log, QStringList({"viewer picture 30x21", "PanViewRefresh", "viewer Refresh"}));
}

TEST_F(ImageCommands, FlipLeftToRightUnderTheHorizontalEntry)
{
    const QImage image = numbered(30, 21);
    showInViewer(image);
    editing::optImage(form, 3);
    expectPixels(shown(), platform::flippedLeftToRight(image));
    expectFile("Frametemp.bmp", image);
    EXPECT_FALSE(exists("Images/Temp.bmp"));
}

TEST_F(ImageCommands, GiveThePictureBackWhenFlippedTwice)
{
    const QImage image = numbered(30, 21);
    for (const int entry : {2, 3}) {
        showInViewer(image);
        editing::optImage(form, entry);
        editing::optImage(form, entry);
        expectPixels(shown(), image);
    }
}

TEST_F(ImageCommands, MirrorAcrossTheVerticalCentreLineUnderBothEntries)
{
    const QRgb red = qRgb(255, 0, 0);
    const QRgb blue = qRgb(0, 0, 255);
    const QImage halves = test::imageOf(40, 10, [&](int x, int) { return x < 20 ? red : blue; });
    showInViewer(halves);
    editing::optImage(form, 4);
    expectPixels(shown(), test::filled(40, 10, red));
    showInViewer(halves);
    editing::optImage(form, 5);
    expectPixels(shown(), test::filled(40, 10, blue));
    expectFile("Frametemp.bmp", halves);
    EXPECT_FALSE(exists("Images/Temp.bmp"));
    EXPECT_FALSE(exists("temp.bmp"));
    EXPECT_FALSE(exists("saveTemp.bmp"));
}

TEST_F(ImageCommands, KeepTheMiddleColumnWhenTheyMirrorAnOddWidth)
{
    const QImage image = numbered(31, 9);
    for (const auto& [entry, half] :
         {std::pair(4, platform::Half::Left), std::pair(5, platform::Half::Right)}) {
        showInViewer(image);
        editing::optImage(form, entry);
        expectPixels(shown(), platform::mirrored(image, half));
    }
}

TEST_F(ImageCommands, ScaleToTheSizeOfTheDialog)
{
    const QImage image = numbered(100, 50);
    showInViewer(image);
    whenScaleWindowOpens([](QWidget& window) {
        EXPECT_TRUE(window.isModal());
        scaleBy(window, "50");
    });
    editing::optImage(form, 7);
    expectPixels(shown(), platform::scaledTo(image, QSize(50, 25)));
    expectFile("Frametemp.bmp", image);
    EXPECT_FALSE(exists("Images/Temp.bmp"));
    EXPECT_EQ(form.log, QStringList({"viewer picture 50x25", "rebuildSizeText", "viewer Refresh",
                                     "PanViewRefresh", "viewer Refresh"}));
    EXPECT_FALSE(core::windows().isLoaded(core::Window::Form4));
}

TEST_F(ImageCommands, LeaveTheSizeTextWhenTheSizeStays)
{
    const QImage image = numbered(100, 50);
    showInViewer(image);
    whenScaleWindowOpens([](QWidget& window) { scaleBy(window, "100"); });
    editing::optImage(form, 7);
    expectPixels(shown(), image);
    EXPECT_FALSE(form.log.contains("rebuildSizeText"));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(ImageCommands, LeaveThePictureWhenTheScaleIsCancelled)
{
    const QImage image = numbered(100, 50);
    showInViewer(image);
    for (const char* button : {"cmdCancel", "Max"}) {
        form.log.clear();
        tree.remove("app/Frametemp.bmp");
        whenScaleWindowOpens([button](QWidget& window) {
            window.findChild<QLineEdit*>("txtWidth")->setText("50");
            window.findChild<QAbstractButton*>(button)->click();
        });
        editing::optImage(form, 7);
        expectPixels(shown(), image);
        EXPECT_EQ(form.log, QStringList({"PanViewRefresh", "viewer Refresh"})) << button;
        expectFile("Frametemp.bmp", image);
    }
}

TEST_F(ImageCommands, KeepThePictureForUndoWhenTheColourMenuOpens)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    editing::optImage(form, 0);
    expectFile("Frametemp.bmp", image);
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(ImageCommands, SayOnceThatThereIsNoPicture)
{
    for (const int entry : {0, 2, 3, 4, 5, 7}) {
        dialogs.boxes.clear();
        editing::optImage(form, entry);
        expectNoPictureBox();
    }
    EXPECT_FALSE(exists("Frametemp.bmp"));
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(ImageCommands, TakeAnEmptyPictureWithoutHarm)
{
    form.fakeViewer.pictureExists = true;
    for (const int entry : {0, 2, 3, 4, 5}) {
        editing::optImage(form, entry);
    }
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_TRUE(form.viewer().Picture().isNothing());
}

TEST_F(ImageCommands, PutThePointerBack)
{
    showInViewer(numbered(20, 10));
    for (const int entry : {0, 2, 3, 4, 5}) {
        editing::optImage(form, entry);
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    }
}

TEST_F(ImageCommands, ChangeNothingOfTheViewerWithoutWorkingFiles)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    {
        const support::FullDisk disk(20);
        editing::optImage(form, 2);
    }
    expectPixels(shown(), image);
    tree.remove("app/Images");
    editing::optImage(form, 3);
    expectPixels(shown(), image);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(ImageCommands, StandAReadOnlyFolder)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    // Anybody may look into the folders, and nobody may write there.
    const std::array folders{tree.native(""), tree.native("app/Images"), tree.native("app")};
    for (const std::string& folder : folders) {
        fs::permissions(folder, fs::perms(0555));
    }
    {
        const support::OrdinaryUser user;
        for (const int entry : {0, 2, 3, 4}) {
            editing::optImage(form, entry);
        }
        editing::undo(form);
    }
    for (const std::string& folder : folders) {
        fs::permissions(folder, fs::perms(0755)); // so that it can be removed
    }
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_FALSE(exists("Frametemp.bmp"));
    expectPixels(shown(), platform::mirrored(image, platform::Half::Left));
}
