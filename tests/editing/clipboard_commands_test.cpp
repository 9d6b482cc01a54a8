#include "editing/clipboard_commands.h"

#include "editing/edit_fixture.h"
#include "platform/desktop/clipboard.h"
#include "support/full_disk.h"

#include <QClipboard>
#include <QGuiApplication>

using test::expectPixels;
using test::numbered;

namespace {

class ClipboardCommands : public EditTest {
protected:
    ClipboardCommands() { platform::clearClipboard(); }
};

} // namespace

TEST_F(ClipboardCommands, CopyThePicture)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    platform::setClipboardText("before");
    editing::copyPicture(form);
    const auto copied = platform::clipboardPicture();
    ASSERT_TRUE(copied);
    expectPixels(copied->flattened(), image);
    expectPixels(shown(), image);
}

TEST_F(ClipboardCommands, ClearTheViewerAfterACut)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    editing::cutPicture(form);
    EXPECT_EQ(form.log, QStringList({"viewer Clear"}));
    const auto copied = platform::clipboardPicture();
    ASSERT_TRUE(copied);
    expectPixels(copied->flattened(), image);
}

TEST_F(ClipboardCommands, NeedAPictureToCopyOrCut)
{
    platform::setClipboardPicture(platform::Picture(numbered(3, 3)));
    editing::copyPicture(form);
    expectNoPictureBox();
    dialogs.boxes.clear();
    editing::cutPicture(form);
    expectNoPictureBox();
    EXPECT_TRUE(platform::clipboardPicture());
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(ClipboardCommands, PasteByWayOfAWorkingFile)
{
    const QImage image = numbered(20, 10);
    platform::setClipboardPicture(platform::Picture(image));
    editing::pastePicture(form, form);
    expectPixels(shown(), image);
    expectFile("temp.bmp", image);
    EXPECT_EQ(form.Xiala(), tree.path("app/temp.bmp"));
    EXPECT_TRUE(core::state().PictureChanged);
    EXPECT_EQ(form.log, QStringList({"viewer picture 20x10", "rebuildSizeText"}));
    EXPECT_FALSE(exists("Frametemp.bmp"));
}

TEST_F(ClipboardCommands, PasteNothingThatIsNoPicture)
{
    platform::setClipboardText("text");
    editing::pastePicture(form, form);
    platform::clearClipboard();
    editing::pastePicture(form, form);
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_TRUE(form.Xiala().isEmpty());
    EXPECT_FALSE(core::state().PictureChanged);
    EXPECT_FALSE(exists("temp.bmp"));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(ClipboardCommands, PasteNothingThatIsTooLarge)
{
    // Black and white takes little here, but its picture would take four bytes a pixel.
    QImage huge(30000, 30000, QImage::Format_Mono);
    huge.fill(0);
    QGuiApplication::clipboard()->setImage(huge);
    editing::pastePicture(form, form);
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_FALSE(core::state().PictureChanged);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(ClipboardCommands, NeverPasteAnEarlierPicture)
{
    platform::setClipboardPicture(platform::Picture(numbered(20, 10)));
    editing::pastePicture(form, form);
    form.log.clear();
    form.setXiala("before");
    platform::setClipboardPicture(platform::Picture(numbered(30, 30)));
    {
        const support::FullDisk disk(60);
        editing::pastePicture(form, form);
    }
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_EQ(form.Xiala(), "before");
    expectPixels(shown(), numbered(20, 10));
    EXPECT_TRUE(dialogs.boxes.empty());
}
