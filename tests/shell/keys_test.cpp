#include "core/state.h"
#include "files/display_pipeline.h"
#include "platform/desktop/clipboard.h"
#include "platform/desktop/pointer.h"
#include "shell/running_program.h"
#include "shell/toolbars.h"
#include "thumbs/page_viewport.h"
#include "thumbs/thumbnail_list.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace {

const QString kNoPicture = QStringLiteral("No picture to process.");

struct Key {
    int key;
    int code; // as the key table has it
    Qt::KeyboardModifiers own = Qt::NoModifier;
};

constexpr Key kKeys[] = {
    {Qt::Key_Escape, 27},
    {Qt::Key_F2, 113},
    {Qt::Key_F3, 114},
    {Qt::Key_F4, 115},
    {Qt::Key_F5, 116},
    {Qt::Key_F6, 117},
    {Qt::Key_F10, 121},
    {Qt::Key_F12, 123},
    {Qt::Key_A, 65},
    {Qt::Key_S, 83},
    {Qt::Key_D, 68},
    {Qt::Key_V, 86},
    {Qt::Key_H, 72},
    {Qt::Key_C, 67},
    {Qt::Key_E, 69},
    {Qt::Key_O, 79},
    {Qt::Key_P, 80},
    {Qt::Key_Z, 90},
    {Qt::Key_Minus, 109, Qt::KeypadModifier},
    {Qt::Key_Plus, 107, Qt::KeypadModifier},
};

// What needs a picture: zooming, flipping, copying, printing, undoing and the separate editor.
const std::set<int> kNeedPicture{65, 83, 68, 86, 72, 67, 80, 90, 121};

class KeysTest : public testing::Test {
protected:
    KeysTest()
    {
        for (const core::Window window :
             {core::Window::FrmBrowser, core::Window::frmCaputreN, core::Window::frmMailSender}) {
            program.stubWindow(window);
        }
    }

    static platform::Picture cornered()
    {
        QImage image(4, 2, QImage::Format_RGB32);
        image.fill(Qt::white);
        image.setPixelColor(0, 0, Qt::red);
        return platform::Picture(image);
    }

    static bool isRed(Form1& form, int x, int y)
    {
        return form.viewer().Picture().image().pixelColor(x, y) == QColor(Qt::red);
    }

    static bool isChecked(Form1& form, int index)
    {
        return RunningProgram::entry(form, "optView", index).isChecked();
    }

    RunningProgram program;
};

QPoint placeOf(ThumbNailList& list, int tile)
{
    const thumbs::TileRow* row = list.tile(tile);
    const QPoint corner = list.surface().pages.stack().pageRect(row->page).topLeft();
    return list.surface().viewport.sheetPosition() + corner + row->box.rect().center();
}

void clickTile(ThumbNailList& list, int tile)
{
    QTest::mouseClick(&list.surface().viewport, Qt::LeftButton, {}, placeOf(list, tile));
}

void doubleClickTile(ThumbNailList& list, int tile)
{
    clickTile(list, tile);
    list.setFocus();
    QTest::mouseDClick(&list.surface().viewport, Qt::LeftButton, {}, placeOf(list, tile));
}

} // namespace

TEST_F(KeysTest, SwitchTheModesWhateverModifierIsHeld)
{
    program.run([](Form1& form) {
        for (const Qt::KeyboardModifier held :
             {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier}) {
            const bool browser = core::state().BrowserShown;
            RunningProgram::pressKey(form, Qt::Key_Escape, held);
            EXPECT_NE(core::state().BrowserShown, browser);
            for (const auto& [key, index] :
                 {std::pair(Qt::Key_F2, 11), std::pair(Qt::Key_F3, 12), std::pair(Qt::Key_F4, 13),
                  std::pair(Qt::Key_F5, 15)}) {
                const bool before = isChecked(form, index);
                RunningProgram::pressKey(form, key, held);
                EXPECT_NE(isChecked(form, index), before) << index << ' ' << held;
            }
            const int interval = form.pipeline().intervalMs();
            RunningProgram::pressKey(form, Qt::Key_Minus, Qt::KeypadModifier | held);
            EXPECT_EQ(form.pipeline().intervalMs(), interval + 1000);
            RunningProgram::pressKey(form, Qt::Key_Plus, Qt::KeypadModifier | held);
            EXPECT_EQ(form.pipeline().intervalMs(), interval);
        }
    });
}

TEST_F(KeysTest, ZoomAndEditWhateverModifierIsHeld)
{
    program.run([](Form1& form) {
        for (const Qt::KeyboardModifier held :
             {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier}) {
            form.viewer().setPicture(cornered());
            RunningProgram::pressKey(form, Qt::Key_A, held);
            RunningProgram::pressKey(form, Qt::Key_A, held);
            EXPECT_EQ(form.viewer().ZoomFactor(), 3);
            RunningProgram::pressKey(form, Qt::Key_S, held);
            EXPECT_EQ(form.viewer().ZoomFactor(), 2);
            RunningProgram::pressKey(form, Qt::Key_D, held);
            EXPECT_EQ(form.viewer().ZoomFactor(), 1);
            RunningProgram::pressKey(form, Qt::Key_V, held);
            EXPECT_TRUE(isRed(form, 0, 1)) << held;
            RunningProgram::pressKey(form, Qt::Key_H, held);
            EXPECT_TRUE(isRed(form, 3, 1)) << held;
            RunningProgram::pressKey(form, Qt::Key_Z, held);
            EXPECT_TRUE(isRed(form, 0, 1)) << held;
            platform::clearClipboard();
            RunningProgram::pressKey(form, Qt::Key_C, held);
            const auto copied = platform::clipboardPicture();
            ASSERT_TRUE(copied.has_value());
            EXPECT_EQ(copied->width(), 4);
        }
    });
}

TEST_F(KeysTest, OpenTheirWindowsWhateverModifierIsHeld)
{
    program.run([this](Form1& form) {
        for (const core::Window window : {core::Window::frmMailSender, core::Window::frmTemp}) {
            program.stubWindow(window); // in place of the real one
        }
        form.viewer().setPicture(cornered());
        for (const Qt::KeyboardModifier held :
             {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier}) {
            program.shown.clear();
            program.desktop.started.clear();
            program.dialogs.fileRequests.clear();
            for (const int key : {Qt::Key_F6, Qt::Key_E, Qt::Key_P, Qt::Key_O, Qt::Key_F10}) {
                RunningProgram::pressKey(form, key, held);
            }
            EXPECT_EQ(program.shown,
                      (QStringList{QStringLiteral("FrmBrowser"), QStringLiteral("frmMailSender"),
                                   QStringLiteral("frmTemp")}));
            EXPECT_EQ(program.dialogs.fileRequests.size(), 1U);
            EXPECT_EQ(program.desktop.started.size(), 1U);
            core::windows().unload(core::Window::FrmBrowser);
            core::windows().unload(core::Window::frmMailSender);
            EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        }
    });
}

TEST_F(KeysTest, PutTheCaptureIntoTheTrayWhateverModifierIsHeld)
{
    program.run([](Form1& form) {
        for (const Qt::KeyboardModifier held :
             {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier}) {
            RunningProgram::pressKey(form, Qt::Key_F12, held);
            QWidget* capture = core::windows().find(core::Window::frmCaputreN);
            ASSERT_NE(capture, nullptr) << held;
            EXPECT_FALSE(capture->isVisible()) << held;
            EXPECT_TRUE(form.isMinimized()) << held;
            core::windows().unload(core::Window::frmCaputreN);
            form.setWindowState(Qt::WindowMaximized);
        }
    });
}

TEST_F(KeysTest, SayOnceThatThereIsNoPicture)
{
    program.run([this](Form1& form) {
        for (const Key& key : kKeys) {
            program.dialogs.boxes.clear();
            RunningProgram::pressKey(form, key.key, key.own);
            const QStringList expected =
                kNeedPicture.contains(key.code) ? QStringList{kNoPicture} : QStringList{};
            EXPECT_EQ(program.dialogs.boxTexts(), expected) << key.code;
            EXPECT_EQ(platform::pointer(), platform::Pointer::Default) << key.code;
        }
    });
}

TEST_F(KeysTest, DoNothingInTheFileNameField)
{
    program.run([this](Form1& form) {
        QWidget* field = form.findChild<QWidget*>(QStringLiteral("Xiala"));
        field->setFocus();
        form.setXiala(QString());
        const int interval = form.pipeline().intervalMs();
        for (const char letter : {'a', 's', 'd', 'v', 'h', 'c', 'e', 'o', 'p', 'z'}) {
            QKeyEvent event(QEvent::KeyPress, letter - 'a' + Qt::Key_A, Qt::NoModifier,
                            QString(QLatin1Char(letter)));
            QApplication::sendEvent(field, &event);
        }
        QKeyEvent plus(QEvent::KeyPress, Qt::Key_Plus, Qt::KeypadModifier, QStringLiteral("+"));
        QApplication::sendEvent(field, &plus);
        EXPECT_EQ(form.Xiala(), QStringLiteral("asdvhceopz+"));
        EXPECT_TRUE(program.dialogs.boxes.empty());
        EXPECT_TRUE(program.dialogs.fileRequests.empty());
        EXPECT_TRUE(program.shown.isEmpty());
        EXPECT_EQ(form.pipeline().intervalMs(), interval);
    });
}

TEST_F(KeysTest, ActOnThePictureThatWasJustOpened)
{
    program.config[QStringLiteral("Xno")] = QStringLiteral("2");
    program.tree.add({"app/xialafile.txt", program.picture("a.bmp").toStdString() + ";" +
                                               program.picture("b.bmp").toStdString() + ";"});
    program.run([this](Form1& form) {
        auto* field = form.findChild<QComboBox*>(QStringLiteral("Xiala"));
        auto* go = form.findChild<QPushButton*>(QStringLiteral("goEnter"));
        auto* list = form.findChild<ThumbNailList*>(QStringLiteral("ThumbNailList1"));
        const struct {
            const char* name;
            std::function<void()> open;
        } ways[] = {
            {"a tile's click", [&] { clickTile(*list, 1); }},
            {"a tile's double click", [&] { doubleClickTile(*list, 1); }},
            {"Go", [&] { QTest::mouseClick(go, Qt::LeftButton); }},
            {"Return", [&] { QTest::keyClick(field, Qt::Key_Return); }},
            {"a choice", [&] { QTest::keyClick(field, Qt::Key_Down); }},
        };
        for (const auto& [name, open] : ways) {
            form.viewer().setZoomFactor(1);
            form.setXiala(program.picture("b.bmp"));
            field->setFocus();
            ASSERT_NE(form.focusWidget(), &form.cpvPicScroll1()) << name;
            open();
            ASSERT_EQ(form.focusWidget(), &form.cpvPicScroll1()) << name;
            QTest::keyClick(form.focusWidget(), Qt::Key_A);
            EXPECT_EQ(form.viewer().ZoomFactor(), 2) << name;
        }
    });
}

TEST_F(KeysTest, KeepTheTilesWhileTheyAreWalkedThroughByKeys)
{
    program.run([](Form1& form) {
        auto* list = form.findChild<ThumbNailList*>(QStringLiteral("ThumbNailList1"));
        list->setFocus(Qt::TabFocusReason);
        QTest::keyClick(list, Qt::Key_Right);
        QTest::keyClick(list, Qt::Key_Right);
        EXPECT_EQ(form.focusWidget(), list);
        QTest::keyClick(list, Qt::Key_Return);
        EXPECT_EQ(form.focusWidget(), list);
        EXPECT_EQ(form.cpvPicScroll1().PictureWidth(), 50);
    });
}

TEST_F(KeysTest, StayWithWhoTypesThoughTheSlideShowGoesOn)
{
    program.run([this](Form1& form) {
        auto* field = form.findChild<QWidget*>(QStringLiteral("Xiala"));
        auto* list = form.findChild<QWidget*>(QStringLiteral("ThumbNailList1"));
        form.setXiala(program.picture("a.bmp"));
        RunningProgram::trigger(form, "optTools", 0);
        int width = form.cpvPicScroll1().PictureWidth();
        EXPECT_EQ(width, 40);
        QWidget* tree = form.findChild<QWidget*>("Dir1")->findChild<QAbstractItemView*>();
        for (QWidget* widget : {field, list, tree}) {
            ASSERT_NE(widget, nullptr);
            widget->setFocus();
            QWidget* const focus = form.focusWidget();
            form.pipeline().tick();
            EXPECT_EQ(form.focusWidget(), focus) << qPrintable(widget->objectName());
        }
        EXPECT_NE(form.cpvPicScroll1().PictureWidth(), width); // the show went on meanwhile
        form.toolbars().button(5)->setFocus();
        form.pipeline().tick();
        EXPECT_EQ(form.focusWidget(), &form.cpvPicScroll1());
    });
}
