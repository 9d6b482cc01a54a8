#include "files/transfer_window.h"

#include "core/state.h"
#include "core/window_registry.h"
#include "files/explorer/ctl_explorer.h"
#include "files/explorer/fake_places.h"
#include "files/folder_list.h"
#include "platform/desktop/pump.h"
#include "support/fake_browser_pane.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/full_disk.h"
#include "support/memory_config_store.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"
#include "support/unruly_disk.h"
#include "widgets/plain_tip.h"

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

using files::TransferKind;

constexpr std::size_t kLarge = std::size_t(9) << 20;

// Does something once, when the transfer has let a number of events run.
class Meanwhile : public core::ProgressStrip {
public:
    explicit Meanwhile(std::function<void()> act)
        : m_act(std::move(act))
        , m_before(core::services().progress)
    {
        core::services().progress = this;
    }
    ~Meanwhile() override { core::services().progress = m_before; }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

    void showStrip(bool visible) override { isShown = visible; }
    void setBackground(base::Colour /*colour*/) override {}
    void fill(double fraction, base::Colour /*colour*/) override
    {
        fractions.push_back(fraction);
        if (fractions.size() == 3) {
            QTimer::singleShot(0, QApplication::instance(), m_act);
        }
    }

    bool isShown = false;
    std::vector<double> fractions;

private:
    std::function<void()> m_act;
    core::ProgressStrip* m_before;
};

class TransferTest : public testing::Test {
protected:
    TransferTest()
    {
        core::windows().add(core::Window::Movefile, [this] { return new Movefile(places); });
        core::state().MoveNotCopy = false;
        main.xiala = tree.path("pics/sea.bmp");
        main.fakeViewer.picture = platform::Picture(QImage(4, 3, QImage::Format_RGB32));
    }
    ~TransferTest() override
    {
        platform::resetClosing();
        core::windows().unload(core::Window::Movefile);
        core::windows().deleteForgotten();
        core::windows().add(core::Window::Movefile, [] { return nullptr; });
    }

    // Opens the window for the file in hand, as the menus do.
    QWidget& open(TransferKind kind)
    {
        core::state().MoveNotCopy = kind == TransferKind::Move;
        QWidget* window = core::windows().load(core::Window::Movefile);
        dynamic_cast<files::TransferWindow&>(*window).setTransfer(
            {QStringLiteral("Copy File to..."), tree.path("app/Images/Copyfile.jpg"), main.xiala});
        core::windows().show(core::Window::Movefile);
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        return *window;
    }

    template<typename Part> static Part& part(const QWidget& window, const char* name)
    {
        auto* found = window.findChild<Part*>(QString::fromLatin1(name));
        if (found == nullptr) {
            qFatal("There is no %s.", name);
        }
        return *found;
    }

    static QComboBox& target(const QWidget& window) { return part<QComboBox>(window, "Cb1"); }
    static QComboBox& drives(const QWidget& window) { return part<QComboBox>(window, "Drive1"); }
    static ctlExplorer& explorer(const QWidget& window)
    {
        return part<ctlExplorer>(window, "ctlExplorer1");
    }
    static files::FolderList& folders(const QWidget& window)
    {
        return part<files::FolderList>(window, "Dir1");
    }
    static QPushButton& button(const QWidget& window, const char* name)
    {
        return part<QPushButton>(window, name);
    }

    static void press(QWidget& window, Qt::Key key) { QTest::keyClick(window.focusWidget(), key); }

    // Types a folder into the field, where the focus is at first, and takes it by Return.
    static void type(QWidget& window, const QString& folder)
    {
        target(window).lineEdit()->setFocus();
        target(window).lineEdit()->selectAll();
        QTest::keyClicks(target(window).lineEdit(), folder);
    }

    QWidget* goTo(TransferKind kind, const QString& folder)
    {
        QWidget& window = open(kind);
        target(window).setEditText(folder);
        press(window, Qt::Key_Return);
        return core::windows().find(core::Window::Movefile);
    }

    void addPicture(const std::string& name, QSize size, Qt::GlobalColor colour, const char* format)
    {
        tree.add({name, ""});
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(colour);
        ASSERT_TRUE(picture.save(tree.path(name), format));
    }

    static bool isOpen() { return core::windows().isLoaded(core::Window::Movefile); }

    // The window stayed, and nothing was told, lost or left behind.
    void expectRefused(const std::string& folder = "there")
    {
        EXPECT_TRUE(isOpen());
        EXPECT_TRUE(dialogs.boxes.empty());
        EXPECT_EQ(main.log, QStringList());
        EXPECT_EQ(tree.content("pics/sea.bmp"), "pixels");
        expectNoTemporaryFile(folder);
        core::windows().unload(core::Window::Movefile);
    }

    void expectNoTemporaryFile(const std::string& folder = "there") const
    {
        for (const auto& entry : std::filesystem::directory_iterator(tree.native(folder))) {
            EXPECT_FALSE(entry.path().filename().native().starts_with('.')) << entry.path();
        }
    }

    static QStringList lines(const files::FolderList& list)
    {
        QStringList lines;
        for (int row = 0; row < list.count(); ++row) {
            lines.append(list.item(row)->text());
        }
        return lines;
    }

    support::TempTree tree{{{"pics/sea.bmp", "pixels"},
                            {"pics/inner/deep/", ""},
                            {"there/lake.bmp", "other pixels"},
                            {"there/sub/", ""}}};
    // A drive within another one.
    files::FakePlaces places = [this] {
        files::FakePlaces made;
        made.driveList = {{"/", platform::DriveType::Fixed, "", "", true},
                          {tree.path("there"), platform::DriveType::Fixed, "Two\twords", "", true}};
        return made;
    }();
    support::MemoryConfigStore config;
    support::FakeDesktop desktop;
    support::FakeDialogs dialogs;
    support::FakeMainWindow main;
    support::FakeBrowserPane pane{nullptr};
};

class EachTransfer : public TransferTest, public testing::WithParamInterface<TransferKind> {
protected:
    [[nodiscard]] static bool moves() { return GetParam() == TransferKind::Move; }

    // A file that takes a while, crossing file systems even where it moves.
    void addLargeFile()
    {
        tree.add({"pics/sea.bmp", std::string(kLarge, 's')});
        tree.add({"there/sea.bmp", "old pixels"});
        disk.otherDisk = tree.native("there");
    }

    support::UnrulyDisk disk;
};

INSTANTIATE_TEST_SUITE_P(Kinds, EachTransfer,
                         testing::Values(TransferKind::Copy, TransferKind::Move),
                         [](const auto& row) {
                             return row.param == TransferKind::Move ? "Move" : "Copy";
                         });

} // namespace

TEST_F(TransferTest, BeginsWithTheFileAndItsFolder)
{
    QWidget& window = open(TransferKind::Copy);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Copy File to..."));
    EXPECT_EQ(part<QLabel>(window, "Source").text(), main.xiala);
    EXPECT_EQ(part<QLabel>(window, "Source").toolTip(), widgets::plainTip(main.xiala));
    EXPECT_EQ(target(window).currentText(), tree.path("pics"));
    EXPECT_EQ(window.focusWidget(), &target(window));
    EXPECT_EQ(folders(window).folder(), tree.path("pics"));
    EXPECT_EQ(explorer(window).properties().Style, 1);
    EXPECT_EQ(explorer(window).properties().View, files::kReportView);
    EXPECT_EQ(explorer(window).FileIndex(main.xiala), 2);
}

TEST_F(TransferTest, NamesItsButtonByWhatItDoes)
{
    EXPECT_EQ(button(open(TransferKind::Copy), "Command1").accessibleName(),
              QStringLiteral("Copy"));
    core::windows().unload(core::Window::Movefile);
    EXPECT_EQ(button(open(TransferKind::Move), "Command1").accessibleName(),
              QStringLiteral("Move"));
}

TEST_F(TransferTest, ShowsThePictureAndTheOneOfItsMode)
{
    QImage sea(640, 320, QImage::Format_RGB32);
    sea.fill(Qt::blue);
    ASSERT_TRUE(sea.save(main.xiala));
    addPicture("app/Images/Copyfile.jpg", {360, 60}, Qt::magenta, "BMP"); // keeps its colour so
    QWidget& window = open(TransferKind::Copy);
    const QPixmap preview = part<QLabel>(window, "Image1").pixmap();
    EXPECT_EQ(preview.deviceIndependentSize(), QSizeF(112, 56));
    EXPECT_EQ(preview.toImage().pixelColor(20, 20), QColor(Qt::blue));
    const QPixmap mode = part<QLabel>(window, "Image2").pixmap();
    EXPECT_EQ(mode.deviceIndependentSize(), QSizeF(360, 60));
    EXPECT_EQ(mode.toImage().pixelColor(20, 20), QColor(Qt::magenta));
}

TEST_F(TransferTest, ShowsAnIconForAFileThatIsNoPicture)
{
    addPicture("app/Images/toolbar/file.png", {16, 16}, Qt::green, "PNG");
    QWidget& window = open(TransferKind::Copy);
    const QPixmap preview = part<QLabel>(window, "Image1").pixmap(); // "pixels" are none
    ASSERT_FALSE(preview.isNull());
    EXPECT_EQ(preview.toImage().pixelColor(8, 8), QColor(Qt::green));
}

TEST_P(EachTransfer, BringsTheFileToTheFolderThatIsTyped)
{
    QWidget& window = open(GetParam());
    type(window, tree.path("there"));
    press(window, Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(tree.content("there/sea.bmp"), "pixels");
    EXPECT_EQ(tree.exists("pics/sea.bmp"), !moves());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_P(EachTransfer, EmptiesTheViewerAfterAMoveAlone)
{
    EXPECT_EQ(goTo(GetParam(), tree.path("there")), nullptr);
    EXPECT_EQ(main.log, moves() ? QStringList(QStringLiteral("viewer emptied")) : QStringList());
    EXPECT_EQ(main.fakeViewer.PictureWidth(), moves() ? 0 : 4);
    EXPECT_EQ(main.xiala, tree.path("pics/sea.bmp"));
}

TEST_P(EachTransfer, ReplacesAFileOfTheNameUnasked)
{
    tree.add({"there/sea.bmp", "old pixels"});
    EXPECT_EQ(goTo(GetParam(), tree.path("there/")), nullptr);
    EXPECT_EQ(tree.content("there/sea.bmp"), "pixels");
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_P(EachTransfer, OntoItselfStaysOpenAndKeepsTheFile)
{
    std::filesystem::create_hard_link(tree.native("pics/sea.bmp"), tree.native("there/sea.bmp"));
    std::filesystem::create_symlink("../../pics/sea.bmp", tree.native("there/sub/sea.bmp"));
    std::filesystem::create_directory_symlink("pics", tree.native("alias"));
    for (const char* const folder :
         {"pics", "pics/", "pics/../pics/.", "alias", "there", "there/sub"}) {
        goTo(GetParam(), tree.path(folder));
        expectRefused();
    }
    EXPECT_TRUE(std::filesystem::is_symlink(tree.native("there/sub/sea.bmp")));
}

TEST_P(EachTransfer, TakesANameThatDiffersInCaseForAnotherFile)
{
    tree.add({"there/SEA.bmp", "old pixels"});
    EXPECT_EQ(goTo(GetParam(), tree.path("there")), nullptr);
    EXPECT_EQ(tree.content("there/SEA.bmp"), "old pixels");
    EXPECT_EQ(tree.content("there/sea.bmp"), "pixels");
}

TEST_P(EachTransfer, StaysOpenForWhatIsNoFolder)
{
    tree.add({"there/sub/sea.bmp/", ""});
    for (const char* const folder : {"there/lake.bmp", "nowhere", "there/sub"}) {
        goTo(GetParam(), tree.path(folder));
        expectRefused();
    }
    for (const char* const text : {"", " ", ".", "there", "../there", "~"}) {
        goTo(GetParam(), QString::fromLatin1(text));
        expectRefused();
    }
    EXPECT_EQ(tree.content("there/lake.bmp"), "other pixels");
}

TEST_P(EachTransfer, StaysOpenForAFileThatHasGoneOrWasNeverThere)
{
    for (const QString& path : {QString(), QStringLiteral("sea.bmp"), tree.path("gone.bmp"),
                                tree.path("pics"), QStringLiteral("/none/sea.bmp")}) {
        main.xiala = path;
        goTo(GetParam(), tree.path("there"));
        expectRefused();
    }
    EXPECT_FALSE(tree.exists("there/pics"));
}

TEST_P(EachTransfer, StaysOpenForAFolderThatCannotBeWritten)
{
    std::filesystem::permissions(tree.native("."), std::filesystem::perms::all);
    std::filesystem::permissions(tree.native("pics"), std::filesystem::perms::all);
    std::filesystem::permissions(tree.native("there"), std::filesystem::perms(0555));
    {
        const support::OrdinaryUser user;
        goTo(GetParam(), tree.path("there"));
    }
    expectRefused();
}

TEST_P(EachTransfer, StaysOpenOnAFullDisk)
{
    tree.add({"there/sea.bmp", "old pixels"});
    disk.otherDisk = tree.native("there"); // else a move needs no room
    {
        const support::FullDisk full(3);
        goTo(GetParam(), tree.path("there"));
    }
    expectRefused();
    EXPECT_EQ(tree.content("there/sea.bmp"), "old pixels");
}

TEST_P(EachTransfer, TakesABetterFolderAfterOneThatWasRefused)
{
    QWidget& window = open(GetParam());
    press(window, Qt::Key_Return);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(window.focusWidget(), &target(window));
    EXPECT_TRUE(button(window, "Command1").isEnabled());
    type(window, tree.path("there/sub"));
    button(window, "Command1").click();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(tree.content("there/sub/sea.bmp"), "pixels");
}

TEST_P(EachTransfer, BringsOddNamesThrough)
{
    const std::string odd[] = {"two\nlines.bmp", "bad\xFF\xC3.bmp", " blanks ", "a#b;c.bmp",
                               std::string(251, 'n') + ".bmp"};
    for (const std::string& name : odd) {
        tree.add({"pics/" + name, "odd"});
        tree.add({"there/" + name + "/", ""});
        main.xiala = tree.path("pics/" + name);
        EXPECT_EQ(goTo(GetParam(), tree.path("there/" + name)), nullptr) << name;
        EXPECT_EQ(tree.content("there/" + name + "/" + name), "odd") << name;
    }
}

TEST_P(EachTransfer, FillsTheStripWhileALargeFileIsOnItsWay)
{
    addLargeFile();
    const Meanwhile strip([] {});
    EXPECT_EQ(goTo(GetParam(), tree.path("there")), nullptr);
    EXPECT_EQ(tree.content("there/sea.bmp").size(), kLarge);
    EXPECT_GE(strip.fractions.size(), 4U);
    EXPECT_TRUE(std::is_sorted(strip.fractions.begin(), strip.fractions.end()));
    EXPECT_GT(strip.fractions.front(), 0.0);
    EXPECT_LT(strip.fractions.back(), 1.0);
    EXPECT_FALSE(strip.isShown);
}

TEST_P(EachTransfer, LeavesTheStripAloneForASmallFile)
{
    tree.add({"pics/sea.bmp", std::string(std::size_t(3) << 20, 's')});
    disk.otherDisk = tree.native("there");
    const Meanwhile strip([] {});
    EXPECT_EQ(goTo(GetParam(), tree.path("there")), nullptr);
    EXPECT_TRUE(strip.fractions.empty());
}

TEST_P(EachTransfer, TakesNoSecondGoMeanwhile)
{
    addLargeFile();
    bool acted = false;
    const Meanwhile strip([&acted] {
        QWidget& window = *core::windows().find(core::Window::Movefile);
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(button(window, "Command1").isEnabled());
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        QTest::mouseClick(&button(window, "Command1"), Qt::LeftButton);
        QTest::keyClick(window.focusWidget(), Qt::Key_M, Qt::AltModifier);
        acted = true;
    });
    EXPECT_EQ(goTo(GetParam(), tree.path("there")), nullptr);
    EXPECT_TRUE(acted);
    EXPECT_EQ(tree.content("there/sea.bmp").size(), kLarge);
    EXPECT_EQ(main.log.size(), moves() ? 1 : 0);
    EXPECT_TRUE(std::is_sorted(strip.fractions.begin(), strip.fractions.end()));
}

TEST_P(EachTransfer, EndsWhenTheWindowIsClosedMeanwhile)
{
    addLargeFile();
    const std::function<void(QWidget&)> kWays[] = {
        [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Escape); },
        [](QWidget& window) { button(window, "Command3").click(); },
        [](QWidget& window) { part<QAbstractButton>(window, "Close").click(); },
        [](QWidget& window) { window.close(); },
        [](QWidget& /*window*/) { core::windows().unload(core::Window::Movefile); },
    };
    for (const auto& close : kWays) {
        const Meanwhile strip([&] { close(*core::windows().find(core::Window::Movefile)); });
        EXPECT_EQ(goTo(GetParam(), tree.path("there")), nullptr);
        EXPECT_EQ(tree.content("there/sea.bmp"), "old pixels");
        EXPECT_EQ(tree.content("pics/sea.bmp").size(), kLarge);
        EXPECT_EQ(main.log, QStringList());
        EXPECT_FALSE(strip.isShown);
        expectNoTemporaryFile();
    }
}

TEST_P(EachTransfer, EndsWhenTheProgramClosesMeanwhile)
{
    addLargeFile();
    const Meanwhile strip([] {
        platform::beginClosing();
        core::windows().unloadAll();
        core::services().progress = nullptr;
    });
    goTo(GetParam(), tree.path("there"));
    EXPECT_EQ(tree.content("there/sea.bmp"), "old pixels");
    EXPECT_EQ(tree.content("pics/sea.bmp").size(), kLarge);
    EXPECT_EQ(main.log, QStringList());
    expectNoTemporaryFile();
}

TEST_P(EachTransfer, StaysOpenWhereTheFileShrinksMeanwhile)
{
    addLargeFile();
    const Meanwhile strip([this] { std::filesystem::resize_file(tree.native("pics/sea.bmp"), 5); });
    EXPECT_NE(goTo(GetParam(), tree.path("there")), nullptr);
    EXPECT_EQ(tree.content("there/sea.bmp"), "old pixels");
    EXPECT_EQ(tree.content("pics/sea.bmp"), "sssss");
    EXPECT_FALSE(strip.isShown);
    expectNoTemporaryFile();
}

TEST_P(EachTransfer, NeedsNoMainWindowMeanwhile)
{
    addLargeFile();
    const Meanwhile strip([] {
        core::services().progress = nullptr;
        core::services().display = nullptr;
    });
    EXPECT_EQ(goTo(GetParam(), tree.path("there")), nullptr);
    EXPECT_EQ(tree.content("there/sea.bmp").size(), kLarge);
}

TEST_F(TransferTest, LeavesEverythingOnClose)
{
    const std::function<void(QWidget&)> kWays[] = {
        [](QWidget& window) { press(window, Qt::Key_Escape); },
        [](QWidget& window) { button(window, "Command3").click(); },
        [](QWidget& window) { part<QAbstractButton>(window, "Close").click(); },
    };
    for (const auto& close : kWays) {
        QWidget& window = open(TransferKind::Move);
        type(window, tree.path("there"));
        close(window);
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(tree.content("pics/sea.bmp"), "pixels");
        EXPECT_FALSE(tree.exists("there/sea.bmp"));
    }
}

TEST_F(TransferTest, OpensTheHelp)
{
    QWidget& window = open(TransferKind::Copy);
    button(window, "Command2").click();
    EXPECT_EQ(desktop.opened, QStringList(tree.path("app/HelpDocuments.chm")));
    EXPECT_TRUE(isOpen());
}

TEST_F(TransferTest, ListsTheWayToTheFolderAndItsSubfolders)
{
    QWidget& window = open(TransferKind::Copy);
    const QStringList way = tree.path("pics").split(u'/');
    QStringList expected = way.mid(1) + QStringList{QStringLiteral("inner")};
    expected.prepend(QStringLiteral("/"));
    EXPECT_EQ(lines(folders(window)), expected);
    EXPECT_EQ(folders(window).currentItem()->text(), QStringLiteral("pics"));
}

TEST_F(TransferTest, GoesByTheFoldersAndAllPartsFollow)
{
    QWidget& window = open(TransferKind::Copy);
    files::FolderList& list = folders(window);
    list.setFocus();
    press(window, Qt::Key_Down);
    EXPECT_EQ(target(window).currentText(), tree.path("pics"));
    press(window, Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(target(window).currentText(), tree.path("pics/inner"));
    EXPECT_EQ(list.currentItem()->text(), QStringLiteral("inner"));
    EXPECT_EQ(explorer(window).path(), tree.path("pics/inner"));
    EXPECT_EQ(explorer(window).FileIndex(tree.path("pics/inner/deep")), 1);
    press(window, Qt::Key_Backspace);
    EXPECT_EQ(target(window).currentText(), tree.path("pics"));
    const QRect place = list.visualItemRect(list.item(list.currentRow() + 1));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place.center());
    EXPECT_EQ(target(window).currentText(), tree.path("pics/inner"));
}

TEST_F(TransferTest, FollowsTheDrive)
{
    QWidget& window = open(TransferKind::Copy);
    ASSERT_EQ(drives(window).count(), 2);
    EXPECT_EQ(drives(window).currentIndex(), 0);
    folders(window).folderChosen(tree.path("there/sub"));
    EXPECT_EQ(drives(window).currentIndex(), 1);
    EXPECT_EQ(drives(window).currentText(),
              QStringLiteral("Two\u2409words (%1)").arg(tree.path("there")));
    EXPECT_EQ(folders(window).item(0)->text(), tree.path("there"));
    drives(window).setFocus();
    press(window, Qt::Key_Up);
    EXPECT_EQ(drives(window).currentIndex(), 0);
    EXPECT_EQ(target(window).currentText(), QStringLiteral("/"));
    EXPECT_EQ(folders(window).folder(), QStringLiteral("/"));
    EXPECT_EQ(explorer(window).path(), QStringLiteral("/"));
}

TEST_F(TransferTest, TakesWhatIsChosenInTheExplorer)
{
    main.xiala = tree.path("there/lake.bmp");
    QWidget& window = open(TransferKind::Copy);
    auto& list = part<QTreeView>(window, "ListView1");
    list.setFocus();
    list.setCurrentIndex(list.model()->index(0, 0));
    EXPECT_EQ(target(window).currentText(), tree.path("there/sub"));
    EXPECT_EQ(folders(window).folder(), tree.path("there"));
    list.setCurrentIndex(list.model()->index(1, 0));
    EXPECT_EQ(target(window).currentText(), tree.path("there"));
    list.setCurrentIndex(list.model()->index(0, 0));
    press(window, Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(folders(window).folder(), tree.path("there/sub"));
    EXPECT_EQ(explorer(window).path(), tree.path("there/sub"));
    explorer(window).setPath(tree.path("pics"));
    EXPECT_EQ(target(window).currentText(), tree.path("pics"));
    EXPECT_EQ(folders(window).folder(), tree.path("pics"));
}

// Its button isn't pressed, whatever keys are held.
TEST_F(TransferTest, GoesIntoAFolderOfTheExplorerByReturnWithAlt)
{
    QWidget& window = open(TransferKind::Copy);
    auto& list = part<QTreeView>(window, "ListView1");
    list.setFocus();
    list.setCurrentIndex(list.model()->index(0, 0));
    QTest::keyClick(&list, Qt::Key_Return, Qt::AltModifier);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(folders(window).folder(), tree.path("pics/inner"));
    EXPECT_FALSE(tree.exists("pics/inner/sea.bmp"));
}

TEST_F(TransferTest, GoesIntoAFolderOfTheExplorerByADoubleClick)
{
    QWidget& window = open(TransferKind::Copy);
    auto& list = part<QTreeView>(window, "ListView1");
    const QPoint place = list.visualRect(list.model()->index(0, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(folders(window).folder(), tree.path("pics/inner"));
    EXPECT_EQ(target(window).currentText(), tree.path("pics/inner"));
}

TEST_F(TransferTest, ShowsAFolderThatWasTypedWhenTheFieldIsLeft)
{
    QWidget& window = open(TransferKind::Copy);
    type(window, tree.path("there/"));
    EXPECT_EQ(folders(window).folder(), tree.path("pics"));
    press(window, Qt::Key_Tab);
    EXPECT_EQ(target(window).currentText(), tree.path("there/"));
    EXPECT_EQ(folders(window).folder(), tree.path("there"));
    EXPECT_GT(explorer(window).FileIndex(tree.path("there/lake.bmp")), 0);
    type(window, tree.path("nowhere"));
    press(window, Qt::Key_Tab);
    EXPECT_EQ(target(window).currentText(), tree.path("nowhere"));
    EXPECT_EQ(folders(window).folder(), tree.path("there"));
}

TEST_F(TransferTest, OffersTheUsersFoldersInTheField)
{
    QWidget& window = open(TransferKind::Copy);
    const int home = target(window).findText(tree.path("home"));
    ASSERT_GE(home, 0);
    target(window).setCurrentIndex(home);
    emit target(window).activated(home);
    EXPECT_EQ(folders(window).folder(), tree.path("home"));
}

TEST_F(TransferTest, WorksWithoutAMainWindowAroundIt)
{
    core::services().display = nullptr;
    core::services().progress = nullptr;
    EXPECT_EQ(goTo(TransferKind::Move, tree.path("there")), nullptr);
    EXPECT_EQ(tree.content("there/sea.bmp"), "pixels");
}
