#include "core/browser_pane.h"
#include "core/services.h"
#include "core/state.h"
#include "files/explorer/folder_tree.h"
#include "platform/os/file_list.h"
#include "platform/os/registry.h"
#include "shell/file_name_field.h"
#include "shell/menus.h"
#include "shell/running_program.h"
#include "shell/toolbars.h"
#include "thumbs/thumbnail_list.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAction>
#include <QApplication>
#include <QWheelEvent>
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <set>
#include <sys/inotify.h>
#include <unistd.h>
#include <vector>

namespace {

const QString kMarkerKey = QStringLiteral("Software\\Corvane\\Qlink");
const QString kMarkerName = QStringLiteral("Brelmark");

// Which files of a folder are opened, in the order in which they first are.
class FileOpenings {
public:
    explicit FileOpenings(const std::string& folder)
        : m_watch(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        EXPECT_GE(::inotify_add_watch(m_watch, folder.c_str(), IN_OPEN), 0);
    }
    ~FileOpenings() { ::close(m_watch); }
    FileOpenings(const FileOpenings&) = delete;
    FileOpenings& operator=(const FileOpenings&) = delete;

    [[nodiscard]] std::vector<std::string> firstOf(const std::set<std::string>& wanted) const
    {
        std::vector<std::string> order;
        alignas(inotify_event) char buffer[65536];
        for (ssize_t got = 0; (got = ::read(m_watch, buffer, sizeof buffer)) > 0;) {
            for (ssize_t at = 0; at < got;) {
                inotify_event event{};
                std::memcpy(&event, buffer + at, sizeof event);
                const std::string name = event.len > 0 ? buffer + at + sizeof event : "";
                if (wanted.contains(name) &&
                    std::find(order.begin(), order.end(), name) == order.end()) {
                    order.push_back(name);
                }
                at += static_cast<ssize_t>(sizeof event + event.len);
            }
        }
        return order;
    }

private:
    int m_watch;
};

class StartTest : public testing::Test {
protected:
    static void turnWheel(Form1& form, int eighths, Qt::ScrollPhase phase = Qt::NoScrollPhase)
    {
        const QPointF place(form.rect().center());
        QWheelEvent event(place, form.mapToGlobal(place), {}, {0, eighths}, Qt::NoButton,
                          Qt::NoModifier, phase, false);
        QApplication::sendEvent(&form, &event);
    }

    RunningProgram program;
};

} // namespace

TEST_F(StartTest, ComesUpInItsOrderAndLeavesWhenTheTreeCloses)
{
    program.run([](Form1& form) {
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(files::folderTree().isOpen());
        EXPECT_FALSE(core::windows().isLoaded(core::Window::frmWelcome));
    });
    EXPECT_EQ(program.steps,
              (QStringList{QStringLiteral("welcome shown"), QStringLiteral("main window loaded"),
                           QStringLiteral("pane shown"), QStringLiteral("modes restored"),
                           QStringLiteral("folder tree opened")}));
    EXPECT_FALSE(files::folderTree().isOpen());
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(StartTest, UnloadsItsWindowsInOrder)
{
    program.run([](Form1& form) {
        form.fastZoomshow();
        core::windows().show(core::Window::frmAbout);
        core::windows().show(core::Window::frmMsg);
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
        EXPECT_TRUE(core::windows().isLoaded(core::Window::fastZoom));
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
    RunningProgram missing;
    missing.run([](Form1& form) { EXPECT_EQ(form.cpvPicScroll1().BackColor(), 0x8000000FU); });
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

TEST_F(StartTest, StepsBackByAWheelWithoutADirectionButNotByFingersLifted)
{
    program.run([this](Form1& form) {
        turnWheel(form, -120);
        turnWheel(form, -120);
        ASSERT_EQ(form.Xiala(), program.picture("b.bmp"));
        turnWheel(form, 0, Qt::ScrollBegin);
        turnWheel(form, 0, Qt::ScrollEnd);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
        turnWheel(form, -120, Qt::ScrollUpdate);
        EXPECT_EQ(form.Xiala(), program.picture("c.bmp"));
        turnWheel(form, 0);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
    });
}

TEST_F(StartTest, ReadsItsListsInOrder)
{
    for (const char* name : {"SwitchName.txt", "testfile.txt", "xialafile.txt"}) {
        program.tree.add({std::string("app/") + name, "a#b;"});
    }
    const FileOpenings openings(program.tree.native("app"));
    program.run([](Form1&) {});
    EXPECT_EQ(openings.firstOf({"SwitchName.txt", "testfile.txt", "xialafile.txt"}),
              (std::vector<std::string>{"testfile.txt", "xialafile.txt", "SwitchName.txt"}));
}

TEST_F(StartTest, HasEmptyListsWithoutTheirFiles)
{
    for (const char* key : {"No", "Xno", "Sno"}) {
        program.config[QString::fromLatin1(key)] = QStringLiteral("3");
    }
    program.run([](Form1& form) {
        EXPECT_EQ(form.menus().entry(QStringLiteral("mnuFav"), 1), nullptr);
        EXPECT_EQ(form.menus().entry(QStringLiteral("Dip"), 4), nullptr);
        EXPECT_EQ(form.findChild<shell::FileNameField*>()->count(), 0);
    });
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(StartTest, ComesUpWithoutItsPicturesAndItsAnimation)
{
    program.tree.remove("app/Images");
    program.run([](Form1& form) { EXPECT_TRUE(form.isVisible()); });
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(StartTest, RunsTheGalleryOnce)
{
    program.run([](Form1& form) {
        auto* tiles = form.findChild<ThumbNailList*>();
        int runs = 0;
        QObject::connect(tiles, &ThumbNailList::ThumbPageStatus, &form, [&runs] { ++runs; });
        QApplication::processEvents();
        QApplication::processEvents();
        EXPECT_EQ(runs, 0); // the one of the start is over
        EXPECT_NE(tiles->tile(2), nullptr);
        form.findChild<QWidget*>(QStringLiteral("Xiala"))->setFocus();
        RunningProgram::click(*core::windows().find(core::Window::frmThumbnaillist));
        QApplication::processEvents();
        EXPECT_EQ(runs, 0);
    });
}

TEST_F(StartTest, FollowsTheTreesSelectionOnce)
{
    program.tree.add({"more/x.swf", "x"});
    program.run([this](Form1& form) {
        auto* tiles = form.findChild<ThumbNailList*>();
        int runs = 0;
        QObject::connect(tiles, &ThumbNailList::ThumbPageStatus, &form, [&runs] { ++runs; });
        files::folderTree().select(program.tree.path("more"));
        EXPECT_EQ(runs, 1);
        EXPECT_EQ(core::state().CurrentFolder, program.tree.path("more"));
        EXPECT_EQ(form.Xiala(), program.tree.path("more"));
        EXPECT_EQ(form.Dir2(), program.tree.path("more"));
        files::folderTree().select(program.tree.path("more"));
        EXPECT_EQ(runs, 1);
    });
}

TEST_F(StartTest, KeepsTheTreeInThePane)
{
    program.run([](Form1& form) {
        auto* pane = core::windows().find(core::Window::frmThumbnaillist);
        const QWidget* host = form.findChild<QWidget*>(QStringLiteral("Dir1"));
        const QWidget* tree = files::folderTree().widget();
        for (const int width : {300, 420}) {
            pane->resize(width, pane->height());
            core::services().browserPane->ThumResize();
            EXPECT_EQ(tree->geometry(), QRect(0, 0, width - 19, host->height() - 2));
            EXPECT_EQ(tree->parentWidget(), host);
        }
    });
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
