#include "editing/editor_handoff.h"

#include "editing/edit_fixture.h"
#include "files/text_list.h"
#include "platform/desktop/qt_desktop.h"
#include "support/full_disk.h"

using editing::FilterMenu;
using test::numbered;

namespace {

class EditorHandoff : public EditTest {
protected:
    void expectStarted(const QString& path, const QStringList& arguments = {})
    {
        ASSERT_EQ(desktop.started.size(), 1U);
        EXPECT_EQ(desktop.started[0], (support::FakeDesktop::Start{path, arguments}));
    }
};

} // namespace

TEST_F(EditorHandoff, WritesTheNumberOfEveryEntry)
{
    showInViewer(numbered(20, 10));
    for (const editing::FilterNumber& row : editing::filterNumbers()) {
        config.values.clear();
        desktop.started.clear();
        editing::runFilter(form, row.menu, row.index);
        EXPECT_EQ(config.values["Filter"], QString::number(row.number)) << row.index;
        expectStarted(tree.path("app/Tesselia.exe"));
    }
}

TEST_F(EditorHandoff, DoesNothingForASeparator)
{
    showInViewer(numbered(20, 10));
    for (const int separator : {2, 10, 18}) {
        editing::runFilter(form, FilterMenu::Filters, separator);
    }
    for (const int separator : {1, 4}) {
        editing::runFilter(form, FilterMenu::Colours, separator);
    }
    EXPECT_TRUE(config.values.empty());
    EXPECT_TRUE(desktop.started.empty());
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_FALSE(exists("Frametemp.bmp"));
}

TEST_F(EditorHandoff, KeepsThePictureClosesThePanViewAndTellsTheNumberBeforeTheStart)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    form.log.clear();
    QStringList order;
    form.onClosePanView = [&] {
        order.append(exists("Frametemp.bmp") ? "kept" : "not kept");
        order.append(config.values.count("Filter") == 0 ? "no number yet" : "number");
    };
    editing::runFilter(form, FilterMenu::Filters, 3);
    EXPECT_EQ(order, QStringList({"kept", "no number yet"}));
    EXPECT_EQ(form.log, QStringList({"closePanView"}));
    expectFile("Frametemp.bmp", image);
    expectFile("temp.bmp", image);
    expectStarted(tree.path("app/Tesselia.exe"));
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(EditorHandoff, TellsTheNumberEvenWithoutAPicture)
{
    editing::runFilter(form, FilterMenu::Colours, 3);
    EXPECT_EQ(config.values["Filter"], "11");
    EXPECT_EQ(form.log, QStringList({"closePanView"}));
    expectNoPictureBox();
    EXPECT_TRUE(desktop.started.empty());
    EXPECT_FALSE(exists("temp.bmp"));
}

TEST_F(EditorHandoff, LeavesTheNumberOfThePreviousFilterWhenStartedDirectly)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    editing::startSeparateEditor(form);
    EXPECT_TRUE(config.values.empty());
    expectFile("temp.bmp", image);
    EXPECT_FALSE(exists("Frametemp.bmp"));
    expectStarted(tree.path("app/Tesselia.exe"));
}

TEST_F(EditorHandoff, NeedsAPictureToStart)
{
    editing::startSeparateEditor(form);
    expectNoPictureBox();
    dialogs.boxes.clear();
    editing::startListedEditor(form, 1);
    expectNoPictureBox();
    EXPECT_TRUE(desktop.started.empty());
}

TEST_F(EditorHandoff, PassesOverAMissingProgram)
{
    showInViewer(numbered(20, 10));
    desktop.succeeds = false;
    editing::startSeparateEditor(form);
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(EditorHandoff, StartsNothingThatWouldFindAnotherPicture)
{
    showInViewer(numbered(20, 10));
    editing::startSeparateEditor(form);
    files::addNamed(files::kEditors, {"One", "/usr/bin/one"});
    desktop.started.clear();
    showInViewer(numbered(30, 30));
    {
        const support::FullDisk disk(60);
        editing::startSeparateEditor(form);
        editing::startListedEditor(form, 1);
        editing::runFilter(form, FilterMenu::Filters, 3);
    }
    EXPECT_TRUE(desktop.started.empty());
    expectFile("temp.bmp", numbered(20, 10));
    EXPECT_EQ(config.values["Filter"], "2");
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(EditorHandoff, PassesOverProgramsThatDontRun)
{
    platform::QtDesktop real;
    const platform::ScopedDesktop scoped(real);
    showInViewer(numbered(20, 10));
    tree.add({"app/text", "no program"});
    const QString endsAtOnce = QStringLiteral("/bin/false");
    for (const QString& path :
         {tree.path("app/none"), tree.path("app/text"), tree.path("app"), endsAtOnce}) {
        files::addNamed(files::kEditors, {"Editor", path});
    }
    for (int place = 1; place <= 4; ++place) {
        editing::startListedEditor(form, place);
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default) << place;
    }
    editing::startSeparateEditor(form);
    EXPECT_TRUE(dialogs.boxes.empty());
    expectFile("temp.bmp", numbered(20, 10));
}

TEST_F(EditorHandoff, StartsTheListedProgramWithThePictureSaved)
{
    const QImage image = numbered(20, 10);
    showInViewer(image);
    files::addNamed(files::kEditors, {"One", "/usr/bin/one"});
    files::addNamed(files::kEditors, {"Two", "/usr/bin/two"});
    editing::startListedEditor(form, 2);
    expectFile("temp.bmp", image);
    expectStarted("/usr/bin/two", {tree.path("app/temp.bmp")});
}

TEST_F(EditorHandoff, OnlySavesForAPlaceWithoutAProgram)
{
    showInViewer(numbered(20, 10));
    for (const int place : {-1, 0, 1, 5}) {
        editing::startListedEditor(form, place);
    }
    EXPECT_TRUE(desktop.started.empty());
    EXPECT_TRUE(exists("temp.bmp"));
    EXPECT_TRUE(dialogs.boxes.empty());
}
