#include "core/state.h"
#include "shell/menus.h"
#include "shell/running_program.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <gtest/gtest.h>

namespace {

constexpr QSize kSizes[] = {{640, 480},   {800, 600},   {1024, 768}, {1366, 768},
                            {1920, 1080}, {3840, 2160}, {7680, 4320}};

std::string nameOf(const QWidget& widget)
{
    return widget.objectName().toStdString() + " (" + widget.metaObject()->className() + ")";
}

QRect placeIn(const QWidget& window, const QWidget& widget)
{
    return {widget.mapTo(&window, QPoint()), widget.size()};
}

class WindowSizesTest : public testing::Test {
protected:
    // The script runs at every size, in both modes.
    void atEverySize(const std::function<void(Form1&)>& script)
    {
        for (const QSize& size : kSizes) {
            SCOPED_TRACE(std::to_string(size.width()));
            program.desktop.area = QRect(QPoint(), size);
            program.run([&](Form1& form) {
                ASSERT_EQ(form.size(), size);
                script(form);
                form.OCbrowse();
                QApplication::processEvents();
                script(form);
            });
        }
    }

    static QWidget& part(Form1& form, const char* name)
    {
        return *form.findChild<QWidget*>(QString::fromLatin1(name));
    }

    // Controls that must be there whole, whatever the size.
    static std::vector<QWidget*> essentials(Form1& form)
    {
        std::vector<QWidget*> controls{&part(form, "Xiala"), &part(form, "goEnter")};
        for (const char* const row : {"Band1", "Band3"}) {
            for (QWidget* button :
                 part(form, row).findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                controls.push_back(button);
            }
        }
        return controls;
    }

    RunningProgram program;
};

} // namespace

TEST_F(WindowSizesTest, ShowEveryToolWholeAndApartFromTheOthers)
{
    atEverySize([](Form1& form) {
        const std::vector<QWidget*> controls = essentials(form);
        EXPECT_EQ(controls.size(), 2U + 17U + 12U);
        for (const QWidget* control : controls) {
            EXPECT_EQ(control->visibleRegion().boundingRect(), control->rect()) << nameOf(*control);
            for (const QWidget* other : controls) {
                if (other != control) {
                    EXPECT_FALSE(placeIn(form, *control).intersects(placeIn(form, *other)))
                        << nameOf(*control) << ", " << nameOf(*other);
                }
            }
        }
    });
}

TEST_F(WindowSizesTest, ShowEveryMenuHead)
{
    atEverySize([](Form1& form) {
        QMenuBar& bar = *form.menus().bar();
        for (QAction* head : bar.actions()) {
            const QRect place = bar.actionGeometry(head);
            EXPECT_TRUE(place.isValid() && bar.rect().contains(place))
                << head->text().toStdString();
        }
    });
}

TEST_F(WindowSizesTest, GiveThePictureMostOfTheHeight)
{
    atEverySize([](Form1& form) {
        const QRect viewer = placeIn(form, form.cpvPicScroll1());
        EXPECT_TRUE(form.rect().contains(viewer));
        EXPECT_GE(viewer.height() * 4, form.height() * 3 - 4 * 40);
        EXPECT_GE(viewer.width() * 3, form.width());
        if (core::state().BrowserShown) {
            const QRect pane = placeIn(form, part(form, "frmThumbnaillist"));
            EXPECT_TRUE(form.rect().contains(pane));
            EXPECT_EQ(pane.height(), viewer.height());
        }
    });
}

TEST_F(WindowSizesTest, HaveNoPartOfNegativeOrNoSize)
{
    atEverySize([](Form1& form) {
        for (const QWidget* widget : form.findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->isWindow()) {
                continue;
            }
            EXPECT_GT(widget->width(), 0) << nameOf(*widget);
            EXPECT_GT(widget->height(), 0) << nameOf(*widget);
        }
    });
}

TEST_F(WindowSizesTest, ShowAPictureAndItsOverview)
{
    atEverySize([](Form1& form) {
        QImage image(9000, 5000, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        form.viewer().setPicture(platform::Picture(image));
        RunningProgram::trigger(form, "optView", 11);
        QApplication::processEvents();
        const QWidget& overview = part(form, "frmPanView");
        EXPECT_TRUE(form.rect().contains(placeIn(form, overview)));
        EXPECT_GT(form.cpvPicScroll1().CurrentWidth(), 0);
        EXPECT_GT(form.cpvPicScroll1().CurrentHeight(), 0);
        RunningProgram::trigger(form, "optView", 11);
    });
}
