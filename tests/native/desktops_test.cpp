#include "files/routing.h"
#include "native/native_fixture.h"
#include "platform/desktop/qt_desktop.h"
#include "viewer/picture_viewer.h"

#include <QAbstractButton>
#include <QPalette>
#include <QScreen>

using namespace native;
using namespace smoke;

namespace {

const QColor kViewerColour(0x30, 0x30, 0x30); // "EditorColor" of the settings

class CountingDesktop : public platform::QtDesktop {
public:
    bool maximise(QWidget& window) override
    {
        ++asked;
        return QtDesktop::maximise(window);
    }

    int asked = 0;
};

} // namespace

// Where the main window stands, whatever the desktop makes of its wish to be maximised.
class Desktops : public NativeTest {
protected:
    // A desktop may have its last word after the first picture.
    static bool takesTheScreen(const Form1& form)
    {
        return waitUntil([&form] { return form.width() * 10 > form.screen()->size().width() * 9; });
    }

    // Both edges of a part lie on the screen, and it is what is seen there.
    static bool isWhole(const QImage& shot, const QWidget& part, const QColor& colour)
    {
        const QRect place = onScreen(part);
        return shot.rect().contains(place) &&
               isNear(shot.pixel(place.bottomLeft() + QPoint(2, -2)), colour) &&
               isNear(shot.pixel(place.bottomRight() - QPoint(2, 2)), colour);
    }

    CountingDesktop desktop;
    platform::ScopedDesktop m_desktop{desktop};
};

TEST_F(Desktops, AreAskedOnceToMaximise)
{
    run([this](Form1& form) {
        ASSERT_TRUE(takesTheScreen(form));
        // Time for as many answers as the desktop would like to give.
        for (int k = 0; k < 10; ++k) {
            ASSERT_TRUE(tilesAppear(form));
        }
        EXPECT_EQ(desktop.asked, 1);
        EXPECT_TRUE(isWhole(screen(), part(form, "StateBar"),
                            part(form, "StateBar").palette().color(QPalette::Window)));
    });
}

TEST_F(Desktops, GetTheTilesAtOnceThatARefreshMakes)
{
    run([](Form1& form) {
        ASSERT_TRUE(takesTheScreen(form));
        ASSERT_TRUE(tilesSettle(form));
        const QImage made = tileArea(form).grab().toImage();
        const QImage first = screen().copy(onScreen(tileArea(form)));
        dynamic_cast<QAbstractButton&>(part(form, "Tbmenub_8")).click();
        ASSERT_TRUE(tilesSettle(form));
        EXPECT_EQ(made, tileArea(form).grab().toImage());
        EXPECT_EQ(first, screen().copy(onScreen(tileArea(form))));
    });
}

TEST_F(Desktops, ShowThePictureAloneInTheMiddleOfTheWindow)
{
    settings[QStringLiteral("ObcBrowse")] = QStringLiteral("0");
    run([this](Form1& form) {
        ASSERT_TRUE(takesTheScreen(form));
        files::routePath(form, form, tree.path("pics/b.jpg"));
        const QRect window = onScreen(form);
        ASSERT_TRUE(colourAppears(window, kGreen, kJpegSize));
        const QImage shot = screen();
        EXPECT_NEAR(boundsOf(shot, window, kGreen).center().x(), window.center().x(), 2);
        EXPECT_TRUE(isWhole(shot, pictureArea(form), kViewerColour));
        EXPECT_NEAR(onScreen(pictureArea(form)).right(), window.right(), 2);
        EXPECT_NEAR(onScreen(part(form, "AviHost")).right(), window.right(), 2);
    });
}
