#include "widgets/title_strip.h"

#include "platform/os/paths.h"
#include "support/memory_config_store.h"

#include <QAbstractButton>
#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class TitleStripTest : public testing::Test {
protected:
    void SetUp() override
    {
        qputenv("VISTARA_HOME", m_home.path().toUtf8());
        platform::initialisePaths();
    }

    void deliverPicture()
    {
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(QColor(200, 40, 40));
        deliverPicture(picture);
    }

    void deliverPicture(const QImage& picture)
    {
        ASSERT_TRUE(QDir(m_home.path()).mkpath("Images"));
        // The loader decides by content, so a bitmap serves under any name.
        ASSERT_TRUE(picture.save(m_home.path() + "/Images/Titlebar.gif", "BMP"));
    }

    static QColor middleOf(QWidget& widget)
    {
        const QImage shot = widget.grab().toImage();
        return shot.pixelColor(shot.width() / 2, shot.height() / 2);
    }

    QTemporaryDir m_home;
    support::MemoryConfigStore m_config;
};

} // namespace

TEST_F(TitleStripTest, ShowsThePictureWhenTheSettingAsksForIt)
{
    deliverPicture();
    m_config.write("InterfaceB", "True");
    m_config.write("InterfaceColor", "65280");
    widgets::TitleStrip strip;
    strip.applyLook();
    EXPECT_TRUE(strip.hasPicture());
    EXPECT_EQ(middleOf(strip), QColor(200, 40, 40));
}

TEST_F(TitleStripTest, ShowsTheColourWithoutPictureOtherwise)
{
    deliverPicture();
    m_config.write("InterfaceB", "False");
    m_config.write("InterfaceColor", "14445906");
    widgets::TitleStrip strip;
    strip.applyLook();
    EXPECT_FALSE(strip.hasPicture());
    EXPECT_EQ(middleOf(strip), QColor(82, 109, 220));
}

TEST_F(TitleStripTest, ShowsAWidePictureFromItsLeftEnd)
{
    QImage picture(600, 10, QImage::Format_RGB32);
    picture.fill(QColor(10, 20, 60));
    for (int x = 300; x < 600; ++x) {
        for (int y = 0; y < 10; ++y) {
            picture.setPixelColor(x, y, QColor(230, 240, 255));
        }
    }
    deliverPicture(picture);
    m_config.write("InterfaceB", "True");
    widgets::TitleStrip strip;
    strip.applyLook();
    strip.resize(400, 28);
    EXPECT_EQ(strip.grab().toImage().pixelColor(290, 2), QColor(10, 20, 60));
    EXPECT_EQ(strip.grab().toImage().pixelColor(310, 2), QColor(230, 240, 255));
    strip.resize(1200, 28);
    EXPECT_EQ(strip.grab().toImage().pixelColor(590, 2), QColor(10, 20, 60));
}

TEST_F(TitleStripTest, SurvivesAMissingPicture)
{
    m_config.write("InterfaceB", "True");
    widgets::TitleStrip strip;
    strip.applyLook();
    EXPECT_FALSE(strip.hasPicture());
    EXPECT_EQ(middleOf(strip), strip.backgroundColour());
}

TEST_F(TitleStripTest, KeepsItsColourWhenTheSettingIsNoNumber)
{
    widgets::TitleStrip strip;
    const QColor before = strip.backgroundColour();
    m_config.write("InterfaceColor", "RGB(82, 109, 220)");
    strip.applyLook();
    EXPECT_EQ(strip.backgroundColour(), before);
}

TEST_F(TitleStripTest, SeesAChangeOnlyWhenAWindowLoadsAgain)
{
    m_config.write("InterfaceColor", "255");
    widgets::TitleStrip strip;
    strip.applyLook();
    m_config.write("InterfaceColor", "65280");
    EXPECT_EQ(middleOf(strip), QColor(255, 0, 0));
    strip.applyLook();
    EXPECT_EQ(middleOf(strip), QColor(0, 255, 0));
}

TEST_F(TitleStripTest, ChoosesACaptionColourThatReads)
{
    widgets::TitleStrip strip;
    m_config.write("InterfaceColor", "16777215");
    strip.applyLook();
    EXPECT_EQ(strip.captionColour(), QColor(Qt::black));
    m_config.write("InterfaceColor", "8388608");
    strip.applyLook();
    EXPECT_EQ(strip.captionColour(), QColor(Qt::white));
}

TEST_F(TitleStripTest, LooksForTheInkWhereItWrites)
{
    QImage picture(100, 10, QImage::Format_RGB32);
    picture.fill(QColor(10, 20, 60));
    for (int x = 50; x < 100; ++x) {
        for (int y = 0; y < 10; ++y) {
            picture.setPixelColor(x, y, QColor(230, 240, 255));
        }
    }
    deliverPicture(picture);
    m_config.write("InterfaceB", "-1");
    widgets::TitleStrip strip;
    strip.resize(400, 28);
    strip.setCaption("Short");
    strip.applyLook();
    EXPECT_EQ(strip.captionColour(), QColor(Qt::white));
    EXPECT_EQ(strip.inkOver({370, 3, 22, 22}), QColor(Qt::black));
}

TEST_F(TitleStripTest, EmptiesItsPicture)
{
    deliverPicture();
    m_config.write("InterfaceB", "1");
    widgets::TitleStrip strip;
    strip.applyLook();
    strip.clearPicture();
    EXPECT_FALSE(strip.hasPicture());
}

TEST_F(TitleStripTest, AsksToCloseFromItsBox)
{
    widgets::TitleStrip strip(nullptr, "Image3");
    EXPECT_EQ(strip.objectName(), "Picture2");
    auto* box = strip.findChild<QAbstractButton*>("Image3");
    ASSERT_EQ(box, strip.closeBox());
    EXPECT_FALSE(box->accessibleName().isEmpty());
    const QSignalSpy asked(&strip, &widgets::TitleStrip::closeRequested);
    QTest::mouseClick(box, Qt::LeftButton);
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_EQ(asked.count(), 2);
}

TEST_F(TitleStripTest, NamesItselfByItsCaption)
{
    widgets::TitleStrip strip;
    strip.setCaption("Rename");
    EXPECT_EQ(strip.caption(), "Rename");
    EXPECT_EQ(strip.accessibleName(), "Rename");
}

TEST_F(TitleStripTest, DragsItsWindowByALeftPressOnly)
{
    QWidget window(nullptr, Qt::FramelessWindowHint);
    window.setGeometry(100, 100, 300, 200);
    auto* strip = new widgets::TitleStrip(&window);
    strip->setGeometry(0, 0, 300, 28);
    window.show();
    const QPoint before = window.pos();

    QTest::mousePress(strip, Qt::RightButton, {}, {50, 10});
    QTest::mouseMove(strip, {70, 15});
    QTest::mouseRelease(strip, Qt::RightButton, {}, {70, 15});
    EXPECT_EQ(window.pos(), before);

    QTest::mousePress(strip, Qt::LeftButton, {}, {50, 10});
    QTest::mouseMove(strip, {70, 15});
    QTest::mouseRelease(strip, Qt::LeftButton, {}, {50, 10});
    EXPECT_EQ(window.pos(), before + QPoint(20, 5));
}

TEST_F(TitleStripTest, DragsAChildOrNothingWhenToldSo)
{
    QWidget window;
    window.resize(500, 400);
    QWidget pane(&window);
    pane.setGeometry(100, 100, 200, 200);
    auto* strip = new widgets::TitleStrip(&pane);
    strip->setGeometry(0, 0, 200, 28);
    window.show();

    strip->setDragTarget(&pane);
    QTest::mousePress(strip, Qt::LeftButton, {}, {50, 10});
    QTest::mouseMove(strip, {60, 30});
    QTest::mouseRelease(strip, Qt::LeftButton, {}, {50, 10});
    EXPECT_EQ(pane.pos(), QPoint(110, 120));

    strip->setDragTarget(nullptr);
    QTest::mousePress(strip, Qt::LeftButton, {}, {50, 10});
    QTest::mouseMove(strip, {60, 30});
    QTest::mouseRelease(strip, Qt::LeftButton, {}, {60, 30});
    EXPECT_EQ(pane.pos(), QPoint(110, 120));
}

// The strip's picture may be so light at its end that the other ink would read better there.
TEST_F(TitleStripTest, DrawsTheCrossInTheInkOfTheCaption)
{
    QImage picture(300, 28, QImage::Format_RGB32);
    picture.fill(QColor(20, 30, 80));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 250; x < picture.width(); ++x) {
            picture.setPixelColor(x, y, QColor(230, 230, 240));
        }
    }
    deliverPicture(picture);
    m_config.write("InterfaceB", "True");
    widgets::TitleStrip strip;
    strip.setCaption("Caption");
    strip.resize(300, strip.sizeHint().height());
    strip.applyLook();
    ASSERT_TRUE(strip.hasPicture());
    EXPECT_EQ(strip.captionColour(), QColor(Qt::white));
    QAbstractButton& box = *strip.closeBox();
    const QImage shot = strip.grab(box.geometry()).toImage();
    const QColor cross = shot.pixelColor(shot.width() / 2, shot.height() / 2);
    EXPECT_GT(cross.lightness(), 235);
}
