#include "platform/pictures/jpeg_preview.h"

#include "platform/pictures/picture_saver.h"
#include "platform/pictures/test_images.h"
#include "support/temp_tree.h"

using platform::JpegPreview;
using Outcome = JpegPreview::Outcome;

namespace {

// A preview that lets events run after the least work, so that any number of them come between.
class JpegPreviewFile : public testing::Test {
protected:
    JpegPreviewFile()
    {
        const QImage image =
            test::imageOf(200, 3000, [](int x, int y) { return qRgb(x, y & 255, (x * y) & 255); });
        EXPECT_TRUE(platform::savePicture(platform::Picture(image), m_tree.path("source.bmp")));
    }

    [[nodiscard]] std::string convertedAt(int quality) const
    {
        EXPECT_EQ(BMPToJPG(m_tree.path("source.bmp"), m_tree.path("expected.jpg"), quality), 0);
        return m_tree.content("expected.jpg");
    }
    [[nodiscard]] bool isAt(int quality) const
    {
        return m_tree.content("preview.jpg") == convertedAt(quality);
    }

    support::TempTree m_tree;
    JpegPreview m_preview{m_tree.path("source.bmp"), m_tree.path("preview.jpg"),
                          JpegPreview::Piece(0)};
};

} // namespace

TEST_F(JpegPreviewFile, IsWrittenOnceForEachQualityThatIsWaitedFor)
{
    int pauses = 0;
    for (const int quality : {30, 60, 90}) {
        EXPECT_EQ(m_preview.request(quality, [&] { return ++pauses > 0; }), Outcome::Converted);
        EXPECT_TRUE(isAt(quality));
    }
    EXPECT_GT(pauses, 100);
    EXPECT_EQ(m_preview.started(), 3);
    EXPECT_EQ(m_preview.written(), 3);
}

TEST_F(JpegPreviewFile, IsNeverFinishedAtAQualityThatWasOvertaken)
{
    int pauses = 0;
    // Every third pause brings a new value, as a slider that moves does, up to 99.
    const auto moveOn = [&] {
        EXPECT_FALSE(m_tree.exists("preview.jpg"));
        ++pauses;
        if (pauses % 3 == 0 && pauses / 3 < 20) {
            EXPECT_EQ(m_preview.request(80 + pauses / 3, {}), Outcome::Overtaken);
        }
        return true;
    };
    EXPECT_EQ(m_preview.request(80, moveOn), Outcome::Converted);
    EXPECT_EQ(m_preview.started(), 20);
    EXPECT_EQ(m_preview.written(), 1);
    EXPECT_TRUE(isAt(99));
}

TEST_F(JpegPreviewFile, TakesTheLastOfManyValuesAtOnce)
{
    bool isFirst = true;
    const auto jump = [&] {
        if (std::exchange(isFirst, false)) {
            for (int quality = 1; quality <= 50; ++quality) {
                EXPECT_EQ(m_preview.request(quality, {}), Outcome::Overtaken);
            }
        }
        return true;
    };
    EXPECT_EQ(m_preview.request(80, jump), Outcome::Converted);
    EXPECT_EQ(m_preview.started(), 2);
    EXPECT_EQ(m_preview.written(), 1);
    EXPECT_TRUE(isAt(50));
}

TEST_F(JpegPreviewFile, IsLeftAloneWhenItIsStopped)
{
    EXPECT_EQ(m_preview.request(40, {}), Outcome::Converted);
    const auto stop = [&] {
        m_preview.stop();
        return true;
    };
    EXPECT_EQ(m_preview.request(50, stop), Outcome::Stopped);
    EXPECT_EQ(m_preview.request(60, [] { return false; }), Outcome::Stopped);
    EXPECT_EQ(m_preview.started(), 3);
    EXPECT_EQ(m_preview.written(), 1);
    EXPECT_TRUE(isAt(40));
    EXPECT_EQ(m_preview.request(70, {}), Outcome::Converted);
    EXPECT_TRUE(isAt(70));
}

TEST_F(JpegPreviewFile, IsCompletedFromInsideAnEvent)
{
    bool isFirst = true;
    const auto finish = [&] {
        if (std::exchange(isFirst, false)) {
            m_preview.finishNow();
            EXPECT_TRUE(isAt(40));
            m_preview.finishNow();
        }
        return true;
    };
    EXPECT_EQ(m_preview.request(40, finish), Outcome::Converted);
    EXPECT_EQ(m_preview.started(), 2);
    EXPECT_EQ(m_preview.written(), 1);
}

TEST_F(JpegPreviewFile, IsNotWrittenWithoutASource)
{
    m_tree.remove("source.bmp");
    EXPECT_EQ(m_preview.request(40, [] { return true; }), Outcome::Failed);
    EXPECT_EQ(m_preview.started(), 1);
    EXPECT_EQ(m_preview.written(), 0);
    EXPECT_FALSE(m_tree.exists("preview.jpg"));
}
