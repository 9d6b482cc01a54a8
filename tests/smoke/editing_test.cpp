#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"
#include "smoke/smoke_fixture.h"

#include <QPainter>
#include <QProcess>
#include <cstdlib>
#include <string>

using namespace smoke;

namespace {

// Halves of whole 16 x 16 blocks, so that JPEG blurs little of the edge between them.
constexpr QSize kHalf{256, 64};
constexpr QSize kScaledHalf{128, 32};
constexpr int kLostRows = 2;

enum class Format { Bmp, Gif, Jpeg };

// Red, green and blue of each pixel, row by row.
std::string bytesOf(const QImage& image)
{
    std::string bytes;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            for (const int channel : {qRed(pixel), qGreen(pixel), qBlue(pixel)}) {
                bytes.push_back(static_cast<char>(channel));
            }
        }
    }
    return bytes;
}

// Over all channels; that of pictures that can't be compared is more than any.
double meanError(const QImage& one, const QImage& other)
{
    if (one.isNull() || one.size() != other.size()) {
        return 256;
    }
    const std::string left = bytesOf(one);
    const std::string right = bytesOf(other);
    double sum = 0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        sum += std::abs(static_cast<unsigned char>(left[i]) - static_cast<unsigned char>(right[i]));
    }
    return sum / static_cast<double>(left.size());
}

bool runs(const QString& program, const QStringList& arguments)
{
    return QProcess::execute(program, arguments) == 0;
}

} // namespace

class Editing : public SmokeTest {
protected:
    void SetUp() override
    {
        SmokeTest::SetUp();
        ASSERT_TRUE(platform::savePicture(platform::Picture(halves(kRed, kBlue, kHalf)),
                                          tree.path("two.bmp")));
    }

    // Waits for halves of this size in the viewer, the first one on top. What was a JPEG may have
    // lost some rows to the edge between them.
    static bool halvesAppear(const WindowParts& parts, QColor top, QColor bottom, QSize half,
                             int lostRows = 0)
    {
        return waitUntil([&] {
            const QImage shot = screen();
            const QRect upper = boundsOf(shot, parts.viewer(), top);
            const QRect lower = boundsOf(shot, parts.viewer(), bottom);
            return (upper | lower).size() == QSize(half.width(), 2 * half.height()) &&
                   upper.height() >= half.height() - lostRows &&
                   lower.height() >= half.height() - lostRows && upper.bottom() < lower.top() &&
                   upper.left() == lower.left() && upper.right() == lower.right();
        });
    }

    // The picture that the halves make, or a file that shows exactly that.
    static QImage halves(QColor top, QColor bottom, QSize half)
    {
        QImage image(half.width(), 2 * half.height(), QImage::Format_RGB32);
        image.fill(bottom);
        QPainter(&image).fillRect(QRect(QPoint(), half), top);
        return image;
    }
    static QImage pixelsOf(const QString& file)
    {
        const auto picture = platform::loadPicture(file);
        return picture ? picture->image().convertToFormat(QImage::Format_RGB32) : QImage();
    }

    // From the viewer with the focus to a picture with halves of half the size, blue on top.
    static void flipAndScale(const DesktopSession& session, const WindowParts& parts)
    {
        session.key(QStringLiteral("v"));
        ASSERT_TRUE(halvesAppear(parts, kBlue, kRed, kHalf));
        session.key(QStringLiteral("z"));
        ASSERT_TRUE(halvesAppear(parts, kRed, kBlue, kHalf));
        session.key(QStringLiteral("v"));
        ASSERT_TRUE(halvesAppear(parts, kBlue, kRed, kHalf));
        session.keys({QStringLiteral("alt+i"), QStringLiteral("s")});
        ASSERT_TRUE(session.dialogOpens());
        session.keys({QStringLiteral("alt+w"), QStringLiteral("ctrl+a")});
        session.type(QString::number(kScaledHalf.width()));
        session.key(QStringLiteral("Return"));
        ASSERT_TRUE(session.dialogsAreClosed());
        ASSERT_TRUE(halvesAppear(parts, kBlue, kRed, kScaledHalf));
    }

    // Answers the dialog for a file to save, all by keys.
    static void saveAs(const DesktopSession& session, const QString& path, Format format)
    {
        // The letter stands in two entries and chooses the first.
        session.keys({QStringLiteral("alt+f"), QStringLiteral("s"), QStringLiteral("Return")});
        ASSERT_TRUE(session.dialogOpens());
        session.keys({QStringLiteral("alt+n"), QStringLiteral("Tab")}); // to the types
        for (int i = 0; i < static_cast<int>(format); ++i) {
            session.key(QStringLiteral("Down"));
        }
        session.key(QStringLiteral("alt+n"));
        session.type(path);
        session.key(QStringLiteral("Return"));
    }

    // Another picture, then the one of the path.
    void reopen(const DesktopSession& session, const WindowParts& parts, const QString& path) const
    {
        openByPath(session, tree.path("pics/b.jpg"));
        ASSERT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));
        openByPath(session, path);
        EXPECT_TRUE(halvesAppear(parts, kBlue, kRed, kScaledHalf, kLostRows)) << path.toStdString();
    }
};

TEST_F(Editing, FramesThePictureByKeysAndTakesTheFrameOffAgain)
{
    constexpr int kThickness = 5;
    constexpr int kStrip = 4; // of the picture, beyond the frame
    const QSize upper(kHalf.width() - kThickness, kHalf.height() - kThickness);
    const QSize lower(kHalf.width() - kThickness, kHalf.height());
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    openByPath(session, tree.path("two.bmp"));
    ASSERT_TRUE(halvesAppear(parts, kRed, kBlue, kHalf));
    session.click(parts.viewer().center());
    // The third entry from the end; the first one has the mark.
    session.keys({QStringLiteral("alt+e"), QStringLiteral("Up"), QStringLiteral("Up"),
                  QStringLiteral("Up"), QStringLiteral("Return")});
    ASSERT_TRUE(session.windowOpens(QStringLiteral("Frame")));
    EXPECT_TRUE(waitUntil([&session] { // the page is made meanwhile
        session.key(QStringLiteral("Home"));
        return showsText(screen(), screen().rect(), QStringLiteral("Oak"));
    }));
    session.keys({QStringLiteral("Tab"), QStringLiteral("Home"), QStringLiteral("alt+p")});
    EXPECT_TRUE(textAppears(screen().rect(), QString::number(kThickness)));
    session.key(QStringLiteral("alt+a"));
    ASSERT_TRUE(session.dialogsAreClosed());

    EXPECT_TRUE(colourAppears(parts.viewer(), kRed, upper));
    EXPECT_TRUE(colourAppears(parts.viewer(), kBlue, lower));
    const QImage framed = pixelsOf(tree.path("app/temp.bmp"));
    ASSERT_EQ(framed.size(), QSize(kHalf.width(), 2 * kHalf.height()));
    const int right = kHalf.width() - kThickness - kStrip;
    for (const QPoint place : {QPoint(0, 0), QPoint(right, 0), QPoint(2, 60), QPoint(right, 60)}) {
        EXPECT_NE(framed.pixelColor(place), QColor(kRed)) << place.x() << ", " << place.y();
    }
    EXPECT_EQ(framed.pixelColor(right + kThickness, 60), QColor(kRed));
    session.key(QStringLiteral("z"));
    EXPECT_TRUE(halvesAppear(parts, kRed, kBlue, kHalf));
    EXPECT_EQ(session.close(), 0);
}

TEST_F(Editing, SavesWhatItMadeInAllFormatsAndShowsItAgain)
{
    const QString bmp = tree.path("made.bmp");
    const QString gif = tree.path("made.gif");
    const QString jpeg = tree.path("made.jpg");
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    openByPath(session, tree.path("two.bmp"));
    ASSERT_TRUE(halvesAppear(parts, kRed, kBlue, kHalf));
    session.click(parts.viewer().center());
    ASSERT_NO_FATAL_FAILURE(flipAndScale(session, parts));

    ASSERT_NO_FATAL_FAILURE(saveAs(session, bmp, Format::Bmp));
    ASSERT_TRUE(session.dialogsAreClosed());
    EXPECT_TRUE(waitUntil([this] { return tree.exists("made.bmp"); }));
    ASSERT_NO_FATAL_FAILURE(saveAs(session, gif, Format::Gif));
    ASSERT_TRUE(session.dialogsAreClosed());
    EXPECT_TRUE(waitUntil([this] { return tree.exists("made.gif"); }));
    ASSERT_NO_FATAL_FAILURE(saveAs(session, jpeg, Format::Jpeg));
    ASSERT_TRUE(session.windowOpens(QStringLiteral("JPEG Options")));
    const QString options = session.focusedWindow();
    session.key(QStringLiteral("alt+o"));
    // A box with the path comes before the file does.
    ASSERT_TRUE(session.focusMovesFrom(options));
    EXPECT_FALSE(tree.exists("made.jpg"));
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(session.dialogsAreClosed());

    const QImage made = halves(kBlue, kRed, kScaledHalf);
    EXPECT_EQ(pixelsOf(bmp), made);
    ASSERT_TRUE(runs("gif2rgb", {"-1", "-o", tree.path("giflib.rgb"), gif}));
    EXPECT_EQ(tree.content("giflib.rgb"), bytesOf(made));
    ASSERT_TRUE(runs("convert", {gif, "-depth", "8", "rgb:" + tree.path("magick.rgb")}));
    EXPECT_EQ(tree.content("magick.rgb"), bytesOf(made));
    EXPECT_TRUE(tree.content("made.jpg").starts_with("\xFF\xD8"));
    EXPECT_LT(meanError(pixelsOf(jpeg), made), 2.0);
    for (const QString& file : {bmp, gif, jpeg}) {
        reopen(session, parts, file);
    }
    EXPECT_EQ(session.close(), 0);
}
