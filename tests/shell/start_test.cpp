#include "core/interfaces.h"
#include "core/services.h"
#include "core/state.h"
#include "platform/folder_tree.h"
#include "platform/registry.h"
#include "shell/running_program.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QTimer>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

const QString kMarkerKey = QStringLiteral("Software\\Corvane\\Qlink");
const QString kMarkerName = QStringLiteral("Brelmark");

class StartTest : public testing::Test {
protected:
    static void turnWheel(Form1& form, int eighths)
    {
        const QPointF place(form.rect().center());
        QWheelEvent event(place, form.mapToGlobal(place), {}, {0, eighths}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&form, &event);
    }

    RunningProgram program;
};

} // namespace

TEST_F(StartTest, ComesUpInItsOrderAndLeavesWhenTheTreeCloses)
{
    program.run([](Form1& form) {
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(platform::folderTree().isOpen());
        EXPECT_FALSE(core::windows().isLoaded(QStringLiteral("frmWelcome")));
    });
    EXPECT_EQ(program.steps,
              (QStringList{QStringLiteral("welcome shown"), QStringLiteral("main window loaded"),
                           QStringLiteral("pane shown"), QStringLiteral("modes restored"),
                           QStringLiteral("folder tree opened")}));
    EXPECT_FALSE(platform::folderTree().isOpen());
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(StartTest, UnloadsItsWindowsInOrder)
{
    program.run([](Form1& form) {
        form.fastZoomshow();
        core::windows().show(QStringLiteral("frmAbout"));
        core::windows().show(QStringLiteral("frmMsg"));
    });
    EXPECT_EQ(program.unloaded,
              (QStringList{QStringLiteral("frmWelcome"), QStringLiteral("frmThumbnaillist"),
                           QStringLiteral("fastZoom"), QStringLiteral("frmAbout"),
                           QStringLiteral("frmMsg"), QStringLiteral("Form1")}));
}

TEST_F(StartTest, WithoutSettingsTurnsOnWhatTheInvertedKeysSay)
{
    program.config.clear();
    program.run([](Form1& form) {
        EXPECT_TRUE(core::state().PictureWide);
        EXPECT_FALSE(core::state().BrowserShown);
        EXPECT_TRUE(form.cpvPicScroll1().PanViewVisible());
        EXPECT_TRUE(core::windows().isLoaded(QStringLiteral("fastZoom")));
        EXPECT_EQ(form.cpvPicScroll1().ScrollBars(), 0);
        EXPECT_FALSE(form.cpvPicScroll1().BestFitMode());
    });
    for (const char* key : {"BestFit", "ObcBrowse", "Panview", "Scrollshow", "fastZoomshow"}) {
        EXPECT_EQ(program.stored(key), QStringLiteral("0")) << key;
    }
}

TEST_F(StartTest, RestoresTheModesAndLeavesTheirKeysAsTheyWere)
{
    for (const char* browse : {"0", "1"}) {
        for (const char* other : {"0", "1"}) {
            RunningProgram again;
            again.config[QStringLiteral("ObcBrowse")] = QString::fromLatin1(browse);
            for (const char* key : {"Panview", "Scrollshow", "fastZoomshow", "BestFit"}) {
                again.config[QString::fromLatin1(key)] = QString::fromLatin1(other);
            }
            again.run([&](Form1& form) {
                const bool zero = *other == '0';
                EXPECT_EQ(core::state().BrowserShown, *browse == '1');
                EXPECT_EQ(RunningProgram::entry(form, "optTools", 3).isChecked(), *browse == '1');
                EXPECT_EQ(RunningProgram::entry(form, "optView", 11).isChecked(), zero);
                EXPECT_EQ(RunningProgram::entry(form, "CmdRight", 10).isChecked(), zero);
                EXPECT_EQ(RunningProgram::entry(form, "optView", 12).isChecked(), zero);
                EXPECT_EQ(form.cpvPicScroll1().ScrollBars(), zero ? 0 : 1);
                EXPECT_EQ(RunningProgram::entry(form, "optView", 15).isChecked(), zero);
                EXPECT_EQ(form.cpvPicScroll1().BestFitMode(), !zero);
                EXPECT_EQ(RunningProgram::entry(form, "optView", 3).isChecked(), !zero);
                EXPECT_EQ(RunningProgram::entry(form, "CmdRightView", 4).isChecked(), !zero);
                EXPECT_EQ(form.toolbars().button(15)->ButtonType(), zero ? 11 : 5);
                EXPECT_EQ(form.toolbars().button(13)->ButtonType(), *browse == '1' ? 5 : 8);
            });
            EXPECT_EQ(again.stored("ObcBrowse"), QString::fromLatin1(browse));
            for (const char* key : {"Panview", "Scrollshow", "fastZoomshow", "BestFit"}) {
                EXPECT_EQ(again.stored(key), QString::fromLatin1(other)) << key;
            }
        }
    }
}

TEST_F(StartTest, TakesTheViewersColourOnlyFromANumber)
{
    program.config[QStringLiteral("EditorColor")] = QStringLiteral("14445906");
    program.run([](Form1& form) { EXPECT_EQ(form.cpvPicScroll1().BackColor(), 14445906U); });
    RunningProgram second;
    second.config[QStringLiteral("EditorColor")] = QStringLiteral("RGB(82, 109, 220)");
    second.run([](Form1& form) { EXPECT_EQ(form.cpvPicScroll1().BackColor(), 0x8000000FU); });
}

TEST_F(StartTest, KeepsThePresenceMarkerWhileItRuns)
{
    program.run([](Form1&) {
        EXPECT_EQ(platform::registryValue(kMarkerKey, kMarkerName), QStringLiteral("1"));
    });
    EXPECT_FALSE(platform::registryValue(kMarkerKey, kMarkerName));
}

TEST_F(StartTest, ClearsItsWorkingFilesWhenItEnds)
{
    for (const char* name : {"app/openTemp/x.jpg", "app/Frametemp.bmp", "app/temp.bmp",
                             "app/saveTemp.bmp", "app/saveJpgTemp.jpg"}) {
        program.tree.add({name, "bytes"});
    }
    program.run([](Form1&) {});
    EXPECT_FALSE(platform::isRegularFile(program.tree.path("app/openTemp/x.jpg")));
    EXPECT_TRUE(platform::isFolder(program.tree.path("app/openTemp")));
    EXPECT_FALSE(platform::isRegularFile(program.tree.path("app/Frametemp.bmp")));
    EXPECT_FALSE(platform::isRegularFile(program.tree.path("app/temp.bmp")));
    EXPECT_TRUE(platform::isRegularFile(program.tree.path("app/saveTemp.bmp")));
    EXPECT_TRUE(platform::isRegularFile(program.tree.path("app/saveJpgTemp.jpg")));
}

TEST_F(StartTest, WarnsOnceOfAShallowScreenAndGoesOn)
{
    program.desktop.bits = 16;
    program.run([](Form1& form) { EXPECT_TRUE(form.isVisible()); });
    ASSERT_EQ(program.dialogs.boxes.size(), 1U);
    EXPECT_EQ(program.dialogs.boxes[0].text,
              QStringLiteral("All will work better and faster on 32bpp color depth."));
    EXPECT_EQ(program.dialogs.boxes[0].icon, platform::BoxIcon::Information);
}

TEST_F(StartTest, ShowsTheStartFolderOfTheSettings)
{
    program.run([this](Form1& form) {
        EXPECT_EQ(form.Xiala(), program.tree.path("pics"));
        EXPECT_EQ(core::state().CurrentFolder, program.tree.path("pics"));
        EXPECT_EQ(RunningProgram::File1().count(), 3);
        EXPECT_EQ(form.Dir2(), program.tree.path("pics"));
    });
}

TEST_F(StartTest, RecountsOnceWhenTheMainWindowBecomesActiveAfterAPathChange)
{
    program.run([this](Form1& form) {
        form.becameActive();
        RunningProgram::File1().setPath(program.tree.path("app"));
        RunningProgram::File1().setPath(program.tree.path("pics"));
        EXPECT_TRUE(core::state().FirstActivate);
        form.PictureCount = 0;
        core::state().CurrentFolder.clear();
        form.becameActive();
        EXPECT_EQ(form.PictureCount, 3);
        EXPECT_EQ(core::state().CurrentFolder, program.tree.path("pics"));
        EXPECT_FALSE(core::state().FirstActivate);
        form.PictureCount = 77;
        form.becameActive();
        EXPECT_EQ(form.PictureCount, 77);
    });
}

TEST_F(StartTest, StepsByTheWheelUnlessTheFlashWindowHasIt)
{
    program.run([this](Form1& form) {
        turnWheel(form, -120);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
        turnWheel(form, -120);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
        turnWheel(form, 120);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
        core::state().FlashPActive = true;
        turnWheel(form, -120);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
        form.becameActive();
        EXPECT_FALSE(core::state().FlashPActive);
        turnWheel(form, -120);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
    });
}

TEST_F(StartTest, AddsUpTheSmallStepsOfAFineWheel)
{
    program.run([this](Form1& form) {
        for (int i = 0; i < 7; ++i) {
            turnWheel(form, -15);
        }
        EXPECT_EQ(form.Xiala(), program.tree.path("pics"));
        turnWheel(form, -15);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
    });
}

TEST_F(StartTest, EndsFromTheExitCommandDuringASlideShow)
{
    program.run([](Form1& form) {
        form.start_slideshow();
        RunningProgram::trigger(form, "optFile", 14);
        EXPECT_FALSE(platform::folderTree().isOpen());
    });
    EXPECT_EQ(program.unloaded.last(), QStringLiteral("Form1"));
}

TEST_F(StartTest, EndsFromTheExitCommandDuringAGalleryRun)
{
    for (int i = 0; i < 60; ++i) {
        QFile::copy(program.picture("a.bmp"),
                    program.tree.path("pics") + QStringLiteral("/n%1.bmp").arg(i));
    }
    program.run([](Form1& form) {
        QTimer::singleShot(0, &form, [&form] { RunningProgram::trigger(form, "optFile", 14); });
        core::services().browserPane->rebuildThumbnails();
    });
    EXPECT_EQ(program.unloaded.last(), QStringLiteral("Form1"));
}

TEST_F(StartTest, StartsInAFolderThatCantBeWritten)
{
    program.config[QStringLiteral("BestFit")] = QStringLiteral("1");
    program.tree.add({"app/testfile.txt/", ""}); // a folder under a list's name
    program.run([](Form1& form) { EXPECT_TRUE(form.cpvPicScroll1().BestFitMode()); });
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(StartTest, SurvivesSettingsOfGarbage)
{
    program.config.clear();
    QByteArray garbage(10 << 20, '\0');
    for (qsizetype i = 0; i < garbage.size(); i += 7) {
        garbage[i] = static_cast<char>(i * 31 % 251);
    }
    ASSERT_TRUE(platform::writeFileWhole(program.tree.path("app/config.ini"), garbage));
    program.run([](Form1& form) { EXPECT_TRUE(form.isVisible()); });
}

TEST_F(StartTest, SurvivesNonsenseInEveryKey)
{
    for (const char* key : {"BestFit", "BrowserColor", "BrowserSize", "EditorColor", "fastZoomshow",
                            "Filter", "InterfaceB", "InterfaceColor", "No", "ObcBrowse", "Panview",
                            "Scrollshow", "Sno", "SpeciFolder", "WinState", "Xno"}) {
        program.config[QString::fromLatin1(key)] = QStringLiteral("-1e308 nonsense \x01#;=[");
    }
    program.run([](Form1& form) { EXPECT_TRUE(form.isVisible()); });
}
