#include "core/state.h"
#include "core/window_registry.h"
#include "platform/desktop/pointer.h"
#include "shell/menus.h"
#include "shell/running_program.h"
#include "shell/tab_stops.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

namespace {

using shell::MenuRow;

QString entryName(const MenuRow& row)
{
    return QStringLiteral("%1_%2").arg(QString::fromLatin1(row.array)).arg(row.index);
}

QChar accessKey(const char* caption)
{
    const QString text = QString::fromLatin1(caption);
    return text.at(text.indexOf(QLatin1Char('&')) + 1).toLower();
}

// The menus in a window of their own, with what was chosen written down instead of done.
class MenuKeysTest : public testing::Test {
protected:
    MenuKeysTest()
    {
        window.resize(800, 400);
        field.setGeometry(10, 100, 100, 30);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field.setFocus();
    }

    ~MenuKeysTest() override
    {
        while (QWidget* open = QApplication::activePopupWidget()) {
            open->close();
        }
    }

    // The rows that lead to a menu, from the top; empty for the one that the right button opens.
    static std::vector<const MenuRow*> wayTo(const QString& menu)
    {
        for (const MenuRow& row : shell::menuRows()) {
            if (row.opens != nullptr && QString::fromLatin1(row.opens) == menu) {
                auto way = wayTo(QString::fromLatin1(row.menu));
                way.push_back(&row);
                return way;
            }
        }
        return {};
    }

    // Goes down in the menu that is open until the entry is chosen.
    static bool goTo(const QAction* entry)
    {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) {
            return false;
        }
        for (int k = 0; k <= menu->actions().size() && menu->activeAction() != entry; ++k) {
            QTest::keyClick(menu, Qt::Key_Down);
        }
        return menu->activeAction() == entry;
    }

    [[nodiscard]] QAction* actionOf(const MenuRow& row) const
    {
        return menus.entry(QString::fromLatin1(row.array), row.index);
    }

    // Opens the menu that holds the row by keys alone.
    bool openMenuOf(const MenuRow& row)
    {
        const auto way = wayTo(QString::fromLatin1(row.menu));
        std::size_t next = 0;
        if (!way.empty() &&
            QString::fromLatin1(way[0]->menu) == QString::fromLatin1(shell::kMenuBar)) {
            QTest::keyClick(&field, accessKey(way[0]->caption).toLatin1(), Qt::AltModifier);
            next = 1;
        } else {
            menus.menu(QString::fromLatin1(shell::kRightMenu))->popup(QPoint(300, 100));
        }
        for (; next < way.size(); ++next) {
            if (!goTo(actionOf(*way[next]))) {
                return false;
            }
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
        }
        return QApplication::activePopupWidget() != nullptr;
    }

    QWidget window;
    QLineEdit field{&window};
    QStringList chosen;
    shell::Menus menus{window, [this](const MenuRow& row) { chosen.append(entryName(row)); }};
};

} // namespace

TEST_F(MenuKeysTest, ReachEveryEntryOfEveryMenu)
{
    int reached = 0;
    for (const MenuRow& row : shell::menuRows()) {
        if (row.run == nullptr) {
            continue;
        }
        chosen.clear();
        ASSERT_TRUE(openMenuOf(row)) << row.menu;
        ASSERT_TRUE(goTo(actionOf(row))) << row.menu << ' ' << row.caption;
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
        EXPECT_EQ(chosen, QStringList{entryName(row)}) << row.caption;
        ASSERT_EQ(QApplication::activePopupWidget(), nullptr) << row.caption;
        EXPECT_EQ(window.focusWidget(), &field);
        ++reached;
    }
    EXPECT_GT(reached, 130);
}

TEST_F(MenuKeysTest, EachMenuOfTheBarHasALetterOfItsOwn)
{
    std::set<QChar> letters;
    for (const QAction* head : menus.bar()->actions()) {
        const QString text = head->text();
        ASSERT_TRUE(text.contains(QLatin1Char('&'))) << text.toStdString();
        EXPECT_TRUE(letters.insert(text.at(text.indexOf(QLatin1Char('&')) + 1).toLower()).second);
    }
    EXPECT_EQ(letters.size(), 8U);
}

TEST_F(MenuKeysTest, F10OpensNoMenu)
{
    QTest::keyClick(&field, Qt::Key_F10);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(menus.bar()->activeAction(), nullptr);
    EXPECT_EQ(window.focusWidget(), &field);
}

TEST_F(MenuKeysTest, EscapeGivesTheFocusBack)
{
    QTest::keyClick(&field, Qt::Key_V, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    if (window.focusWidget() != &field) { // the bar keeps it until the next Escape
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    }
    EXPECT_EQ(window.focusWidget(), &field);
    EXPECT_TRUE(chosen.isEmpty());
}

namespace {

class ReachTest : public testing::Test {
protected:
    static void activate(Form1& form)
    {
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    static QWidget& part(Form1& form, const char* name)
    {
        return *form.findChild<QWidget*>(QString::fromLatin1(name));
    }

    static QString focusName()
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus == nullptr ? QString() : focus->objectName();
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }

    // What Tab leads to in a window, in its order.
    static QList<QWidget*> stopsOf(QWidget& window)
    {
        QList<QWidget*> stops;
        for (QWidget* next = window.nextInFocusChain(); next != &window;
             next = next->nextInFocusChain()) {
            if ((next->focusPolicy() & Qt::TabFocus) != 0 && !next->isHidden()) {
                stops.append(next);
            }
        }
        return stops;
    }

    // All stops of a round with Tab, from the first button on.
    static QStringList round(Form1& form, Qt::Key key)
    {
        form.toolbars().button(0)->setFocus(Qt::TabFocusReason);
        QStringList names;
        do {
            names.append(focusName());
            press(key);
        } while (focusName() != QStringLiteral("Tbmenu_0") && names.size() < 200);
        return names;
    }

    RunningProgram program;
};

} // namespace

TEST_F(ReachTest, TabGoesThroughTheWindowAsItIsRead)
{
    program.run([](Form1& form) {
        activate(form);
        form.Smallfrm();
        form.fastZoomshow();
        QStringList expected;
        for (const shell::ButtonRow& row : shell::buttonRows()) {
            expected.append(QStringLiteral("Tbmenu_%1").arg(row.index));
        }
        expected += QStringList{QStringLiteral("Xiala"), QStringLiteral("goEnter")};
        for (const shell::KeyButtonRow& row : shell::keyButtonRows()) {
            expected.append(QStringLiteral("KeyButton_") + QString::fromLatin1(row.key));
        }
        expected += QStringList{QStringLiteral("FolderTree"), QStringLiteral("Splitter")};
        for (int k = 0; k < 9; ++k) {
            expected.append(QStringLiteral("Tbmenub_%1").arg(k));
        }
        expected += QStringList{QStringLiteral("ThumbNailList1"),
                                QStringLiteral("p1"),
                                QStringLiteral("cpvPicScroll1"),
                                QStringLiteral("frmPanView"),
                                QStringLiteral("Max"),
                                QStringLiteral("scrZoom2")};
        EXPECT_EQ(round(form, Qt::Key_Tab), expected);
        const QString first = expected.takeFirst();
        std::reverse(expected.begin(), expected.end());
        expected.prepend(first);
        EXPECT_EQ(round(form, Qt::Key_Backtab), expected);
    });
}

// The zoom tool takes no keys when it is shown, so that those of the viewer go on acting.
TEST_F(ReachTest, TheZoomToolWorksByKeys)
{
    program.run([](Form1& form) {
        activate(form);
        form.viewer().setPicture(platform::Picture(QImage(40, 30, QImage::Format_RGB32)));
        form.viewer().giveFocus();
        press(Qt::Key_F5);
        EXPECT_EQ(focusName(), QStringLiteral("cpvPicScroll1"));
        part(form, "Tbmenu_0").setFocus(Qt::TabFocusReason);
        press(Qt::Key_Backtab);
        ASSERT_EQ(focusName(), QStringLiteral("scrZoom2"));
        press(Qt::Key_Right);
        press(Qt::Key_Right);
        EXPECT_EQ(form.viewer().ZoomFactor(), 3);
        EXPECT_EQ(focusName(), QStringLiteral("scrZoom2"));
        press(Qt::Key_Escape);
        EXPECT_FALSE(core::windows().isLoaded(core::Window::fastZoom));
        EXPECT_FALSE(RunningProgram::entry(form, "optView", 15).isChecked());
        EXPECT_EQ(focusName(), QStringLiteral("cpvPicScroll1"));
    });
}

TEST_F(ReachTest, TabLeavesOutWhatIsHiddenOrDisabled)
{
    program.run([](Form1& form) {
        activate(form);
        form.OCbrowse();
        form.setBandShown(2, false);
        form.setMenuState(false);
        const QStringList names = round(form, Qt::Key_Tab);
        for (const char* gone : {"Xiala", "goEnter", "FolderTree", "Tbmenub_0", "ThumbNailList1",
                                 "Tbmenu_5", "Tbmenu_11", "frmPanView"}) {
            EXPECT_FALSE(names.contains(QString::fromLatin1(gone))) << gone;
        }
        EXPECT_EQ(names.last(), QStringLiteral("cpvPicScroll1"));
    });
}

TEST_F(ReachTest, EveryStopShowsThatItHasTheFocus)
{
    program.run([](Form1& form) {
        activate(form);
        form.Smallfrm();
        for (const QString& name : round(form, Qt::Key_Tab)) {
            QWidget& stop = *form.findChild<QWidget*>(name);
            form.setFocus(Qt::OtherFocusReason);
            stop.clearFocus();
            const QImage plain = stop.grab().toImage();
            stop.setFocus(Qt::TabFocusReason);
            EXPECT_NE(stop.grab().toImage(), plain) << name.toStdString();
        }
    });
}

TEST_F(ReachTest, EscapeLeadsBackToThePicture)
{
    program.run([](Form1& form) {
        activate(form);
        form.Smallfrm();
        const bool browser = core::state().BrowserShown;
        for (const char* name : {"Tbmenu_3", "Xiala", "goEnter", "KeyButton_stop", "FolderTree",
                                 "Splitter", "Tbmenub_2", "ThumbNailList1", "p1", "frmPanView"}) {
            part(form, name).setFocus(Qt::TabFocusReason);
            ASSERT_EQ(focusName(), QString::fromLatin1(name));
            press(Qt::Key_Escape);
            EXPECT_EQ(focusName(), QStringLiteral("cpvPicScroll1")) << name;
            EXPECT_EQ(core::state().BrowserShown, browser) << name;
        }
    });
}

TEST_F(ReachTest, KeysPressTheButtonsOfBothToolbars)
{
    program.run([](Form1& form) {
        activate(form);
        form.viewer().setPicture(platform::Picture(QImage(40, 30, QImage::Format_RGB32)));
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
            form.viewer().ZoomReal();
            for (chameleonButton* button :
                 {form.toolbars().button(2), form.toolbars().keyButton(QStringLiteral("zoomin"))}) {
                const int zoom = form.viewer().ZoomFactor();
                button->setFocus(Qt::TabFocusReason);
                press(key);
                EXPECT_EQ(form.viewer().ZoomFactor(), zoom + 1) << key;
                // As after every command.
                EXPECT_EQ(focusName(), QStringLiteral("cpvPicScroll1"));
            }
        }
    });
}

TEST_F(ReachTest, ArrowsWalkAlongTheToolbar)
{
    program.run([](Form1& form) {
        activate(form);
        form.toolbars().button(0)->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Right);
        EXPECT_EQ(focusName(), QStringLiteral("Tbmenu_1"));
        press(Qt::Key_Left);
        EXPECT_EQ(focusName(), QStringLiteral("Tbmenu_0"));
    });
}

TEST_F(ReachTest, TheMenuKeyOpensTheMenuOfThePictureOverIt)
{
    program.run([](Form1& form) {
        activate(form);
        form.viewer().giveFocus();
        press(Qt::Key_Menu);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu, form.menus().menu(QStringLiteral("CmdRm")));
        EXPECT_EQ(menu->activeAction(), form.menus().entry(QStringLiteral("CmdRight"), 0));
        const QRect viewer(form.cpvPicScroll1().mapToGlobal(QPoint()), form.cpvPicScroll1().size());
        EXPECT_TRUE(viewer.contains(menu->pos()));
        QTest::keyClick(menu, Qt::Key_Escape);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(focusName(), QStringLiteral("cpvPicScroll1"));
    });
}

TEST_F(ReachTest, TheMenuKeyAsksInPlaceOfTheMenuWhileAPictureWaits)
{
    program.config[QStringLiteral("WinState")] = QStringLiteral("1");
    program.run([](Form1& form) {
        activate(form);
        form.viewer().giveFocus();
        press(Qt::Key_Menu);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_TRUE(core::windows().isLoaded(core::Window::frmMsg));
    });
}

// A menu works wherever the focus is, and its command ends at the picture.
TEST_F(ReachTest, MenusOpenByKeyWhileTheViewerHasNoFocus)
{
    program.run([](Form1& form) {
        activate(form);
        form.Smallfrm();
        form.viewer().setPicture(platform::Picture(QImage(40, 30, QImage::Format_RGB32)));
        for (const char* name : {"Xiala", "FolderTree", "ThumbNailList1", "Tbmenu_0", "frmPanView",
                                 "Splitter", "cpvPicScroll1"}) {
            form.viewer().ZoomReal();
            part(form, name).setFocus(Qt::TabFocusReason);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::AltModifier);
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr) << name;
            EXPECT_EQ(menu, form.menus().menu(QStringLiteral("optView"))) << name;
            QTest::keyClick(menu, Qt::Key_Return); // the first entry is chosen already
            EXPECT_EQ(form.viewer().ZoomFactor(), 2) << name;
            EXPECT_EQ(focusName(), QStringLiteral("cpvPicScroll1")) << name;
            EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        }
    });
}

TEST_F(ReachTest, ArrowsScrollAPictureThatIsLargerThanTheViewer)
{
    program.run([](Form1& form) {
        activate(form);
        form.Smallfrm();
        QImage large(4000, 3000, QImage::Format_RGB32);
        large.fill(Qt::darkCyan);
        cpvPicViewer& viewer = form.cpvPicScroll1();
        viewer.setPicture(platform::Picture(large));
        for (const char* name : {"cpvPicScroll1", "frmPanView"}) {
            part(form, name).setFocus(Qt::TabFocusReason);
            press(Qt::Key_Home);
            EXPECT_EQ(QPoint(viewer.CurrentLeft(), viewer.CurrentTop()), QPoint(0, 0)) << name;
            press(Qt::Key_Left);
            press(Qt::Key_Up);
            EXPECT_EQ(QPoint(viewer.CurrentLeft(), viewer.CurrentTop()), QPoint(0, 0)) << name;
            press(Qt::Key_Right);
            press(Qt::Key_Down);
            const QPoint step(viewer.CurrentLeft(), viewer.CurrentTop());
            EXPECT_GT(step.x(), 0) << name;
            EXPECT_EQ(step.x(), step.y()) << name;
            press(Qt::Key_PageDown);
            EXPECT_GT(viewer.CurrentTop(), step.y() + viewer.CurrentHeight() / 2) << name;
            press(Qt::Key_PageUp);
            EXPECT_EQ(viewer.CurrentTop(), step.y()) << name;
            press(Qt::Key_End);
            EXPECT_EQ(viewer.CurrentLeft() + viewer.CurrentWidth(), 4000) << name;
            EXPECT_EQ(viewer.CurrentTop() + viewer.CurrentHeight(), 3000) << name;
            EXPECT_EQ(focusName(), QString::fromLatin1(name));
        }
    });
}

TEST_F(ReachTest, LettersOnThePanViewAreNoCommands)
{
    program.run([](Form1& form) {
        activate(form);
        form.Smallfrm();
        form.viewer().setPicture(platform::Picture(QImage(40, 30, QImage::Format_RGB32)));
        part(form, "frmPanView").setFocus(Qt::TabFocusReason);
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_V, Qt::Key_F2}) {
            press(key);
        }
        EXPECT_EQ(form.viewer().ZoomFactor(), 1);
        EXPECT_EQ(focusName(), QStringLiteral("frmPanView"));
    });
}

TEST_F(ReachTest, ArrowsStepThroughTheTilesAndReturnOpens)
{
    program.run([this](Form1& form) {
        activate(form);
        part(form, "ThumbNailList1").setFocus(Qt::TabFocusReason);
        press(Qt::Key_Home);
        press(Qt::Key_Right);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
        EXPECT_EQ(form.viewer().PictureWidth(), 50);
        EXPECT_EQ(focusName(), QStringLiteral("ThumbNailList1"));
        press(Qt::Key_Return);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
        press(Qt::Key_Escape);
        press(Qt::Key_A);
        EXPECT_EQ(form.viewer().ZoomFactor(), 2);
    });
}

TEST_F(ReachTest, NoWindowOpensWithTheFocusOnItsCloseBox)
{
    program.run([](Form1& form) {
        form.viewer().setPicture(platform::Picture(QImage(40, 30, QImage::Format_RGB32)));
        int windows = 0;
        for (const core::Window which : core::windows().withFactory()) {
            const QString name = core::windowName(which);
            const QWidget* loaded = core::windows().find(which);
            QWidget* window = loaded != nullptr ? nullptr : core::windows().show(which);
            const auto* box =
                window != nullptr ? window->findChild<QWidget*>(QStringLiteral("Max")) : nullptr;
            if (box == nullptr || !window->isWindow()) {
                continue;
            }
            ++windows;
            ASSERT_NE(window->focusWidget(), nullptr) << name.toStdString();
            EXPECT_NE(window->focusWidget(), box) << name.toStdString();
            // With one other stop the two just take turns.
            const QList<QWidget*> stops = stopsOf(*window);
            EXPECT_TRUE(stops.size() == 2 || stops.last() == box) << name.toStdString();
        }
        EXPECT_GE(windows, 6);
    });
}

TEST_F(ReachTest, EscapeClosesEverySecondaryWindow)
{
    program.run([](Form1& form) {
        form.viewer().setPicture(platform::Picture(QImage(40, 30, QImage::Format_RGB32)));
        int windows = 0;
        for (const core::Window which : core::windows().withFactory()) {
            if (core::windows().isLoaded(which) || which == core::Window::frmWelcome) {
                continue;
            }
            const QString name = core::windowName(which);
            QWidget* window = core::windows().show(which);
            if (window == nullptr) {
                continue;
            }
            ++windows;
            window->activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(window)) << name.toStdString();
            QTest::keyClick(window, Qt::Key_Escape);
            EXPECT_FALSE(core::windows().isLoaded(which)) << name.toStdString();
        }
        EXPECT_GE(windows, 7);
    });
}
