#include "widgets/avi.h"

#include "avi_bytes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class AviTest : public testing::Test {
protected:
    void SetUp() override
    {
        QFile file(m_clip);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(avi_bytes::file(avi_bytes::twoFrames()));
        m_window.resize(100, 60);
        m_window.show();
    }

    QTemporaryDir m_folder;
    QString m_clip = m_folder.filePath("clip.avi");
    QWidget m_window;
};

} // namespace

TEST_F(AviTest, PlaysAtItsPlaceAsSoonAsItIsCreated)
{
    Avi avi;
    avi.Create(m_clip, &m_window, 10, 5, 40, 20);
    ASSERT_NE(avi.window(), nullptr);
    EXPECT_EQ(avi.secondWindow(), nullptr);
    EXPECT_EQ(avi.window()->geometry(), QRect(10, 5, 40, 20));
    EXPECT_EQ(avi.window()->frameCount(), 2);
    EXPECT_TRUE(avi.window()->isPlaying());
    EXPECT_TRUE(QTest::qWaitFor([&] { return avi.window()->currentFrame() == 1; }));
}

TEST_F(AviTest, TakesTheSizeOfTheClipWithoutOne)
{
    Avi avi;
    avi.Create(m_clip, &m_window, 0, 0, 0, 0);
    EXPECT_EQ(avi.window()->size(), QSize(2, 2));
}

TEST_F(AviTest, PlaysInTwoWindows)
{
    QWidget second;
    second.show();
    Avi avi;
    avi.Create(m_clip, &m_window, 0, 0, 40, 20, &second);
    ASSERT_NE(avi.secondWindow(), nullptr);
    EXPECT_EQ(avi.secondWindow()->parentWidget(), &second);
    EXPECT_TRUE(avi.secondWindow()->isPlaying());
    avi.AnimateStop();
    EXPECT_FALSE(avi.secondWindow()->isPlaying());
}

TEST_F(AviTest, StaysSilentWithoutItsFile)
{
    Avi avi;
    avi.Create(m_folder.filePath("missing.avi"), &m_window, 0, 0, 40, 20);
    avi.AnimatePlay();
    avi.AutoPlay();
    ASSERT_NE(avi.window(), nullptr);
    EXPECT_FALSE(avi.window()->isPlaying());
    EXPECT_FALSE(avi.window()->isTimerRunning());
    avi.AnimateStop();
    avi.Destroy();
    EXPECT_EQ(avi.window(), nullptr);
}

TEST_F(AviTest, TakesEveryOperationAtAnyTime)
{
    Avi avi;
    avi.AnimatePlay();
    avi.AnimateStop();
    avi.Destroy();
    avi.Create(m_clip, nullptr, 0, 0, 40, 20);
    EXPECT_EQ(avi.window(), nullptr);

    avi.Create(m_clip, &m_window, 0, 0, 40, 20);
    avi.AnimatePlay();
    avi.AnimatePlay();
    EXPECT_TRUE(avi.window()->isPlaying());
    avi.AnimateStop();
    avi.AnimateStop();
    EXPECT_FALSE(avi.window()->isTimerRunning());
    avi.AutoPlay();
    EXPECT_TRUE(avi.window()->isPlaying());
    avi.Destroy();
    avi.Destroy();
    avi.AnimatePlay();
    EXPECT_EQ(avi.window(), nullptr);
}

TEST_F(AviTest, OutlivesItsParent)
{
    Avi avi;
    {
        QWidget parent;
        avi.Create(m_clip, &parent, 0, 0, 40, 20);
    }
    EXPECT_EQ(avi.window(), nullptr);
    avi.AnimatePlay();
}

TEST_F(AviTest, RestsWhileItIsHidden)
{
    Avi avi;
    avi.Create(m_clip, &m_window, 0, 0, 40, 20);
    EXPECT_TRUE(avi.window()->isTimerRunning());
    m_window.hide();
    EXPECT_FALSE(avi.window()->isTimerRunning());
    EXPECT_TRUE(avi.window()->isPlaying());
    m_window.show();
    EXPECT_TRUE(avi.window()->isTimerRunning());
}

TEST_F(AviTest, ShowsItsParentThroughTheTransparentColour)
{
    QPalette colours = m_window.palette();
    colours.setColor(QPalette::Window, QColor(10, 200, 30));
    m_window.setPalette(colours);
    Avi avi;
    avi.Create(m_clip, &m_window, 0, 0, 2, 2);
    avi.AnimateStop();
    const QImage shot = m_window.grab().toImage();
    EXPECT_EQ(shot.pixelColor(0, 0), QColor(10, 200, 30));
}
