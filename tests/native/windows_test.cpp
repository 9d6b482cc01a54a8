#include "core/window_registry.h"
#include "native/hand.h"
#include "native/native_fixture.h"
#include "platform/pictures/picture_saver.h"
#include "shell/menus.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <functional>
#include <string>

using namespace native;
using namespace smoke;

namespace {

constexpr QSize kSize{256, 128};
constexpr QSize kHalf{256, 64};

int pixelsThatDiffer(const QImage& one, const QImage& other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            count += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
        }
    }
    return count;
}

} // namespace

class Windows : public NativeTest {
protected:
    void SetUp() override
    {
        NativeTest::SetUp();
        QImage image(kSize, QImage::Format_RGB32);
        image.fill(kBlue);
        QPainter(&image).fillRect(QRect(QPoint(), kHalf), kRed);
        ASSERT_TRUE(platform::savePicture(platform::Picture(image), tree.path("two.bmp")));
    }

    static bool closes(const QMenu& menu)
    {
        return waitUntil(
            [&menu] { return QApplication::activePopupWidget() == nullptr && !menu.isVisible(); });
    }

    // Waits for two halves of the picture, this one on top.
    static bool showsOnTop(const Form1& form, QColor top, QColor bottom)
    {
        const QRect area = onScreen(pictureArea(form));
        return waitUntil([&] {
            const QImage shot = screen();
            const QRect upper = boundsOf(shot, area, top);
            const QRect lower = boundsOf(shot, area, bottom);
            return !upper.isNull() && upper.size() == lower.size() &&
                   upper.bottom() + 1 == lower.top();
        });
    }
};

TEST_F(Windows, OpensEveryMenuOfTheBar)
{
    run([](Form1& form) {
        QMenuBar& bar = *form.menus().bar();
        for (QAction* entry : bar.actions()) {
            const QImage before = screen();
            hand::click(bar, bar.actionGeometry(entry).center());
            EXPECT_TRUE(opens(*entry->menu())) << entry->text().toStdString();
            const QSize size = entry->menu()->size();
            EXPECT_TRUE(waitUntil([&] {
                return pixelsThatDiffer(before, screen()) > size.width() * size.height() / 2;
            })) << entry->text().toStdString();
            hand::key(*entry->menu(), Qt::Key_Escape);
            EXPECT_TRUE(closes(*entry->menu())) << entry->text().toStdString();
        }
    });
}

TEST_F(Windows, RunsAnEntryOfTheRightClickMenu)
{
    run([this](Form1& form) {
        openByPath(form, tree.path("two.bmp"));
        ASSERT_TRUE(showsOnTop(form, kRed, kBlue));
        QMenu& menu = *form.menus().menu(QStringLiteral("CmdRm"));
        QWidget& viewer = pictureArea(form);
        hand::click(viewer, viewer.rect().center(), Qt::RightButton);
        ASSERT_TRUE(opens(menu));
        hand::key(menu, Qt::Key_Escape);
        EXPECT_TRUE(closes(menu));

        hand::click(viewer, viewer.rect().center(), Qt::RightButton);
        ASSERT_TRUE(opens(menu));
        QAction* panView = form.menus().entry(QStringLiteral("CmdRight"), 10);
        hand::click(menu, menu.actionGeometry(panView).center());
        EXPECT_TRUE(closes(menu));
        EXPECT_TRUE(isUp(part(form, "frmPanView")));
    });
}

TEST_F(Windows, FlipsThePictureAndTakesItBack)
{
    run([this](Form1& form) {
        openByPath(form, tree.path("two.bmp"));
        ASSERT_TRUE(showsOnTop(form, kRed, kBlue));
        hand::click(pictureArea(form));
        hand::key(form, Qt::Key_V);
        EXPECT_TRUE(showsOnTop(form, kBlue, kRed));
        hand::key(form, Qt::Key_Z);
        EXPECT_TRUE(showsOnTop(form, kRed, kBlue));
    });
}

TEST_F(Windows, ScalesByWhatIsTypedIntoAWindowWithoutFrame)
{
    run([this](Form1& form) {
        openByPath(form, tree.path("two.bmp"));
        ASSERT_TRUE(showsOnTop(form, kRed, kBlue));
        inModalWindow([&] { form.menus().entry(QStringLiteral("optImage"), 7)->trigger(); },
                      [](QWidget& window) {
                          EXPECT_EQ(window.objectName(), QStringLiteral("Form4"));
                          EXPECT_TRUE(window.windowFlags() & Qt::FramelessWindowHint);
                          hand::doubleClick(part(window, "txtWidth"), QPoint(20, 10));
                          hand::type(window, QStringLiteral("128"));
                          hand::click(part(window, "cmdOk"));
                      });
        EXPECT_TRUE(colourAppears(onScreen(pictureArea(form)), kRed, kHalf / 2));
    });
}

TEST_F(Windows, RenamesTheFileFromEveryEntryForIt)
{
    run([this](Form1& form) {
        const std::function<void()> entries[] = {
            [&] { form.menus().entry(QStringLiteral("optEdit"), 10)->trigger(); },
            [&] { form.menus().entry(QStringLiteral("CmdRightEdit"), 7)->trigger(); },
            [&] { hand::click(part(form, "Tbmenub_3")); },
        };
        std::string name = "two";
        for (const auto& open : entries) {
            openByPath(form, tree.path(name + ".bmp"));
            ASSERT_TRUE(showsOnTop(form, kRed, kBlue));
            const std::string next = name + " again";
            inModalWindow(open, [&next](QWidget& window) {
                EXPECT_EQ(window.objectName(), QStringLiteral("Form5rf"));
                hand::type(window, QString::fromStdString(next));
                hand::click(part(window, "Command1"));
            });
            EXPECT_FALSE(tree.exists(name + ".bmp"));
            EXPECT_TRUE(tree.exists(next + ".bmp"));
            name = next;
        }
    });
}

TEST_F(Windows, LeavesAWindowByTheBoxOfItsStrip)
{
    run([this](Form1& form) {
        openByPath(form, tree.path("two.bmp"));
        ASSERT_TRUE(showsOnTop(form, kRed, kBlue));
        for (int round = 0; round < 2; ++round) {
            inModalWindow([&] { form.menus().entry(QStringLiteral("OptFav"), 0)->trigger(); },
                          [](QWidget& window) {
                              EXPECT_EQ(window.objectName(), QStringLiteral("Favorties"));
                              const QPointer<QWidget> alive(&window);
                              hand::click(part(window, "Max"));
                              EXPECT_TRUE(alive == nullptr || !alive->isVisible());
                          });
        }
        EXPECT_FALSE(core::windows().isLoaded(core::Window::Favorties));
    });
}

TEST_F(Windows, EndsByTheLastEntryOfTheFileMenu)
{
    run([](Form1& form) {
        QMenuBar& bar = *form.menus().bar();
        QMenu& menu = *form.menus().menu(QStringLiteral("optFile"));
        hand::click(bar, bar.actionGeometry(bar.actions().first()).center());
        ASSERT_TRUE(opens(menu));
        QAction* exit = form.menus().entry(QStringLiteral("optFile"), 14);
        hand::click(menu, menu.actionGeometry(exit).center());
        EXPECT_FALSE(core::windows().isLoaded(core::Window::Form1));
    });
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
}
