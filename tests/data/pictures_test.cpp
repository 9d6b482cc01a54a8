#include "delivered_files.h"

#include "formats/gif_reading.h"
#include "formats/gif_writer.h"
#include "platform/pictures/jpeg_encoder.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

namespace {

constexpr std::array kToolbar{
    "open",      "save",   "zoomin",   "zoomout",    "fullsize",  "forward",     "back",
    "slideshow", "start",  "stop",     "slower",     "faster",    "favourite",   "addfavourite",
    "help",      "update", "browse",   "mail",       "bestfit",   "frame",       "fullscreen",
    "up",        "tools",  "refresh",  "properties", "rename",    "delete",      "copy",
    "move",      "go",     "folder",   "drive",      "home",      "picture",     "stoplight",
    "send",      "bold",   "italic",   "underline",  "alignleft", "aligncentre", "alignright",
    "font",      "link",   "mailidle", "mailbusy"};

constexpr std::size_t kGifHeadBytes = 6 + 7 + 768 + 1;
constexpr int kJpegQuality = 92;

constexpr std::array kDensityEndings{".png", "@2x.png", "@3x.png"};

bool hasPaint(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 200) {
                return true;
            }
        }
    }
    return false;
}

QSize decodedSize(const std::string& name, const char* format)
{
    return delivered::imageOf(delivered::picture(name), format).size();
}

TEST(DeliveredPictures, ToolbarPicturesComeInThreeDensities)
{
    for (const std::string name : kToolbar) {
        int factor = 1;
        for (const char* const ending : kDensityEndings) {
            const QImage image =
                delivered::imageOf(delivered::picture("toolbar/" + name + ending), "PNG");
            EXPECT_EQ(image.size(), QSize(24 * factor, 24 * factor)) << name << ending;
            EXPECT_TRUE(hasPaint(image)) << name << ending;
            ++factor;
        }
    }
}

TEST(DeliveredPictures, ToolbarPicturesLetAnyGroundShine)
{
    for (const std::string name : kToolbar) {
        const QImage image =
            delivered::imageOf(delivered::picture("toolbar/" + name + ".png"), "PNG");
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << name;
        EXPECT_EQ(image.pixelColor(23, 23).alpha(), 0) << name;
    }
}

TEST(DeliveredPictures, PointersHaveTheirHotSpotInTheMiddleOf32Pixels)
{
    for (const std::string name : {"grab", "release", "precise"}) {
        const QImage single =
            delivered::imageOf(delivered::picture("cursors/" + name + ".png"), "PNG");
        const QImage twofold =
            delivered::imageOf(delivered::picture("cursors/" + name + "@2x.png"), "PNG");
        ASSERT_EQ(single.size(), QSize(32, 32)) << name;
        EXPECT_EQ(twofold.size(), QSize(64, 64)) << name;
        EXPECT_GT(single.pixelColor(16, 16).alpha(), 128) << name;
    }
}

TEST(DeliveredPictures, WindowPicturesDecodeInTheFormatOfTheirName)
{
    const std::array<std::pair<const char*, QSize>, 7> gifs{{
        {"Titlebar.gif", QSize(1600, 32)},
        {"UserInterface.gif", QSize(240, 160)},
        {"UserInterface@2x.gif", QSize(480, 320)},
        {"WindowsStand.gif", QSize(240, 160)},
        {"WindowsStand@2x.gif", QSize(480, 320)},
        {"Search.gif", QSize(64, 64)},
        {"Searchgoogle.gif", QSize(240, 48)},
    }};
    for (const auto& [name, size] : gifs) {
        EXPECT_EQ(decodedSize(name, "GIF"), size) << name;
    }
    EXPECT_EQ(decodedSize("Copyfile.jpg", "JPG"), QSize(360, 60));
    EXPECT_EQ(decodedSize("Movefile.jpg", "JPG"), QSize(360, 60));
    EXPECT_EQ(decodedSize("Copyfile@2x.jpg", "JPG"), QSize(720, 120));
    EXPECT_EQ(decodedSize("Movefile@2x.jpg", "JPG"), QSize(720, 120));
    EXPECT_EQ(decodedSize("opcolse.jpg", "JPG"), QSize(48, 12));
    EXPECT_EQ(decodedSize("Opcolse-1.jpg", "JPG"), QSize(48, 12));
}

// Table and pixels of a GIF file that the program wrote, as its writer takes them.
struct Indexed {
    formats::GifBitmapInfo info;
    std::vector<std::byte> bits;
};

Indexed indexedOf(const gif::Bytes& file)
{
    const gif::Decoded decoded = gif::decodeImage(file, kGifHeadBytes);
    Indexed picture;
    picture.info.width = decoded.width;
    picture.info.height = decoded.height;
    for (std::size_t i = 0; i < picture.info.colours.size(); ++i) {
        const auto part = [&](std::size_t channel) {
            return static_cast<std::uint8_t>(gif::byteAt(file, 13 + 3 * i + channel));
        };
        picture.info.colours[i] = {part(0), part(1), part(2)};
    }
    const std::size_t stride = formats::gifStride(picture.info);
    const auto width = static_cast<std::size_t>(decoded.width);
    const auto height = static_cast<std::size_t>(decoded.height);
    picture.bits.resize(stride * height);
    for (std::size_t i = 0; i < decoded.pixels.size(); ++i) {
        picture.bits[(height - 1 - i / width) * stride + i % width] =
            static_cast<std::byte>(decoded.pixels[i]);
    }
    return picture;
}

TEST(DeliveredPictures, GifFilesAreWhatTheProgramWrites)
{
    for (const char* const name :
         {"Titlebar.gif", "UserInterface.gif", "UserInterface@2x.gif", "WindowsStand.gif",
          "WindowsStand@2x.gif", "Search.gif", "Searchgoogle.gif"}) {
        const gif::Bytes file = delivered::bytesOf(delivered::picture(name));
        ASSERT_GT(file.size(), kGifHeadBytes) << name;
        const Indexed picture = indexedOf(file);
        gif::Bytes again;
        EXPECT_TRUE(WriteGifFile(picture.info, picture.bits, again)) << name;
        EXPECT_TRUE(again == file) << name;
    }
}

// Everything before the compressed pixels: sizes, sampling and tables, which tell writers apart.
QByteArray jpegHead(const QByteArray& file)
{
    return file.left(file.indexOf("\xFF\xDA"));
}

TEST(DeliveredPictures, JpegFilesAreWhatTheProgramWrites)
{
    for (const char* const name :
         {"Copyfile.jpg", "Movefile.jpg", "opcolse.jpg", "Opcolse-1.jpg"}) {
        const std::vector<std::byte> bytes = delivered::bytesOf(delivered::picture(name));
        const QByteArray file(reinterpret_cast<const char*>(bytes.data()),
                              static_cast<qsizetype>(bytes.size()));
        platform::JpegEncoder encoder(QImage::fromData(file, "JPG"), kJpegQuality);
        ASSERT_TRUE(encoder.encodeAll()) << name;
        const QByteArray again(reinterpret_cast<const char*>(encoder.bytes().data()),
                               static_cast<qsizetype>(encoder.bytes().size()));
        EXPECT_GT(jpegHead(again).size(), 500) << name;
        EXPECT_TRUE(jpegHead(file) == jpegHead(again)) << name;
    }
}

TEST(DeliveredPictures, StartAndAboutPicturesComeInTwoDensities)
{
    EXPECT_EQ(decodedSize("splash.png", "PNG"), QSize(480, 280));
    EXPECT_EQ(decodedSize("splash@2x.png", "PNG"), QSize(960, 560));
    EXPECT_EQ(decodedSize("about.png", "PNG"), QSize(480, 160));
    EXPECT_EQ(decodedSize("about@2x.png", "PNG"), QSize(960, 320));
}

TEST(DeliveredPictures, TheTitleStripIsDarkEnoughForWhiteText)
{
    const QImage strip = delivered::imageOf(delivered::picture("Titlebar.gif"), "GIF");
    ASSERT_FALSE(strip.isNull());
    for (int x = 0; x < 320; ++x) {
        EXPECT_LT(strip.pixelColor(x, 10).lightnessF(), 0.5) << x;
    }
}

} // namespace
