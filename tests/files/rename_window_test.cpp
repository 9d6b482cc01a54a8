#include "files/rename_window.h"

#include "core/window_registry.h"
#include "files/text_list.h"
#include "support/fake_browser_pane.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/memory_config_store.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"
#include "widgets/plain_tip.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

class RenameTest : public testing::Test {
protected:
    RenameTest()
    {
        core::windows().add(core::Window::Form5rf, [] { return new Form5rf; });
        main.xiala = tree.path("pics/sea.bmp");
        pane.files.setPath(tree.path("pics"));
    }
    ~RenameTest() override
    {
        core::windows().unload(core::Window::Form5rf);
        core::windows().add(core::Window::Form5rf, [] { return nullptr; });
    }

    // Opens the window for the file in hand, with the focus where a user finds it.
    static QWidget& open()
    {
        QWidget* window = core::windows().show(core::Window::Form5rf);
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        return *window;
    }

    static QLineEdit& field(const QWidget& window)
    {
        return *window.findChild<QLineEdit*>(QStringLiteral("Newname"));
    }

    static void press(QWidget& window, Qt::Key key) { QTest::keyClick(window.focusWidget(), key); }

    static void type(QWidget& window, const char* text)
    {
        QTest::keyClicks(window.focusWidget(), QString::fromLatin1(text));
    }

    // Asks for a name and takes the answer by Return.
    static void renameTo(const QString& name)
    {
        QWidget& window = open();
        field(window).setText(name);
        press(window, Qt::Key_Return);
    }

    static bool isOpen() { return core::windows().isLoaded(core::Window::Form5rf); }

    [[nodiscard]] QStringList names()
    {
        QStringList names;
        for (int i = 0; i < pane.files.count(); ++i) {
            names.append(pane.files.name(i));
        }
        return names;
    }

    // Nothing was renamed, reported or closed.
    void expectRefused()
    {
        EXPECT_TRUE(isOpen());
        EXPECT_TRUE(dialogs.boxes.empty());
        EXPECT_EQ(tree.content("pics/sea.bmp"), "pixels");
        EXPECT_EQ(tree.content("pics/lake.bmp"), "other pixels");
        EXPECT_EQ(main.log, QStringList());
        core::windows().unload(core::Window::Form5rf);
    }

    support::TempTree tree{{"pics/sea.bmp", "pixels"}, {"pics/lake.bmp", "other pixels"}};
    support::MemoryConfigStore config;
    support::FakeDesktop desktop;
    support::FakeDialogs dialogs;
    support::FakeMainWindow main;
    support::FakeBrowserPane pane{nullptr};
};

} // namespace

TEST_F(RenameTest, BeginsWithTheNameWithoutItsExtensionSelected)
{
    QWidget& window = open();
    EXPECT_EQ(window.findChild<QLineEdit*>(QStringLiteral("Dir1"))->text(), tree.path("pics"));
    EXPECT_EQ(window.focusWidget(), &field(window));
    EXPECT_EQ(field(window).text(), QStringLiteral("sea.bmp"));
    EXPECT_EQ(field(window).selectedText(), QStringLiteral("sea"));
}

TEST_F(RenameTest, TellsTheFolderInTheTipAsItIs)
{
    tree.add({"Tom & <Jerry>/sea.bmp", ""});
    main.xiala = tree.path("Tom & <Jerry>/sea.bmp");
    const auto* folder = open().findChild<QLineEdit*>(QStringLiteral("Dir1"));
    EXPECT_EQ(folder->toolTip(), widgets::plainTip(tree.path("Tom & <Jerry>")));
    EXPECT_EQ(folder->accessibleDescription(), tree.path("Tom & <Jerry>"));
}

TEST_F(RenameTest, SelectsAllOfANameWithoutExtension)
{
    const struct {
        const char* name;
        const char* selected;
    } kNames[] = {{"plain", "plain"}, {".hidden", ".hidden"}, {"a.tar.gz", "a.tar"}, {"a.", "a"}};
    for (const auto& [name, selected] : kNames) {
        main.xiala = tree.path(std::string("pics/") + name);
        EXPECT_EQ(field(open()).selectedText(), QString::fromLatin1(selected)) << name;
        core::windows().unload(core::Window::Form5rf);
    }
}

TEST_F(RenameTest, RenamesTheFileWhenANameIsTypedAndTakenByReturn)
{
    QWidget& window = open();
    type(window, "shore");
    press(window, Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(tree.exists("pics/sea.bmp"));
    EXPECT_EQ(tree.content("pics/shore.bmp"), "pixels");
    EXPECT_EQ(tree.content("pics/lake.bmp"), "other pixels");
}

TEST_F(RenameTest, KeepsTheFavouriteValid)
{
    files::addNamed(files::kFavourites, {QStringLiteral("Lake"), tree.path("pics/lake.bmp")});
    files::addNamed(files::kFavourites, {QStringLiteral("sea"), tree.path("pics/sea.bmp")});
    renameTo(QStringLiteral("shore.bmp"));
    EXPECT_EQ(tree.content("app/testfile.txt"), "Lake#" + tree.native("pics/lake.bmp") + ";sea#" +
                                                    tree.native("pics/shore.bmp") + ";");
    EXPECT_EQ(main.log, QStringList(QStringLiteral("refillListMenus")));
    const auto favourites = files::readNamed(files::kFavourites);
    ASSERT_EQ(favourites.size(), 2U);
    EXPECT_EQ(platform::readFile(favourites[1].path), QByteArray("pixels"));
}

TEST_F(RenameTest, RefreshesTheListOfFilesAndKeepsItsPlace)
{
    pane.files.select(QStringLiteral("sea.bmp"));
    renameTo(QStringLiteral("a.bmp"));
    EXPECT_EQ(names(), QStringList({"a.bmp", "lake.bmp"}));
    EXPECT_EQ(pane.files.fileName(), QStringLiteral("a.bmp"));
    main.xiala = tree.path("pics/lake.bmp");
    renameTo(QStringLiteral("z.bmp"));
    EXPECT_EQ(pane.files.fileName(), QStringLiteral("a.bmp"));
}

TEST_F(RenameTest, LeavesTheFieldOfTheMainWindow)
{
    renameTo(QStringLiteral("shore.bmp"));
    EXPECT_EQ(main.xiala, tree.path("pics/sea.bmp"));
}

TEST_F(RenameTest, NeverTakesANameThatIsTaken)
{
    tree.add({"pics/folder/", ""});
    for (const char* const name : {"lake.bmp", "folder", "sea.bmp"}) {
        renameTo(QString::fromLatin1(name));
        expectRefused();
    }
}

TEST_F(RenameTest, StaysOpenForWhatIsNoName)
{
    tree.add({"pics/folder/", ""});
    for (const char* const name : {"", ".", "..", "folder/sea.bmp", "/tmp/sea.bmp", "../sea.bmp"}) {
        renameTo(QString::fromLatin1(name));
        expectRefused();
    }
    renameTo(QString(256, QLatin1Char('n')));
    expectRefused();
    EXPECT_FALSE(tree.exists("pics/folder/sea.bmp"));
    EXPECT_FALSE(tree.exists("sea.bmp"));
}

TEST_F(RenameTest, TakesABetterNameAfterOneThatWasRefused)
{
    QWidget& window = open();
    type(window, "lake");
    press(window, Qt::Key_Return);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(field(window).text(), QStringLiteral("lake.bmp"));
    field(window).setSelection(0, 4);
    type(window, "lake 2");
    press(window, Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(tree.content("pics/lake 2.bmp"), "pixels");
    EXPECT_EQ(tree.content("pics/lake.bmp"), "other pixels");
}

TEST_F(RenameTest, StaysOpenForAFileThatHasGoneOrWasNeverThere)
{
    for (const char* const path : {"", "bare.bmp", "/none/sea.bmp"}) {
        main.xiala = QString::fromLatin1(path);
        renameTo(QStringLiteral("shore.bmp"));
        expectRefused();
    }
    main.xiala = tree.path("pics/gone.bmp");
    renameTo(QStringLiteral("shore.bmp"));
    expectRefused();
    EXPECT_FALSE(tree.exists("pics/shore.bmp"));
}

TEST_F(RenameTest, StaysOpenInAFolderThatCannotBeWritten)
{
    std::filesystem::permissions(tree.native("."), std::filesystem::perms::all);
    std::filesystem::permissions(tree.native("pics"), std::filesystem::perms(0555));
    {
        const support::OrdinaryUser user;
        renameTo(QStringLiteral("shore.bmp"));
    }
    expectRefused();
}

TEST_F(RenameTest, BringsOddNamesThrough)
{
    const std::string odd[] = {"two\nlines.bmp", "bad\xFF\xC3.bmp", " blanks ", "a#b;c.bmp",
                               std::string(251, 'n') + ".bmp"};
    for (const std::string& name : odd) {
        tree.add({"pics/" + name, "odd"});
        main.xiala = tree.path("pics/" + name);
        QWidget& window = open();
        EXPECT_EQ(platform::toNative(field(window).text()), name);
        field(window).setCursorPosition(1);
        press(window, Qt::Key_Backspace);
        press(window, Qt::Key_Return);
        EXPECT_FALSE(isOpen()) << name;
        EXPECT_EQ(tree.content("pics/" + name.substr(1)), "odd") << name;
        EXPECT_FALSE(tree.exists("pics/" + name)) << name;
        tree.remove("pics/" + name.substr(1));
    }
}

TEST_F(RenameTest, RenamesALinkAndNotItsFile)
{
    std::filesystem::create_symlink("lake.bmp", tree.native("pics/link.bmp"));
    main.xiala = tree.path("pics/link.bmp");
    renameTo(QStringLiteral("other.bmp"));
    EXPECT_FALSE(tree.exists("pics/link.bmp"));
    EXPECT_TRUE(std::filesystem::is_symlink(tree.native("pics/other.bmp")));
    EXPECT_EQ(tree.content("pics/lake.bmp"), "other pixels");
}

TEST_F(RenameTest, LeavesEverythingOnCancel)
{
    for (const bool byKey : {true, false}) {
        QWidget& window = open();
        type(window, "shore");
        if (byKey) {
            press(window, Qt::Key_Escape);
        } else {
            window.findChild<QPushButton*>(QStringLiteral("C3"))->click();
        }
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(tree.content("pics/sea.bmp"), "pixels");
    }
}

TEST_F(RenameTest, OpensTheHelp)
{
    QWidget& window = open();
    window.findChild<QPushButton*>(QStringLiteral("Command2"))->click();
    EXPECT_EQ(desktop.opened, QStringList(tree.path("app/HelpDocuments.chm")));
    EXPECT_TRUE(isOpen());
}

TEST_F(RenameTest, KeepsTheSelectionOfOneWhoLooksElsewhereMeanwhile)
{
    QWidget& window = open();
    type(window, "shore");
    press(window, Qt::Key_Tab);
    press(window, Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), &field(window));
    EXPECT_EQ(field(window).selectedText(), QString());
    type(window, "2");
    EXPECT_EQ(field(window).text(), QStringLiteral("shore2.bmp"));
}

TEST_F(RenameTest, WorksWithoutAMainWindowAroundIt)
{
    core::services().browserPane = nullptr;
    core::services().menus = nullptr;
    renameTo(QStringLiteral("shore.bmp"));
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(tree.content("pics/shore.bmp"), "pixels");
}
