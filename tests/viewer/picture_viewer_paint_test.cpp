#include "platform/pictures/picture_loader.h"
#include "viewer_window.h"

#include <QPainter>
#include <sys/mman.h>

namespace {

class PictureViewerPaint : public ViewerWindow {
protected:
    // The paint area as it shows at a screen ratio.
    [[nodiscard]] QImage shown(double ratio = 1.0) const
    {
        QImage image((QSizeF(iDst()->size()) * ratio).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::magenta);
        iDst()->render(&image);
        image.setDevicePixelRatio(1.0);
        return image;
    }

    // The picture pixel at the middle of a device pixel; the one before where the middle falls on
    // the line between both.
    [[nodiscard]] static bool covers(int pixel, double middle, double scale)
    {
        const double exact = middle / scale;
        return pixel == int(exact) || (exact == int(exact) && pixel == int(exact) - 1);
    }

    // Device pixels that don't show the colour of the picture pixel which lies there. The picture
    // tells its places by red and green.
    [[nodiscard]] int wrongPixels(double ratio) const
    {
        const QImage image = shown(ratio);
        const double scale = viewer.ZoomFactor() * ratio;
        int wrong = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb colour = image.pixel(x, y);
                const bool right = covers(qRed(colour), x + 0.5 + hSB()->value() * ratio, scale) &&
                                   covers(qGreen(colour), y + 0.5 + vSB()->value() * ratio, scale);
                wrong += right ? 0 : 1;
            }
        }
        return wrong;
    }
};

TEST_F(PictureViewerPaint, ShowsAlignedBlocksAtEveryOffsetOfZoomThree)
{
    viewer.resize(50, 40);
    viewer.setPicture(tellingPicture(40, 30));
    viewer.setZoomFactor(3);
    ASSERT_EQ(iDst()->size(), QSize(35, 25));
    for (int offset = 0; offset <= hSB()->maximum(); ++offset) {
        hSB()->setValue(offset);
        vSB()->setValue(std::min(offset, vSB()->maximum()));
        EXPECT_EQ(wrongPixels(1.0), 0) << offset;
    }
}

TEST_F(PictureViewerPaint, StaysSharpAtEveryZoomAndScreenRatio)
{
    viewer.resize(80, 70);
    viewer.setPicture(tellingPicture(200, 150));
    for (const int zoom : {1, 2, 4, 15}) {
        viewer.setZoomFactor(zoom);
        for (const double ratio : {1.0, 1.5, 2.0}) {
            hSB()->setValue(hSB()->maximum() / 2 + 1);
            EXPECT_EQ(wrongPixels(ratio), 0) << zoom << " " << ratio;
        }
    }
}

TEST_F(PictureViewerPaint, EnlargesAPictureThatNeedsNoBars)
{
    viewer.setPicture(tellingPicture(20, 10));
    viewer.setZoomFactor(4);
    ASSERT_EQ(iDst()->size(), QSize(80, 40));
    EXPECT_EQ(wrongPixels(1.0), 0);
}

TEST_F(PictureViewerPaint, KeepsItsScaleWithHiddenBars)
{
    viewer.setPicture(tellingPicture(250, 200));
    viewer.setScrollBars(1);
    viewer.setZoomFactor(2);
    ASSERT_EQ(iDst()->size(), QSize(400, 300));
    EXPECT_EQ(wrongPixels(1.0), 0);
}

TEST_F(PictureViewerPaint, FillsWhatThePictureLeavesFree)
{
    // The bar of a zoomed picture that has gone leaves more room than picture.
    viewer.setBackColor(base::rgb(1, 2, 3));
    viewer.setPicture(plainPicture(130, 66));
    viewer.setZoomFactor(5);
    ASSERT_FALSE(hSB()->isHidden());
    ASSERT_FALSE(vSB()->isHidden());
    viewer.setZoomFactor(3);
    ASSERT_EQ(iDst()->size(), QSize(400, 198));
    const QImage image = shown();
    EXPECT_EQ(image.pixel(389, 100), qRgb(40, 80, 120));
    EXPECT_EQ(image.pixel(390, 100), qRgb(1, 2, 3));
}

TEST_F(PictureViewerPaint, AveragesAPictureFittedIntoLessRoom)
{
    QImage stripes(800, 600, QImage::Format_RGB32);
    for (int y = 0; y < stripes.height(); ++y) {
        for (int x = 0; x < stripes.width(); ++x) {
            stripes.setPixel(x, y, x % 2 == 0 ? qRgb(0, 0, 0) : qRgb(200, 200, 200));
        }
    }
    viewer.setPicture(platform::Picture(stripes));
    viewer.setBestFitMode(true);
    ASSERT_EQ(iDst()->size(), QSize(400, 300));
    const QImage image = shown();
    for (const QPoint place : {QPoint(0, 0), QPoint(200, 150), QPoint(399, 299)}) {
        EXPECT_NEAR(qRed(image.pixel(place)), 100, 2);
    }
    viewer.setPicture(plainPicture(800, 600, qRgb(9, 8, 7)));
    EXPECT_EQ(shown().pixel(200, 150), qRgb(9, 8, 7));
}

TEST_F(PictureViewerPaint, ShowsTheBackColourBesideThePicture)
{
    viewer.setBackColor(base::rgb(10, 20, 30));
    viewer.setPicture(plainPicture(100, 50));
    const QImage image = viewer.grab().toImage();
    EXPECT_EQ(image.pixel(5, 5), qRgb(10, 20, 30));
    EXPECT_EQ(image.pixel(200, 150), qRgb(40, 80, 120));
}

TEST_F(PictureViewerPaint, ShowsATranslucentPictureOverWhite)
{
    QImage icon(32, 32, QImage::Format_ARGB32);
    icon.fill(Qt::transparent);
    icon.setPixelColor(4, 5, QColor(10, 20, 30));
    viewer.setPicture(platform::Picture(icon));
    EXPECT_EQ(shown().pixel(4, 5), qRgb(10, 20, 30));
    EXPECT_EQ(shown().pixel(0, 0), qRgb(255, 255, 255));
}

TEST_F(PictureViewerPaint, ShowsWhateverTheLoaderHandsOut)
{
    // A cursor file of 2 x 2 pixels: header, one entry, bitmap header, rows bottom up, mask.
    const unsigned char bytes[] = {0,  0, 2, 0,   1,  0,                                      //
                                   2,  2, 0, 0,   0,  0,  0,  0,   64, 0, 0, 0, 22, 0, 0,  0, //
                                   40, 0, 0, 0,   2,  0,  0,  0,   4,  0, 0, 0, 1,  0, 32, 0, //
                                   0,  0, 0, 0,   0,  0,  0,  0,   0,  0, 0, 0, 0,  0, 0,  0, //
                                   0,  0, 0, 0,   0,  0,  0,  0,                              //
                                   1,  2, 3, 255, 4,  5,  6,  255,                            //
                                   7,  8, 9, 255, 10, 11, 12, 255,                            //
                                   0,  0, 0, 0,   0,  0,  0,  0};
    tree.add({"a.cur", std::string(std::begin(bytes), std::end(bytes))});
    const auto loaded = platform::loadPicture(tree.path("a.cur"));
    ASSERT_TRUE(loaded.has_value());
    viewer.setPicture(*loaded);
    EXPECT_EQ(viewer.PictureWidth(), 2);
    EXPECT_EQ(shown().pixel(0, 0), qRgb(9, 8, 7));
    EXPECT_EQ(shown().pixel(1, 1), qRgb(6, 5, 4));
}

// Rows that may not be read: touching one ends the process.
class GuardedRows {
public:
    GuardedRows(int width, int height)
        : m_bytes(std::size_t(width) * 4 * std::size_t(height))
        , m_memory(
              ::mmap(nullptr, m_bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
        , m_image(static_cast<const uchar*>(m_memory), width, height, width * 4,
                  QImage::Format_RGB32)
    {
    }
    ~GuardedRows() { ::munmap(m_memory, m_bytes); }
    GuardedRows(const GuardedRows&) = delete;
    GuardedRows& operator=(const GuardedRows&) = delete;

    [[nodiscard]] const QImage& image() const { return m_image; }
    [[nodiscard]] bool allowOnly(int firstRow, int rows)
    {
        constexpr std::size_t kPage = 4096;
        const std::size_t begin = std::size_t(firstRow) * std::size_t(m_image.bytesPerLine());
        const std::size_t bytes = std::size_t(rows) * std::size_t(m_image.bytesPerLine());
        const std::size_t page = begin / kPage * kPage;
        return ::mprotect(m_memory, m_bytes, PROT_NONE) == 0 &&
               ::mprotect(static_cast<char*>(m_memory) + page, bytes + begin - page, PROT_READ) ==
                   0;
    }

private:
    std::size_t m_bytes;
    void* m_memory;
    QImage m_image;
};

TEST_F(PictureViewerPaint, ReadsNoMoreThanTheVisibleRows)
{
    GuardedRows rows(2048, 2000);
    viewer.setPicture(platform::Picture(rows.image()));
    for (const int zoom : {1, 3}) {
        viewer.setZoomFactor(zoom);
        vSB()->setValue(600 * zoom);
        const int visible = iDst()->height() / zoom;
        ASSERT_TRUE(rows.allowOnly(600 - 2, visible + 6));
        EXPECT_EQ(qRed(shown().pixel(10, 10)), 0);
    }
    viewer.setPicture({});
}

} // namespace
