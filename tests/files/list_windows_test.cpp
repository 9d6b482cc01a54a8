#include "core/window_registry.h"
#include "files/favourite_window.h"
#include "files/favourites_editor_window.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

class ListWindowsTest : public testing::Test {
protected:
    ListWindowsTest() { main.xiala = QStringLiteral("/p/sea.bmp"); }

    static void click(QWidget& window, const char* name)
    {
        window.findChild<QPushButton*>(QString::fromLatin1(name))->click();
    }

    [[nodiscard]] static QByteArray favourites()
    {
        return platform::readFile(platform::appFile(files::kFavourites.fileName)).value_or("");
    }

    support::TempTree tree;
    support::MemoryConfigStore config;
    support::FakeMainWindow main;
};

} // namespace

TEST_F(ListWindowsTest, AddsAFavouriteUnderANameOrUnderItsPath)
{
    Favorties named;
    named.findChild<QLineEdit*>(QStringLiteral("Newname"))->setText(QStringLiteral("Sea"));
    named.show();
    click(named, "Addok");
    EXPECT_FALSE(named.isVisible());
    EXPECT_EQ(favourites(), "Sea#/p/sea.bmp;");
    EXPECT_TRUE(main.log.contains(QStringLiteral("refillListMenus")));

    Favorties unnamed;
    unnamed.findChild<QRadioButton*>(QStringLiteral("Option2"))->setChecked(true);
    click(unnamed, "Addok");
    EXPECT_EQ(favourites(), "Sea#/p/sea.bmp;/p/sea.bmp#/p/sea.bmp;");
    EXPECT_EQ(config.read(QStringLiteral("No")), QStringLiteral("2"));
}

TEST_F(ListWindowsTest, AddsNothingOnCancel)
{
    Favorties window;
    window.show();
    click(window, "AddCancel");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(favourites(), "");
}

TEST_F(ListWindowsTest, DeletesTheSelectedEntryFromListsFileAndMenu)
{
    addNamed(files::kFavourites, {QStringLiteral("a"), QStringLiteral("/1")});
    addNamed(files::kFavourites, {QStringLiteral("b"), QStringLiteral("/2")});
    FavortiesModi window;
    auto* names = window.findChild<QListWidget*>(QStringLiteral("List1"));
    auto* paths = window.findChild<QListWidget*>(QStringLiteral("lstdata"));
    ASSERT_EQ(names->count(), 2);
    click(window, "chameleonButton1"); // nothing is selected
    EXPECT_EQ(names->count(), 2);
    names->setCurrentRow(0);
    click(window, "chameleonButton1");
    EXPECT_EQ(names->count(), 1);
    EXPECT_EQ(paths->item(0)->text(), QStringLiteral("/2"));
    EXPECT_EQ(favourites(), "b#/2;");
    EXPECT_EQ(main.log.count(QStringLiteral("refillListMenus")), 1);
}

TEST_F(ListWindowsTest, AsksForANewName)
{
    addNamed(files::kFavourites, {QStringLiteral("a"), QStringLiteral("/a")});
    FavortiesModi window;
    window.findChild<QListWidget*>(QStringLiteral("List1"))->setCurrentRow(0);
    support::FakeDialogs dialogs;
    dialogs.textAnswers.push_back(QStringLiteral("Shore"));
    click(window, "Renname");
    ASSERT_EQ(dialogs.textRequests.size(), 1U);
    EXPECT_EQ(dialogs.textRequests[0].label, QStringLiteral("Name: "));
    EXPECT_EQ(dialogs.textRequests[0].title, QStringLiteral("Renname Favortie"));
    EXPECT_EQ(favourites(), "Shore#/a;");
}

TEST_F(ListWindowsTest, TitlesTheWindowByItsMode)
{
    addNamed(files::kEditors, {QStringLiteral("Paint"), QStringLiteral("/bin/paint")});
    FavortiesModi window;
    window.setList(files::EditedList::Favourites);
    EXPECT_EQ(window.windowTitle(), QString());
    window.setList(files::EditedList::Editors);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Modifty Switch"));
    EXPECT_EQ(window.findChild<QListWidget*>(QStringLiteral("List1"))->count(), 1);
}

TEST_F(ListWindowsTest, ShowsTheListThatWasAskedForUntilItIsClosed)
{
    QStringList captions;
    core::windows().add(core::Window::FavortiesModi, [&captions] {
        auto* window = new FavortiesModi;
        QTimer::singleShot(0, window, [window, &captions] {
            captions.append(window->windowTitle());
            window->close();
        });
        return window;
    });
    files::showListEditor(files::EditedList::Editors);
    files::showListEditor(files::EditedList::Favourites);
    core::windows().add(core::Window::FavortiesModi, [] { return nullptr; });
    EXPECT_EQ(captions, QStringList({"Modifty Switch", ""}));
}

TEST_F(ListWindowsTest, ReadsTheListAgainOnEachActivation)
{
    FavortiesModi window;
    addNamed(files::kFavourites, {QStringLiteral("late"), QStringLiteral("/1")});
    QEvent activation(QEvent::WindowActivate);
    QApplication::sendEvent(&window, &activation);
    EXPECT_EQ(window.findChild<QListWidget*>(QStringLiteral("List1"))->count(), 1);
}
