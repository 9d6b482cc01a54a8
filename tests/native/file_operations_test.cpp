#include "files/folder_list.h"
#include "native/native_fixture.h"
#include "native/real_hand.h"
#include "shell/menus.h"
#include "viewer/picture_viewer.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QTreeView>
#include <filesystem>

using namespace native;
using namespace native::real_hand;
using namespace smoke;

namespace {

// The places of the four commands in one of the places that offer them.
struct Entry {
    const char* place;
    int copy;
    int move;
    int rename;
    int remove;
};

constexpr Entry kEditMenu{"optEdit", 7, 8, 10, 5};
constexpr Entry kRightMenu{"CmdRightEdit", 0, 1, 7, 2};
constexpr Entry kPane{"Tbmenub", 5, 6, 3, 4};

QString name(const char* text)
{
    return QString::fromLatin1(text);
}

bool isPane(const Entry& entry)
{
    return entry.place == kPane.place;
}

// What another program of the desktop finds in the trash, one line a file.
QString trashAsListed()
{
    QProcess process;
    process.start(QStringLiteral("dbus-run-session"), {"--", "gio", "trash", "--list"});
    EXPECT_TRUE(waitUntil([&process] { return process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// How a user gets about: everything by the pointer, or everything by keys.
class Hand {
public:
    virtual ~Hand() = default;
    virtual void choose(Form1& form, const Entry& entry, int index) const = 0;
    virtual void copyTo(QWidget& window, const QString& folder) const = 0;
    virtual void moveTo(QWidget& window, const QString& folder) const = 0;
    virtual void press(QPushButton& button) const = 0;
};

QPushButton& button(const QWidget& window, const char* text)
{
    for (QPushButton* const found : window.findChildren<QPushButton*>()) {
        if (found->text() == name(text)) {
            return *found;
        }
    }
    qFatal("There is no button %s.", text);
}

class PointersHand : public Hand {
public:
    void choose(Form1& form, const Entry& entry, int index) const override
    {
        if (isPane(entry)) {
            clickIn(*form.findChild<QWidget*>(QStringLiteral("Tbmenub_%1").arg(index)));
            return;
        }
        QMenu& menu = *form.menus().menu(name(entry.place));
        openMenu(form, menu);
        clickEntry(menu, *form.menus().entry(name(entry.place), index));
    }

    // A click in the list of what is there says where to.
    void copyTo(QWidget& window, const QString& folder) const override
    {
        auto& list = *window.findChild<QTreeView*>(QStringLiteral("ListView1"));
        const QModelIndexList rows =
            list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, folder);
        ASSERT_EQ(rows.size(), 1);
        clickIn(*list.viewport(), list.visualRect(rows.first()).center());
        press(button(window, "&Copy"));
    }

    void moveTo(QWidget& window, const QString& folder) const override
    {
        auto& list = *window.findChild<files::FolderList*>();
        const QList<QListWidgetItem*> rows = list.findItems(folder, Qt::MatchExactly);
        ASSERT_EQ(rows.size(), 1);
        list.scrollToItem(rows.first());
        doubleClickIn(*list.viewport(), list.visualItemRect(rows.first()).center());
        ASSERT_TRUE(waitUntil([&] { return list.folder().endsWith("/" + folder); }));
        press(button(window, "&Move"));
    }

    void press(QPushButton& button) const override { clickIn(button); }

private:
    static void clickEntry(const QMenu& menu, QAction& entry)
    {
        ASSERT_TRUE(waitUntil([&menu] { return menu.isVisible(); }));
        clickIn(menu, menu.actionGeometry(&entry).center());
    }

    static void openMenu(Form1& form, QMenu& menu)
    {
        QMenuBar& bar = *form.menus().bar();
        if (bar.actions().contains(menu.menuAction())) {
            clickIn(bar, bar.actionGeometry(menu.menuAction()).center());
            return;
        }
        const QWidget& viewer = *form.findChild<QWidget*>(QStringLiteral("cpvPicScroll1"));
        clickIn(viewer, viewer.rect().center(), 3);
        clickEntry(*form.menus().menu(QStringLiteral("CmdRm")), *menu.menuAction());
    }
};

class KeysHand : public Hand {
public:
    void choose(Form1& form, const Entry& entry, int index) const override
    {
        if (isPane(entry)) {
            form.findChild<QWidget*>(QStringLiteral("Tbmenub_%1").arg(index))
                ->setFocus(Qt::TabFocusReason);
            key(QStringLiteral("space"));
            return;
        }
        QMenu& menu = *form.menus().menu(name(entry.place));
        if (entry.place == kEditMenu.place) {
            key(QStringLiteral("alt+e"));
        } else {
            form.viewer().giveFocus();
            key(QStringLiteral("Menu"));
            chooseEntry(*form.menus().menu(QStringLiteral("CmdRm")), *menu.menuAction());
        }
        chooseEntry(menu, *form.menus().entry(name(entry.place), index));
    }

    void copyTo(QWidget& window, const QString& folder) const override
    {
        key(QStringLiteral("End"));
        type("/" + folder);
        key(QStringLiteral("Return"));
        static_cast<void>(window);
    }

    // Into the folder by the list, then the letter of the button.
    void moveTo(QWidget& window, const QString& folder) const override
    {
        auto& list = *window.findChild<files::FolderList*>();
        key(QStringLiteral("alt+f"));
        ASSERT_TRUE(waitUntil([&list] { return list.hasFocus(); }));
        type(folder);
        ASSERT_TRUE(waitUntil([&] { return list.currentItem()->text() == folder; }));
        key(QStringLiteral("Return"));
        ASSERT_TRUE(waitUntil([&] { return list.folder().endsWith("/" + folder); }));
        key(QStringLiteral("alt+m"));
    }

    void press(QPushButton& button) const override
    {
        key("alt+" + button.text().mid(button.text().indexOf(u'&') + 1, 1).toLower());
    }

private:
    static void chooseEntry(const QMenu& menu, const QAction& entry)
    {
        ASSERT_TRUE(waitUntil([&menu] { return menu.isVisible(); }));
        for (int step = 0; step < 40 && menu.activeAction() != &entry; ++step) {
            key(QStringLiteral("Down"));
        }
        ASSERT_EQ(menu.activeAction(), &entry);
        key(QStringLiteral("Return"));
    }
};

} // namespace

// Files of the user's worked on by the pointer and the keyboard of the display system itself, and
// looked for by other programs afterwards.
class RealFiles : public NativeTest {
protected:
    // Shows the file by its path.
    static void show(Form1& form, const QString& path)
    {
        form.viewer().setPicture({});
        openByPath(form, path);
        ASSERT_TRUE(waitUntil([&form] { return form.viewer().PictureWidth() > 0; }));
        ASSERT_EQ(form.Xiala(), path);
    }

    void prepare() const
    {
        for (const char* const folder : {"work", "work/target", "work/other"}) {
            std::filesystem::create_directory(tree.native(folder));
        }
        std::filesystem::copy_file(tree.native("pics/a.jpg"), tree.native("work/sea.jpg"));
    }

    [[nodiscard]] bool isWhole(const char* file) const
    {
        return tree.content(file) == tree.content("pics/a.jpg");
    }

    // Works in the window that a command opens, from when the keys go there until it has closed.
    static void inWindow(const std::function<void()>& open,
                         const std::function<void(QWidget&)>& work)
    {
        inModalWindow(open, [&work](QWidget& window) {
            const QPointer<QWidget> alive(&window);
            ASSERT_TRUE(waitUntil([&window] { return window.isActiveWindow(); }));
            work(window);
            EXPECT_TRUE(waitUntil([&alive] { return alive == nullptr || !alive->isVisible(); }));
        });
    }

    // Copies, moves, renames and deletes one file.
    void workThrough(Form1& form, const Entry& entry, const Hand& hand)
    {
        prepare();
        show(form, tree.path("work/sea.jpg"));
        inWindow([&] { hand.choose(form, entry, entry.copy); },
                 [&](QWidget& window) { hand.copyTo(window, QStringLiteral("target")); });
        EXPECT_TRUE(isWhole("work/target/sea.jpg")) << entry.place;
        EXPECT_TRUE(isWhole("work/sea.jpg")) << entry.place;
        EXPECT_GT(form.viewer().PictureWidth(), 0) << entry.place;

        inWindow([&] { hand.choose(form, entry, entry.move); },
                 [&](QWidget& window) { hand.moveTo(window, QStringLiteral("other")); });
        EXPECT_TRUE(isWhole("work/other/sea.jpg")) << entry.place;
        EXPECT_FALSE(tree.exists("work/sea.jpg")) << entry.place;
        EXPECT_EQ(form.viewer().PictureWidth(), 0) << entry.place;

        show(form, tree.path("work/other/sea.jpg"));
        inWindow([&] { hand.choose(form, entry, entry.rename); },
                 [&](QWidget& window) {
                     type(QStringLiteral("lake"));
                     hand.press(button(window, "&Rename"));
                 });
        EXPECT_FALSE(tree.exists("work/other/sea.jpg")) << entry.place;
        EXPECT_TRUE(isWhole("work/other/lake.jpg")) << entry.place;

        show(form, tree.path("work/other/lake.jpg"));
        inWindow([&] { hand.choose(form, entry, entry.remove); },
                 [&](QWidget& window) { hand.press(button(window, "&Yes")); });
        EXPECT_FALSE(tree.exists("work/other/lake.jpg")) << entry.place;
        EXPECT_TRUE(trashAsListed().contains("\t" + tree.path("work/other/lake.jpg") + "\n"))
            << entry.place;
        tree.remove("work");
        tree.remove("data/Trash");
    }

    void workThroughAll(const Hand& hand)
    {
        run([&](Form1& form) {
            for (const Entry& entry : {kEditMenu, kRightMenu, kPane}) {
                workThrough(form, entry, hand);
                if (HasFailure()) {
                    return;
                }
            }
        });
    }
};

TEST_F(RealFiles, AreCopiedMovedRenamedAndDeletedByThePointer)
{
    workThroughAll(PointersHand());
}

TEST_F(RealFiles, AreCopiedMovedRenamedAndDeletedByKeys)
{
    workThroughAll(KeysHand());
}
