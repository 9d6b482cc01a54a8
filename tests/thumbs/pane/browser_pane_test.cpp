#include "thumbs/pane/browser_pane.h"

#include "base/twips.h"
#include "core/window_registry.h"
#include "files/explorer/folder_tree.h"
#include "files/transfer.h"
#include "formats/pcx_files.h"
#include "platform/desktop/pointer.h"
#include "platform/os/registry.h"
#include "thumbs/folder_run.h"
#include "thumbs/pane/pane_fixture.h"
#include "thumbs/pane/pane_layout.h"
#include "thumbs/tile_maker.h"
#include "widgets/title_strip.h"

#include <QApplication>
#include <QResizeEvent>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>

constexpr int kWidth = base::pixelsFromTwips(thumbs::kPaneDefaultWidth);
constexpr int kInner = kWidth - 5; // beside the grip

TEST_F(PaneTest, NamesItsParts)
{
    load();
    EXPECT_EQ(m_pane->objectName(), "frmThumbnaillist");
    for (const char* name : {"Picture2", "Dir1", "Splitter", "Tbmiddle", "ThumbNailList1"}) {
        ASSERT_NE(part(name), nullptr) << name;
        EXPECT_FALSE(part(name)->accessibleName().isEmpty()) << name;
    }
    for (int k = 0; k < frmThumbnaillist::kButtons; ++k) {
        EXPECT_EQ(m_pane->Tbmenub(k).objectName(), QStringLiteral("Tbmenub_%1").arg(k));
        EXPECT_FALSE(m_pane->Tbmenub(k).accessibleName().isEmpty());
        EXPECT_FALSE(m_pane->Tbmenub(k).toolTip().isEmpty());
    }
}

TEST_F(PaneTest, IsNobodysPaneBeforeItLoads)
{
    const frmThumbnaillist pane(&m_form);
    EXPECT_EQ(core::services().browserPane, nullptr);
    EXPECT_TRUE(m_main.log.isEmpty());
}

TEST_F(PaneTest, ReadsTheStoredSizeAndColours)
{
    m_config.values["BrowserSize"] = "60";
    m_config.values["BrowserColor"] = "4";
    load();
    EXPECT_TRUE(m_main.log.contains("ThumbNailSize 5"));
    EXPECT_TRUE(m_main.log.contains("ThumbNailColor 4"));
    EXPECT_EQ(m_runs, 0);
}

TEST_F(PaneTest, HasEntriesForOddSettings)
{
    struct Case {
        const char* size;
        const char* colour;
        const char* sizeCall;
        const char* colourCall;
    };
    for (const Case& odd : {Case{"65", "7", "ThumbNailSize 1", "ThumbNailColor 0"},
                            Case{"305", "", "ThumbNailSize 1", "ThumbNailColor 0"},
                            Case{"310", "5", "ThumbNailSize 30", "ThumbNailColor 5"},
                            Case{"ERROR", "ERROR", "ThumbNailSize -1", "ThumbNailColor 0"}}) {
        m_main.log.clear();
        m_config.values["BrowserSize"] = odd.size;
        m_config.values["BrowserColor"] = odd.colour;
        load();
        EXPECT_EQ(m_main.log, (QStringList{odd.sizeCall, odd.colourCall})) << odd.size;
    }
}

TEST_F(PaneTest, IsThePaneOfTheProgramWhileItIsLoaded)
{
    load();
    EXPECT_EQ(core::services().browserPane, m_pane.get());
    list().setAutoUpdateOnPathchange(true);
    m_pane->close();
    EXPECT_EQ(core::services().browserPane, nullptr);
    EXPECT_FALSE(list().AutoUpdateOnPathchange());
}

TEST_F(PaneTest, GoesToTheStoredFolderFirst)
{
    load();
    core::state().CurrentFolder = m_tree.path("other");
    m_pane->PathChange();
    EXPECT_EQ(m_pane->File1().path(), m_tree.path("pics"));
    EXPECT_EQ(m_main.xiala, m_tree.path("pics"));
    m_pane->PathChange();
    EXPECT_EQ(m_pane->File1().path(), m_tree.path("other"));
    EXPECT_EQ(m_main.xiala, m_tree.path("other"));
}

TEST_F(PaneTest, GoesToTheTreesFolderWhereNoneIsStored)
{
    m_config.values["SpeciFolder"] = "";
    load();
    m_pane->treeSelected(m_tree.path("other"));
    EXPECT_EQ(m_pane->File1().path(), m_tree.path("other"));
}

TEST_F(PaneTest, GoesToTheFolderSetForTheStart)
{
    load();
    m_pane->setStartFolder(m_tree.path("other"));
    m_pane->treeSelected(m_tree.path("pics"));
    EXPECT_EQ(m_pane->File1().path(), m_tree.path("other"));
}

TEST_F(PaneTest, KeepsItsFilesWhereTheStoredFolderIsMissing)
{
    m_config.values["SpeciFolder"] = m_tree.path("nowhere");
    load();
    m_pane->treeSelected(m_tree.path("pics"));
    EXPECT_EQ(m_pane->File1().path(), m_tree.path("app"));
    EXPECT_EQ(m_main.xiala, m_tree.path("app"));
}

TEST_F(PaneTest, MakesThePagesOfTheFirstFolderAfterAMissingOne)
{
    m_config.values["SpeciFolder"] = m_tree.path("nowhere");
    start();
    EXPECT_TRUE(m_pane->isFirstFolderShown());
    m_pane->treeSelected(m_tree.path("pics"));
    letEventsRun();
    EXPECT_EQ(m_pane->File1().path(), m_tree.path("pics"));
    for (int k = 0; k < 3; ++k) {
        ASSERT_NE(list().tile(k), nullptr) << k;
    }
    clickTile(2);
    EXPECT_EQ(m_main.xiala, m_tree.path("pics/c.bmp"));
}

// The folder that the files stand on before the first choice is as good as any other.
TEST_F(PaneTest, ShowsTheFolderOfTheProgramWhenItIsChosenFirst)
{
    m_tree.add({"app/own.swf", "x"});
    m_config.values["SpeciFolder"] = m_tree.path("app");
    start();
    EXPECT_EQ(m_runs, 1);
    EXPECT_EQ(list().path(), m_tree.path("app"));
    EXPECT_EQ(platform::getSetting("Locations", "Path"), m_tree.path("app"));
    EXPECT_NE(list().tile(0), nullptr);
}

TEST_F(PaneTest, RunsOnceByTheEndOfTheStart)
{
    load();
    m_pane->show();
    m_pane->activated();
    letEventsRun();
    EXPECT_EQ(m_runs, 0);
    EXPECT_FALSE(list().AutoUpdateOnPathchange());

    m_pane->treeSelected(m_tree.path("pics"));
    EXPECT_EQ(m_runs, 0); // the first path makes no pages by itself
    EXPECT_TRUE(list().AutoUpdateOnPathchange());
    EXPECT_FALSE(m_pane->isFirstFolderShown());
    letEventsRun();
    EXPECT_EQ(m_runs, 1);
    EXPECT_TRUE(m_pane->isFirstFolderShown());
    m_pane->activated();
    letEventsRun();
    EXPECT_EQ(m_runs, 1);
    EXPECT_EQ(list().path(), m_tree.path("pics"));
    EXPECT_NE(list().tile(2), nullptr);
}

TEST_F(PaneTest, RunsWhenItIsFirstShown)
{
    load();
    m_pane->activated();
    m_pane->treeSelected(m_tree.path("pics"));
    letEventsRun();
    EXPECT_EQ(m_runs, 0);
    m_pane->show();
    letEventsRun();
    EXPECT_EQ(m_runs, 1);
}

TEST_F(PaneTest, RunsOnceForEveryLaterFolder)
{
    start();
    m_pane->treeSelected(m_tree.path("other"));
    EXPECT_EQ(m_runs, 2);
    m_pane->treeSelected(m_tree.path("other"));
    EXPECT_EQ(m_runs, 2);
    m_pane->treeSelected(m_tree.path("pics"));
    EXPECT_EQ(m_runs, 3);
}

TEST_F(PaneTest, PutsOffRunsUntilItIsShown)
{
    start();
    m_pane->hide();
    m_pane->treeSelected(m_tree.path("other"));
    EXPECT_EQ(m_runs, 1);
    EXPECT_TRUE(list().AutoUpdateOnPathchange());
    m_pane->show();
    letEventsRun();
    EXPECT_EQ(m_runs, 2);
    EXPECT_NE(list().tile(0), nullptr);
}

TEST_F(PaneTest, RunsForNoSizeBeforeTheFirstFolder)
{
    load();
    m_pane->show();
    m_pane->setThumbnailSize(100);
    m_pane->setColourPreset(5);
    m_pane->rebuildThumbnails();
    EXPECT_EQ(m_runs, 0);
    EXPECT_EQ(list().ThumbNailSize(), 100);
    EXPECT_EQ(list().ThumbPageColorPresets(), 5);
    EXPECT_EQ(list().ThumbNailBorderColor(), 0xC0C0C0U);
}

// As a desktop does that makes the window small for a moment before it has its last word.
TEST_F(PaneTest, LooksAsBeforeWhenItsWindowGetsItsSizeBack)
{
    start();
    const QImage before = list().grab().toImage();
    for (const int height : {3000, 12000}) {
        m_main.viewerHeight = height;
        m_pane->ThumResize();
        QResizeEvent resized(m_form.size(), m_form.size());
        QSpontaneKeyEvent::setSpontaneous(&resized);
        qApp->notify(&m_form, &resized); // which keeps the mark
    }
    letEventsRun();
    EXPECT_EQ(m_runs, 2);
    EXPECT_EQ(list().grab().toImage(), before);
}

TEST_F(PaneTest, TellsOthersAboutANewPath)
{
    start();
    core::state().FirstActivate = false;
    std::vector<bool> enabled;
    QObject::connect(&list(), &ThumbNailList::ThumbPathChange, &list(), [&] {
        for (int k = 0; k < frmThumbnaillist::kButtons; ++k) {
            enabled.push_back(m_pane->Tbmenub(k).isEnabled());
        }
    });
    m_pane->treeSelected(m_tree.path("other"));
    EXPECT_TRUE(core::state().FirstActivate);
    EXPECT_EQ(m_main.dir2, m_tree.path("other"));
    EXPECT_EQ(platform::getSetting("Locations", "Path"), m_tree.path("other"));
    EXPECT_EQ(platform::getSetting("Locations", "drive"),
              platform::drivePrefix(m_tree.path("other")));
    EXPECT_EQ(enabled,
              (std::vector<bool>{true, false, false, false, false, false, false, false, true}));
    for (int k = 0; k < frmThumbnaillist::kButtons; ++k) {
        EXPECT_TRUE(m_pane->Tbmenub(k).isEnabled()) << k;
    }
}

// A folder that loads while other things happen.
class BusyPaneTest : public PaneTest {
protected:
    BusyPaneTest()
    {
        for (int k = 0; k < 20; ++k) {
            m_tree.add({"many/f" + std::to_string(100 + k) + ".swf", "x"});
            m_tree.add({"more/f" + std::to_string(100 + k) + ".swf", "x"});
        }
    }

    // Chooses a folder and does something once a number of its tiles are there.
    void whileLoading(const char* folder, int tiles, const std::function<void()>& action)
    {
        bool done = false;
        QTimer yield;
        QObject::connect(&yield, &QTimer::timeout, &yield, [&] {
            if (!done && list().tile(tiles - 1) != nullptr) {
                done = true;
                action();
            }
        });
        yield.start(0);
        m_pane->treeSelected(m_tree.path(folder));
        EXPECT_TRUE(done);
    }
};

TEST_F(BusyPaneTest, LeavesTheTileThatWasChosenInTheField)
{
    start();
    m_dialogs.yesNoAnswers = {true};
    whileLoading("many", 5, [this] { clickTile(1); });
    EXPECT_EQ(m_main.xiala, m_tree.path("many/f101.swf"));
    m_main.fakeViewer.pictureExists = true;
    press(4);
    EXPECT_EQ(m_desktop.trashed, (QStringList{m_tree.path("many/f101.swf")}));
    m_pane->treeSelected(m_tree.path("pics"));
    EXPECT_EQ(m_main.xiala, m_tree.path("pics"));
}

// Stepping, a favourite and the Open dialog write their file there, too.
TEST_F(BusyPaneTest, LeavesAnyFileThatWasShownInTheField)
{
    start();
    whileLoading("many", 5, [this] { m_main.setXiala(m_tree.path("pics/b.bmp")); });
    EXPECT_EQ(m_main.xiala, m_tree.path("pics/b.bmp"));
}

TEST_F(BusyPaneTest, TellsTheLastFolderToAll)
{
    start();
    whileLoading("many", 5, [this] { m_pane->treeSelected(m_tree.path("more")); });
    EXPECT_EQ(m_main.xiala, m_tree.path("more"));
    EXPECT_EQ(m_main.dir2, m_tree.path("more"));
    EXPECT_EQ(platform::getSetting("Locations", "Path"), m_tree.path("more"));
    EXPECT_EQ(platform::getSetting("Locations", "drive"),
              platform::drivePrefix(m_tree.path("more")));
    EXPECT_EQ(list().path(), m_tree.path("more"));
    clickTile(19);
    EXPECT_EQ(m_main.xiala, m_tree.path("more/f119.swf"));
}

TEST_F(BusyPaneTest, LeavesTheTileChosenInTheLastFolderInTheField)
{
    start();
    whileLoading("many", 5, [this] {
        m_pane->treeSelected(m_tree.path("more"));
        clickTile(7);
    });
    EXPECT_EQ(m_main.xiala, m_tree.path("more/f107.swf"));
}

TEST_F(BusyPaneTest, AClickLeavesThePointerOfTheRun)
{
    start();
    platform::Pointer after = platform::Pointer::Default;
    whileLoading("many", 5, [this, &after] {
        clickTile(1);
        after = platform::pointer();
    });
    EXPECT_EQ(after, platform::Pointer::ArrowHourGlass);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(PaneTest, StoresTheDriveOfTheHomeFolder)
{
    m_tree.add({"home/Pictures/p.swf", "p"});
    start();
    m_pane->treeSelected(m_tree.path("home/Pictures"));
    EXPECT_EQ(platform::getSetting("Locations", "drive"), m_tree.path("home"));
}

TEST_F(PaneTest, ShowsAClickedTileInTheViewer)
{
    start();
    m_main.log.clear();
    core::state().PictureChanged = true;
    clickTile(1);
    const QString path = m_tree.path("pics/b.bmp");
    EXPECT_EQ(m_main.log, (QStringList{"viewer picture 60x40", "addRecentPath " + path,
                                       "setMenuState 1", "viewer Refresh", "viewer focus"}));
    EXPECT_EQ(m_main.statusBar.panel(core::Panel::FileName), "b.bmp     ");
    EXPECT_EQ(m_main.statusBar.panel(core::Panel::Width), "60 Pixel");
    EXPECT_EQ(m_main.xiala, path);
    EXPECT_EQ(m_main.image1.picture().width(), 60);
    EXPECT_EQ(m_pane->File1().listIndex(), 1);
    EXPECT_EQ(core::state().CurrentFile, path);
    EXPECT_FALSE(core::state().PictureChanged);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    EXPECT_EQ(core::state().CurrentFolder, m_tree.path("pics"));
}

TEST_F(PaneTest, DecodesAClickedForeignFile)
{
    m_tree.add({"pics/d.PCX", greyPcx(4, 2)});
    start();
    m_main.log.clear();
    clickTile(3);
    const QString path = m_tree.path("pics/d.PCX");
    EXPECT_EQ(m_main.log, (QStringList{"viewer picture 4x2", "addRecentPath " + path,
                                       "setMenuState 1", "viewer Refresh", "viewer focus"}));
    EXPECT_EQ(m_main.statusBar.panel(core::Panel::FileName), "d.PCX     ");
    EXPECT_EQ(m_main.statusBar.panel(core::Panel::Width), "4      Pixel");
}

TEST_F(PaneTest, GoesOnWithAFileThatCannotBeLoaded)
{
    m_tree.add({"pics/d.jpg", "no picture at all"});
    start();
    clickTile(0);
    m_main.log.clear();
    clickTile(3);
    EXPECT_EQ(m_main.fakeViewer.picture.width(), 60);
    EXPECT_TRUE(m_main.image1.picture().isNothing());
    EXPECT_EQ(m_main.xiala, m_tree.path("pics/d.jpg"));
    EXPECT_EQ(m_pane->File1().listIndex(), 3);
    EXPECT_TRUE(m_main.log.contains("addRecentPath " + m_tree.path("pics/d.jpg")));
    EXPECT_TRUE(m_dialogs.boxes.empty());
}

TEST_F(PaneTest, RoutesADoubleClickedTile)
{
    start();
    clickTile(2);
    m_main.log.clear();
    m_main.xiala.clear();
    QTest::mouseDClick(&list().surface().viewport, Qt::LeftButton, {}, tile(2));
    EXPECT_EQ(m_main.log, (QStringList{"viewer picture 60x40", "viewer focus"}));
    EXPECT_EQ(core::state().CurrentFile, m_tree.path("pics/c.bmp"));
    EXPECT_EQ(m_main.xiala, m_tree.path("pics/c.bmp"));
}

TEST_F(PaneTest, AsksForAPictureWhereAButtonNeedsOne)
{
    start();
    constexpr bool kNeedsPicture[] = {false, false, true, true, true, true, true, true, false};
    for (int k = 0; k < frmThumbnaillist::kButtons; ++k) {
        m_dialogs.boxes.clear();
        m_main.fakeViewer.pictureExists = false;
        press(k);
        EXPECT_EQ(m_dialogs.boxes.size(), kNeedsPicture[k] ? 1U : 0U) << k;
        if (kNeedsPicture[k] && m_dialogs.boxes.size() == 1U) {
            EXPECT_EQ(m_dialogs.boxes[0].text, "No picture to process.");
            EXPECT_EQ(m_dialogs.boxes[0].icon, platform::BoxIcon::Information);
        }
    }
    EXPECT_TRUE(m_dialogs.subjects.empty());
}

TEST_F(PaneTest, HostsTheFolderTree)
{
    load();
    m_pane->show();
    files::FolderTree& tree = files::folderTree();
    QRect place;
    QStringList paths;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        if (!m_pane->isFirstFolderShown() || list().surface().state.IsLoading) {
            return;
        }
        poll.stop();
        place = tree.widget()->geometry();
        m_pane->resize(400, 800);
        EXPECT_EQ(tree.widget()->width(), 400 - 19);
        press(0); // the parent is selected in the tree, which tells the pane
        paths.append(m_pane->File1().path());
        EXPECT_EQ(tree.selected(), m_pane->File1().path());
        tree.close();
    });
    poll.start(1);
    tree.open(m_pane->treeHost(), m_tree.path("pics"),
              [this](const QString& folder) { m_pane->treeSelected(folder); });
    EXPECT_EQ(place, QRect(0, 0, kWidth - 19, part("Dir1")->height() - 2));
    EXPECT_EQ(paths, (QStringList{m_tree.root()}));
    EXPECT_EQ(m_runs, 2);
}

TEST_F(PaneTest, LeadsTheTreeToAFolderThatAnotherWindowAsksFor)
{
    load();
    m_pane->show();
    files::FolderTree& tree = files::folderTree();
    const QString other = m_tree.path("other");
    QString highlighted;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        if (!m_pane->isFirstFolderShown() || list().surface().state.IsLoading) {
            return;
        }
        poll.stop();
        core::services().browserPane->applyPath(other);
        highlighted = tree.selected();
        tree.close();
    });
    poll.start(1);
    tree.open(m_pane->treeHost(), m_tree.path("pics"),
              [this](const QString& folder) { m_pane->treeSelected(folder); });
    EXPECT_EQ(highlighted, other);
    EXPECT_EQ(core::state().CurrentFolder, other);
    EXPECT_EQ(m_pane->File1().path(), other);
    EXPECT_EQ(list().surface().state.ThumbTable.filledRow(0)->path, m_tree.path("other/y.swf"));
}

TEST_F(PaneTest, HandsOutItsThumbnailsWhileItIsThere)
{
    EXPECT_EQ(thumbs::paneThumbnails(), nullptr);
    load();
    EXPECT_EQ(thumbs::paneThumbnails(), &list());
    m_pane.reset();
    EXPECT_EQ(thumbs::paneThumbnails(), nullptr);
}

TEST_F(PaneTest, GoesUpToTheRootAndNoFurther)
{
    start();
    m_pane->treeSelected(m_tree.path("pics/sub"));
    press(0);
    EXPECT_EQ(m_pane->File1().path(), m_tree.path("pics"));
    press(0);
    EXPECT_EQ(m_pane->File1().path(), m_tree.root());
    EXPECT_EQ(core::state().CurrentFolder, m_tree.root());
    m_pane->treeSelected("/");
    press(0);
    EXPECT_EQ(m_pane->File1().path(), "/");
}

TEST_F(PaneTest, OpensTheFolderTools)
{
    start();
    m_main.log.clear();
    press(1);
    EXPECT_EQ(m_main.log, (QStringList{"popUpFolderTools"}));
    QTest::mouseClick(part("Tbmiddle"), Qt::RightButton, {}, {part("Tbmiddle")->width() - 2, 3});
    EXPECT_EQ(m_main.log.size(), 2);
    QTest::mouseClick(part("Tbmiddle"), Qt::LeftButton, {}, {part("Tbmiddle")->width() - 2, 3});
    EXPECT_EQ(m_main.log.size(), 2);
}

TEST_F(PaneTest, ShowsPropertiesOfTheFileInTheField)
{
    start();
    clickTile(0);
    press(2);
    EXPECT_EQ(m_desktop.shownProperties, (QStringList{m_tree.path("pics/a.bmp")}));
}

TEST_F(PaneTest, MovesTheFileInTheFieldToTheTrash)
{
    start();
    clickTile(0);
    press(4);
    ASSERT_EQ(m_dialogs.boxes.size(), 1U);
    EXPECT_TRUE(m_dialogs.boxes[0].text.contains(m_tree.path("pics/a.bmp")));
    EXPECT_TRUE(m_desktop.trashed.isEmpty());
    m_dialogs.yesNoAnswers = {true};
    press(4);
    EXPECT_EQ(m_desktop.trashed, (QStringList{m_tree.path("pics/a.bmp")}));
    EXPECT_EQ(m_dialogs.boxes.size(), 2U) << "the two questions";
}

TEST_F(PaneTest, SaysThatAFileStays)
{
    start();
    clickTile(0);
    m_dialogs.yesNoAnswers = {true};
    m_desktop.succeeds = false;
    press(4);
    ASSERT_EQ(m_dialogs.boxes.size(), 2U) << "the question and what came of it";
    EXPECT_TRUE(m_dialogs.boxes[1].text.contains(m_tree.path("pics/a.bmp")));
}

TEST_F(PaneTest, NamesTheFolderBeforeItDeletesIt)
{
    start();
    m_main.fakeViewer.pictureExists = true;
    m_main.xiala = m_tree.path("other"); // right after a change of folder
    press(4);
    ASSERT_EQ(m_dialogs.boxes.size(), 1U);
    EXPECT_TRUE(m_dialogs.boxes[0].text.contains(m_tree.path("other")));
}

class ModalWindow : public QWidget, public files::TransferWindow {
public:
    explicit ModalWindow(QWidget* parent)
        : QWidget(parent, Qt::Window)
    {
    }
    void setTransfer(const files::Transfer& told) override { transfer = told; }

    files::Transfer transfer;
};

// A modal window that closes as soon as it is shown and writes down how it was set up.
class PaneWindowsTest : public PaneTest {
protected:
    PaneWindowsTest()
    {
        for (const core::Window which : kModalWindows) {
            core::windows().add(which, [this, which] {
                auto* window = new ModalWindow(&m_form);
                QTimer::singleShot(0, window, [this, window, which] {
                    m_transfer = window->transfer;
                    m_shown.append(core::windowName(which) + " " + m_transfer.title);
                    m_modal = window->isModal();
                    m_pointer = platform::pointer();
                    window->close();
                });
                return window;
            });
        }
    }
    ~PaneWindowsTest() override
    {
        for (const core::Window which : kModalWindows) {
            core::windows().unload(which);
            core::windows().add(which, [] { return nullptr; });
        }
    }

    static constexpr std::array kModalWindows{core::Window::Form5rf, core::Window::Movefile,
                                              core::Window::Favorties};

    QStringList m_shown;
    files::Transfer m_transfer;
    bool m_modal = false;
    platform::Pointer m_pointer = platform::Pointer::Default;
};

TEST_F(PaneWindowsTest, RenamesInAModalWindow)
{
    start();
    clickTile(0);
    press(3);
    EXPECT_EQ(m_shown, (QStringList{"Form5rf "}));
    EXPECT_TRUE(m_modal);
    EXPECT_EQ(m_pointer, platform::Pointer::Default);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(PaneWindowsTest, CopiesAndMovesInAModalWindow)
{
    start();
    clickTile(0);
    press(5);
    EXPECT_EQ(m_shown, (QStringList{"Movefile Copy File to..."}));
    EXPECT_EQ(m_transfer.picture, m_tree.path("app/Images/Copyfile.jpg"));
    EXPECT_EQ(m_transfer.preview, m_tree.path("pics/a.bmp"));
    EXPECT_FALSE(core::state().MoveNotCopy);
    EXPECT_TRUE(m_modal);
    press(6);
    EXPECT_EQ(m_shown.last(), "Movefile Move file to...");
    EXPECT_EQ(m_transfer.picture, m_tree.path("app/Images/Movefile.jpg"));
    EXPECT_TRUE(core::state().MoveNotCopy);
}

TEST_F(PaneWindowsTest, PreviewsForeignFilesByTheWorkingFile)
{
    m_tree.add({"pics/d.psd", "no picture at all"});
    start();
    clickTile(0);
    QImage picture(4, 3, QImage::Format_RGB32);
    picture.fill(Qt::red); // as a run over the folder leaves another file's picture there
    ASSERT_TRUE(picture.save(m_tree.path("app/temp.bmp")));
    picture.fill(Qt::blue);
    m_main.fakeViewer.picture = platform::Picture(picture);
    m_main.xiala = m_tree.path("pics/d.psd");
    press(5);
    EXPECT_EQ(m_transfer.preview, m_tree.path("app/temp.bmp"));
    EXPECT_EQ(QImage(m_tree.path("app/temp.bmp")).pixelColor(1, 1), QColor(Qt::blue));
}

TEST_F(PaneWindowsTest, OpensFavouritesInAModalWindow)
{
    start();
    clickTile(0);
    press(7);
    EXPECT_EQ(m_shown, (QStringList{"Favorties "}));
    EXPECT_TRUE(m_modal);
}

TEST_F(PaneTest, RefreshesWithFilesThatCameAndWent)
{
    start();
    clickTile(1);
    m_tree.add({"pics/0.swf", "x"});
    m_tree.remove("pics/c.bmp");
    press(8);
    EXPECT_EQ(m_runs, 2);
    EXPECT_EQ(list().tile(0)->path, m_tree.path("pics/0.swf"));
    EXPECT_EQ(list().tile(3), nullptr);
    EXPECT_EQ(m_pane->File1().fileName(), "b.bmp"); // the place in the folder stays
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(PaneTest, StepsOnFromTheTilesFileAfterAnotherOneWasRenamed)
{
    start();
    std::filesystem::rename(m_tree.native("pics/a.bmp"), m_tree.native("pics/z.bmp"));
    m_pane->File1().refresh();
    clickTile(1);
    EXPECT_EQ(m_main.xiala, m_tree.path("pics/b.bmp"));
    EXPECT_EQ(m_pane->File1().fileName(), "b.bmp");
}

TEST_F(PaneTest, LaysOutItsPartsBelowEachOther)
{
    start();
    EXPECT_EQ(m_pane->width(), kWidth);
    EXPECT_EQ(m_pane->height(), 800); // of the viewer
    const int title = part("Picture2")->height();
    EXPECT_EQ(part("Dir1")->geometry(), QRect(0, title, kInner, 166 - title));
    EXPECT_EQ(part("Splitter")->geometry(), QRect(0, 166, kInner, 5));
    EXPECT_EQ(part("Tbmiddle")->y(), 171);
    EXPECT_EQ(part("ThumbNailList1")->y(), 171 + part("Tbmiddle")->height());
    EXPECT_EQ(part("ThumbNailList1")->width(), kInner);
    EXPECT_GE(part("ThumbNailList1")->geometry().bottom(), 800 - 8);
    EXPECT_LT(m_pane->Tbmenub(8).geometry().right(), part("Tbmiddle")->width());
}

TEST_F(PaneTest, HoldsTheLargestThumbnails)
{
    start();
    m_pane->setThumbnailSize(300);
    m_pane->rebuildThumbnails();
    EXPECT_GE(list().surface().state.PageColumns, 1);
}

TEST_F(PaneTest, PutsItsButtonsInRowsWhereItIsNarrow)
{
    start();
    m_pane->resize(100, 800);
    m_pane->ThumResize();
    EXPECT_EQ(m_pane->width(), 133);
    QRegion covered;
    for (int k = 0; k < frmThumbnaillist::kButtons; ++k) {
        const QRect place = m_pane->Tbmenub(k).geometry();
        EXPECT_TRUE(part("Tbmiddle")->rect().contains(place)) << k;
        EXPECT_FALSE(covered.intersects(place)) << k;
        covered += place;
    }
    EXPECT_EQ(part("ThumbNailList1")->y(), part("Tbmiddle")->geometry().bottom() + 1);
    m_pane->resize(2000, 800);
    m_pane->ThumResize();
    EXPECT_EQ(m_pane->width(), 604);
}

TEST_F(PaneTest, HasTheMainWindowLaidOutAnewOnce)
{
    start();
    m_main.log.clear();
    m_pane->ThumResize();
    EXPECT_EQ(m_main.log, (QStringList{"form1paint"}));
}

TEST_F(PaneTest, LaysOutNothingInPictureMode)
{
    start();
    core::state().PictureWide = true;
    m_main.log.clear();
    m_main.viewerHeight = 6000;
    m_pane->ThumResize();
    EXPECT_TRUE(m_main.log.isEmpty());
    EXPECT_EQ(m_pane->height(), 800);
}

TEST_F(PaneTest, DragsTheSplitterWithinItsLimits)
{
    start();
    QWidget* splitter = part("Splitter");
    const int title = part("Picture2")->height();
    EXPECT_EQ(splitter->cursor().shape(), Qt::SizeVerCursor);

    QTest::mousePress(splitter, Qt::LeftButton, {}, {50, 2});
    EXPECT_EQ(splitter->height(), 1);
    QTest::mouseMove(splitter, {50, 2 - 60});
    EXPECT_EQ(splitter->pos(), QPoint(0, 106));
    QTest::mouseRelease(splitter, Qt::LeftButton, {}, {50, 2});
    EXPECT_EQ(splitter->geometry(), QRect(0, 106, kInner, 5));
    EXPECT_EQ(part("Dir1")->height(), 106 - title);

    QTest::mousePress(splitter, Qt::LeftButton, {}, {50, 2});
    QTest::mouseRelease(splitter, Qt::LeftButton, {}, {50, 2 - 106});
    EXPECT_EQ(splitter->y(), (title * 15 + 100) / 15);

    QTest::mousePress(splitter, Qt::LeftButton, {}, {50, 2});
    QTest::mouseRelease(splitter, Qt::LeftButton, {}, {50, 500});
    EXPECT_EQ(splitter->y(), 166);
}

TEST_F(PaneTest, HoldsTheSplitterDuringARun)
{
    start();
    bool enabledThen = true;
    QObject::connect(&list(), &ThumbNailList::ThumbPageStatus, &list(),
                     [&] { enabledThen = part("Splitter")->isEnabled(); });
    m_pane->treeSelected(m_tree.path("other"));
    EXPECT_FALSE(enabledThen);
    EXPECT_TRUE(part("Splitter")->isEnabled());
}

TEST_F(PaneTest, LeavesTheSplitterToRunsThatDoNotHoldIt)
{
    class FreeTiles : public thumbs::TileMaker {
    public:
        using TileMaker::TileMaker;
        [[nodiscard]] thumbs::HostHold hold() const override
        {
            return {false, platform::Pointer::ArrowHourGlass};
        }
    };
    start();
    bool enabledThen = false;
    QObject::connect(&list(), &ThumbNailList::ThumbPageStatus, &list(),
                     [&] { enabledThen = part("Splitter")->isEnabled(); });
    FreeTiles step(list());
    thumbs::FolderRun(list(), step).run();
    EXPECT_EQ(m_runs, 2);
    EXPECT_TRUE(enabledThen);
}

TEST_F(PaneTest, KeepsHoldingTheSplitterAfterARefusal)
{
    start();
    list().setMaxThumbnailpages(-1);
    m_pane->treeSelected(m_tree.path("other"));
    EXPECT_EQ(m_dialogs.boxes.size(), 1U);
    EXPECT_FALSE(part("Splitter")->isEnabled());
    EXPECT_EQ(platform::pointer(), platform::Pointer::ArrowHourGlass);
    list().setMaxThumbnailpages(100);
    m_pane->rebuildThumbnails();
    EXPECT_TRUE(part("Splitter")->isEnabled());
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(PaneTest, ChangesItsWidthAtItsEdge)
{
    start();
    m_main.log.clear();
    QWidget* grip = part("p1");
    EXPECT_EQ(grip->width(), 5);
    EXPECT_EQ(grip->cursor().shape(), Qt::SizeHorCursor);
    QTest::mousePress(grip, Qt::LeftButton, {}, {2, 300});
    QMouseEvent drag(QEvent::MouseMove, QPointF(82, 300), grip->mapToGlobal(QPointF(82, 300)),
                     Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(grip, &drag);
    EXPECT_EQ(m_pane->width(), kWidth + 80);
    EXPECT_TRUE(m_main.log.contains("form1paint"));
    EXPECT_EQ(m_pane->widthTwips(), thumbs::kPaneDefaultWidth + 1200);
}

TEST_F(PaneTest, TakesTheLookOfTheSettingsWhenItLoads)
{
    m_config.values["InterfaceB"] = "False";
    m_config.values["InterfaceColor"] = "255";
    load();
    auto* strip = m_pane->findChild<widgets::TitleStrip*>("Picture2");
    ASSERT_NE(strip, nullptr);
    EXPECT_FALSE(strip->hasPicture());
    EXPECT_EQ(strip->backgroundColour(), QColor(255, 0, 0));
}

TEST_F(PaneTest, ShowsNothingForThePageStatus)
{
    start();
    m_main.log.clear();
    const auto panels = m_main.statusBar.panels;
    emit list().ThumbPageStatus(60, 24, 3, 70);
    EXPECT_TRUE(m_main.log.isEmpty());
    EXPECT_EQ(m_main.statusBar.panels, panels);
    EXPECT_TRUE(m_dialogs.boxes.empty());
}

TEST_F(PaneTest, SurvivesItsEndInARun)
{
    start();
    for (int k = 0; k < 10; ++k) {
        m_tree.add({"many/f" + std::to_string(k) + ".swf", "x"});
    }
    QTimer::singleShot(0, &m_form, [this] { m_pane.reset(); });
    m_pane->treeSelected(m_tree.path("many"));
    EXPECT_EQ(m_pane, nullptr);
    EXPECT_EQ(core::services().browserPane, nullptr);
    platform::setPointer(platform::Pointer::Default);
}
