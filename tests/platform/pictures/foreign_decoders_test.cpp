// Files of the program as other programs read them.

#include "platform/pictures/gif_export.h"
#include "platform/pictures/jpeg_converter.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"
#include "platform/pictures/test_images.h"
#include "support/temp_tree.h"

#include <QProcess>
#include <random>

namespace {

// Red, green and blue of every pixel, from the top left on.
using Colours = QByteArray;

Colours coloursOf(const QImage& image)
{
    const QImage packed = image.convertToFormat(QImage::Format_RGB888);
    Colours colours;
    for (int y = 0; y < packed.height(); ++y) {
        colours.append(reinterpret_cast<const char*>(packed.constScanLine(y)), packed.width() * 3);
    }
    return colours;
}

class ForeignDecoders : public testing::Test {
protected:
    // What a program writes about a file, given as its last arguments.
    [[nodiscard]] Colours answerOf(const char* program, const QStringList& arguments) const
    {
        tree.remove("colours");
        QProcess process;
        process.start(QString::fromLatin1(program), arguments);
        EXPECT_TRUE(process.waitForFinished()) << program;
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return QByteArray::fromStdString(tree.content("colours"));
    }

    [[nodiscard]] Colours byGiflib(const std::string& name) const
    {
        return answerOf(GIFLIB_DECODER, {"-1", "-o", tree.path("colours"), tree.path(name)});
    }

    [[nodiscard]] Colours byImageMagick(const std::string& name) const
    {
        return answerOf(IMAGEMAGICK,
                        {tree.path(name), "-depth", "8", "rgb:" + tree.path("colours")});
    }

    void expectGifOf(const QImage& image, const QImage& expected) const
    {
        const std::string name = "picture.gif";
        ASSERT_TRUE(platform::writeGif(platform::Picture(image), tree.path(name)));
        const Colours colours = coloursOf(expected);
        EXPECT_TRUE(byGiflib(name) == colours) << image.width() << "x" << image.height();
        EXPECT_TRUE(byImageMagick(name) == colours) << image.width() << "x" << image.height();
    }

    support::TempTree tree;
};

// Runs and specks of some colours.
QImage randomPicture(QSize size, unsigned colours, std::mt19937& random)
{
    std::vector<QRgb> palette(colours);
    for (QRgb& colour : palette) {
        colour = 0xFF000000U | (random() & 0xFFFFFFU);
    }
    unsigned left = 0;
    QRgb colour = 0;
    const unsigned longest = random() % 2 == 0 ? 1 : 90;
    return test::imageOf(size.width(), size.height(), [&](int, int) {
        if (left-- == 0) {
            colour = palette[random() % colours];
            left = static_cast<unsigned>(random()) % longest;
        }
        return colour;
    });
}

double squaredError(const Colours& left, const Colours& right)
{
    EXPECT_EQ(left.size(), right.size());
    double sum = 0;
    for (qsizetype i = 0; i < std::min(left.size(), right.size()); ++i) {
        sum += std::pow(int(uchar(left[i])) - int(uchar(right[i])), 2);
    }
    return sum / double(left.size());
}

} // namespace

TEST_F(ForeignDecoders, SeeEveryPixelOfAGif)
{
    std::mt19937 random(20);
    std::vector<QSize> sizes{{1, 1}, {600, 400}, {600, 1}, {1, 400}, {256, 16}};
    for (int width = 1; width <= 5; ++width) {
        sizes.emplace_back(width, 1 + int(random() % 7));
        sizes.emplace_back(width, 8 + int(random() % 390));
    }
    while (sizes.size() < 30) {
        sizes.emplace_back(1 + int(random() % 600), 1 + int(random() % 400));
    }
    for (const QSize size : sizes) {
        const unsigned colours = 1 + static_cast<unsigned>(random()) % 256;
        const QImage image = randomPicture(size, colours, random);
        expectGifOf(image, image);
    }
}

TEST_F(ForeignDecoders, SeeTheColoursThatAGifWasReducedTo)
{
    const QImage image = test::imageOf(
        300, 200, [](int x, int y) { return qRgb(x * 255 / 299, y * 255 / 199, (x * y) & 255); });
    ASSERT_TRUE(platform::writeGif(platform::Picture(image), tree.path("reduced.gif")));
    const auto reduced = platform::loadPicture(tree.path("reduced.gif"));
    ASSERT_TRUE(reduced);
    EXPECT_LT(squaredError(coloursOf(image), coloursOf(reduced->flattened())), 250);
    expectGifOf(image, reduced->flattened());
}

TEST_F(ForeignDecoders, SeeAlmostTheColoursOfAJpeg)
{
    const QImage image = test::imageOf(
        123, 77, [](int x, int y) { return qRgb(x * 2, 255 - y * 3, (x + y) * 255 / 198); });
    ASSERT_TRUE(platform::savePicture(platform::Picture(image), tree.path("picture.bmp")));
    double before = 0;
    for (const auto& [quality, mostError] :
         {std::pair(100, 1.0), std::pair(80, 4.0), std::pair(30, 30.0), std::pair(1, 3000.0)}) {
        ASSERT_EQ(BMPToJPG(tree.path("picture.bmp"), tree.path("picture.jpg"), quality), 0);
        const double error = squaredError(coloursOf(image), byImageMagick("picture.jpg"));
        EXPECT_LT(error, mostError) << quality;
        EXPECT_GT(error, before) << quality;
        before = error;
    }
}

TEST_F(ForeignDecoders, SeeSmallAndThinJpegs)
{
    for (const QSize size : {QSize(1, 1), QSize(1, 30), QSize(16000, 1)}) {
        const QImage image = test::filled(size.width(), size.height(), qRgb(200, 100, 50));
        ASSERT_TRUE(platform::savePicture(platform::Picture(image), tree.path("thin.bmp")));
        ASSERT_EQ(BMPToJPG(tree.path("thin.bmp"), tree.path("thin.jpg"), 90), 0);
        EXPECT_LT(squaredError(coloursOf(image), byImageMagick("thin.jpg")), 4) << size.width();
    }
}

TEST_F(ForeignDecoders, SeeEveryPixelOfABmp)
{
    std::mt19937 random(21);
    for (const QSize size : {QSize(1, 1), QSize(2, 9), QSize(3, 5), QSize(333, 222)}) {
        const QImage image = randomPicture(size, 500, random);
        ASSERT_TRUE(platform::savePicture(platform::Picture(image), tree.path("picture.bmp")));
        EXPECT_TRUE(byImageMagick("picture.bmp") == coloursOf(image)) << size.width();
    }
}
