#include "core/browser_pane.h"
#include "core/services.h"
#include "core/state.h"
#include "files/explorer/folder_tree.h"
#include "platform/desktop/pointer.h"
#include "platform/os/file_list.h"
#include "platform/os/profile.h"
#include "shell/running_program.h"
#include "support/ordinary_user.h"
#include "thumbs/thumbnail_list.h"
#include "viewer/picture_viewer.h"

#include <QAction>
#include <QTimer>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

namespace {

using std::filesystem::perms;

// Folders that vanish, that can't be read or written, and settings that change under the program.
class OddFoldersTest : public testing::Test {
protected:
    // Others may pass through the test's folder, as they can't by themselves.
    void openToOthers() const
    {
        std::filesystem::permissions(program.tree.native(""), perms(0755));
        std::filesystem::permissions(program.tree.native("pics"), perms(0755));
    }

    [[nodiscard]] std::set<std::string> namesIn(const std::string& folder) const
    {
        std::set<std::string> names;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(program.tree.native(folder))) {
            names.insert(entry.path().native());
        }
        return names;
    }

    RunningProgram program;
};

} // namespace

TEST_F(OddFoldersTest, RunsInAFolderThatItCantWriteTo)
{
    const std::string settings =
        "[QUILLPOST]\nObcBrowse=1\nSpeciFolder=" + program.tree.native("pics") + "\n";
    program.tree.add({"app/config.ini", settings});
    program.config.clear();
    openToOthers();
    const auto before = namesIn("app");
    std::filesystem::permissions(program.tree.native("app"), perms(0555));
    {
        const support::OrdinaryUser user;
        program.run([this](Form1& form) {
            RunningProgram::trigger(form, "optTools", 3);
            form.Scrollshow();
            form.toggleBestFit();
            EXPECT_TRUE(form.cpvPicScroll1().BestFitMode());
            form.addRecentPath(program.picture("a.bmp"));
            form.setXiala(program.picture("b.bmp"));
            form.clickXiala();
            EXPECT_EQ(form.cpvPicScroll1().PictureWidth(), 50);
            RunningProgram::trigger(form, "optImage", 2);
            RunningProgram::trigger(form, "optEdit", 0);
        });
    }
    std::filesystem::permissions(program.tree.native("app"), perms(0755));
    EXPECT_EQ(namesIn("app"), before);
    EXPECT_EQ(program.tree.content("app/config.ini"), settings);
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(OddFoldersTest, FallsBackToTheHomeFolderWhenTheStartFolderIsMissing)
{
    program.config[QStringLiteral("SpeciFolder")] = program.tree.path("nowhere");
    program.run([this](Form1& form) {
        EXPECT_EQ(files::folderTree().selected(), program.tree.path("home"));
        // The window, once active, is at the folder that its list of folders is at.
        EXPECT_EQ(core::state().CurrentFolder, form.Dir2());
        EXPECT_EQ(form.Dir2(), program.tree.path("app"));
        EXPECT_EQ(RunningProgram::File1().path(), program.tree.path("app")); // kept what it had
        EXPECT_EQ(form.Xiala(), program.tree.path("app"));
        files::folderTree().select(program.tree.path("pics"));
        EXPECT_EQ(RunningProgram::File1().count(), 3);
        auto* list = form.findChild<ThumbNailList*>(QStringLiteral("ThumbNailList1"));
        for (int k = 0; k < 3; ++k) {
            EXPECT_NE(list->tile(k), nullptr) << k;
        }
    });
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(OddFoldersTest, KeepsItsFilesWhenAFolderCantBeRead)
{
    openToOthers();
    program.tree.add({"secret/x.swf", "x"});
    std::filesystem::permissions(program.tree.native("secret"), perms(0));
    const auto run = [this](Form1& form) {
        files::folderTree().select(program.tree.path("secret"));
        EXPECT_EQ(core::state().CurrentFolder, program.tree.path("secret"));
        EXPECT_EQ(RunningProgram::File1().path(), program.tree.path("pics"));
        EXPECT_EQ(form.Xiala(), program.tree.path("pics"));
        form.ChangePath();
        EXPECT_EQ(form.PictureCount, 0);
        form.nextpic();
        EXPECT_EQ(form.cpvPicScroll1().PictureWidth(), 40);
    };
    program.run([&](Form1& form) {
        const support::OrdinaryUser user;
        run(form);
    });
    std::filesystem::permissions(program.tree.native("secret"), perms(0700));
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(OddFoldersTest, BearsThatTheFolderShownVanishes)
{
    program.run([this](Form1& form) {
        form.nextpic();
        program.tree.remove("pics");
        form.nextpic();
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
        EXPECT_EQ(form.cpvPicScroll1().PictureWidth(), 40); // the last one that was there
        form.start_slideshow();
        form.stop_slideshow();
        core::services().browserPane->rebuildThumbnails();
        EXPECT_EQ(RunningProgram::File1().count(), 0);
        form.Np(program.tree.path("pics"));
        EXPECT_EQ(form.PictureCount, 0);
        form.nextpic();
        form.prevpic();
        form.OCbrowse();
        form.OCbrowse();
    });
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(OddFoldersTest, BearsThatTheFolderVanishesInAGalleryRun)
{
    program.run([this](Form1& form) {
        QTimer::singleShot(0, &form, [this] { program.tree.remove("pics"); });
        core::services().browserPane->rebuildThumbnails();
        EXPECT_FALSE(program.tree.exists("pics"));
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    });
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(OddFoldersTest, SharesItsSettingsWithAnotherProcess)
{
    program.run([this](Form1& form) {
        const QString file = program.tree.path("app/config.ini");
        const QString section = QStringLiteral("QUILLPOST");
        ASSERT_TRUE(
            platform::writeProfile(file, section, QStringLiteral("Filter"), QStringLiteral("7")));
        form.Scrollshow();
        EXPECT_EQ(program.stored("Filter"), QStringLiteral("7"));
        EXPECT_EQ(program.stored("Scrollshow"), QStringLiteral("1"));
        ASSERT_TRUE(
            platform::writeProfile(file, section, QStringLiteral("WinState"), QStringLiteral("1")));
        emit form.cpvPicScroll1().MouseDown(2, 0, 0, 0);
        EXPECT_TRUE(core::windows().isLoaded(core::Window::frmMsg));
        program.tree.remove("app/config.ini");
        form.Scrollshow();
        EXPECT_EQ(program.tree.content("app/config.ini"), "[QUILLPOST]\nScrollshow=0\n");
    });
}
