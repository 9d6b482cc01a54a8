#include "editing/edit_steps.h"

#include "editing/clipboard_commands.h"
#include "editing/edit_fixture.h"
#include "editing/editor_handoff.h"
#include "editing/image_commands.h"
#include "platform/desktop/clipboard.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

using test::expectPixels;
using test::numbered;

namespace {

class Undo : public EditTest {};

} // namespace

TEST_F(Undo, BringsTheStateBeforeTheLastEditBack)
{
    const QImage image = numbered(30, 20);
    showInViewer(image);
    editing::optImage(form, 2);
    editing::undo(form);
    expectPixels(shown(), image);
    expectPixels(form.orgPicture().drawnImage().flattened(), image);
    EXPECT_EQ(form.log.last(), "rebuildSizeText");
}

TEST_F(Undo, BringsThePictureBackFromEveryEdit)
{
    const QImage image = numbered(30, 21);
    for (const int entry : {2, 3, 4, 5, 7}) {
        showInViewer(image);
        QTimer::singleShot(0, qApp, [] {
            if (QWidget* window = core::windows().find(core::Window::Form4)) {
                window->findChild<QLineEdit*>("txtWidth")->setText("10");
                window->findChild<QPushButton*>("cmdOk")->click();
            }
        });
        editing::optImage(form, entry);
        QCoreApplication::processEvents();
        EXPECT_NE(shown(), image) << entry;
        editing::undo(form);
        expectPixels(shown(), image);
    }
}

TEST_F(Undo, TakesBackTheLastOfSeveralEditsOnly)
{
    const QImage image = numbered(30, 21);
    showInViewer(image);
    editing::optImage(form, 2);
    const QImage flipped = shown();
    editing::optImage(form, 4);
    editing::undo(form);
    expectPixels(shown(), flipped);
    EXPECT_NE(shown(), image);
}

TEST_F(Undo, GoesBackBehindAFilterOfTheSeparateEditor)
{
    const QImage image = numbered(30, 21);
    showInViewer(image);
    editing::runFilter(form, editing::FilterMenu::Filters, 5);
    showInViewer(numbered(7, 7));
    editing::undo(form);
    expectPixels(shown(), image);
}

TEST_F(Undo, ChangesNothingTheSecondTime)
{
    const QImage image = numbered(30, 20);
    showInViewer(image);
    editing::optImage(form, 4);
    editing::undo(form);
    editing::undo(form);
    expectPixels(shown(), image);
}

TEST_F(Undo, LeavesThePictureWhenNothingWasEdited)
{
    const QImage image = numbered(30, 20);
    showInViewer(image);
    editing::undo(form);
    expectPixels(shown(), image);
    expectPixels(form.orgPicture().drawnImage().flattened(), image);
    EXPECT_EQ(form.log, QStringList({"rebuildSizeText"}));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Undo, LeavesThePictureWhenItsFileIsDamaged)
{
    const QImage image = numbered(30, 20);
    tree.add({"app/Frametemp.bmp", "no picture"});
    showInViewer(image);
    editing::undo(form);
    expectPixels(shown(), image);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(Undo, BringsTheEditedFileBackOverAnotherPicture)
{
    const QImage edited = numbered(30, 20);
    showInViewer(edited);
    editing::optImage(form, 3);
    showInViewer(numbered(7, 9));
    editing::undo(form);
    expectPixels(shown(), edited);
}

TEST_F(Undo, DoesNotCoverTheClipboard)
{
    const QImage edited = numbered(30, 20);
    showInViewer(edited);
    editing::optImage(form, 3);
    editing::copyPicture(form);
    editing::pastePicture(form, form);
    editing::cutPicture(form);
    expectFile("Frametemp.bmp", edited);
}

TEST_F(Undo, NeedsAPicture)
{
    editing::undo(form);
    expectNoPictureBox();
    EXPECT_TRUE(form.log.isEmpty());
}
