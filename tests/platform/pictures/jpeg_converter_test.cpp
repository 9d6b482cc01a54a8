#include "platform/pictures/jpeg_converter.h"

#include "platform/pictures/picture_saver.h"
#include "platform/pictures/test_images.h"
#include "support/full_disk.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"

#include <QImage>

namespace {

using Progress = platform::JpegConversion::Progress;

bool failed(int result)
{
    return (result & 0xFFFF) != 0;
}

class JpegConverter : public testing::Test {
protected:
    JpegConverter() { save(test::numbered(200, 120)); }

    void save(const QImage& image) const
    {
        EXPECT_TRUE(platform::savePicture(platform::Picture(image), m_source));
    }

    [[nodiscard]] QImage decoded(const std::string& name) const
    {
        return QImage::fromData(QByteArray::fromStdString(m_tree.content(name)), "JPEG");
    }

    support::TempTree m_tree;
    QString m_source = m_tree.path("source.bmp");
    QString m_target = m_tree.path("target.jpg");
};

} // namespace

TEST_F(JpegConverter, WritesAJpegOfThePicturesSize)
{
    EXPECT_EQ(BMPToJPG(m_source, m_target, 80) & 0xFFFF, 0);
    EXPECT_EQ(decoded("target.jpg").size(), QSize(200, 120));
}

TEST_F(JpegConverter, WritesSmallerFilesForLowerQualities)
{
    EXPECT_FALSE(failed(BMPToJPG(m_source, m_tree.path("1.jpg"), 1)));
    EXPECT_FALSE(failed(BMPToJPG(m_source, m_tree.path("100.jpg"), 100)));
    EXPECT_LT(m_tree.content("1.jpg").size(), m_tree.content("100.jpg").size());
}

TEST_F(JpegConverter, ReplacesAnExistingFile)
{
    m_tree.add({"target.jpg", std::string(100000, 'x')});
    EXPECT_FALSE(failed(BMPToJPG(m_source, m_target, 80)));
    EXPECT_EQ(decoded("target.jpg").size(), QSize(200, 120));
}

TEST_F(JpegConverter, KeepsTheTargetWhenTheSourceCantBeRead)
{
    m_tree.add({"target.jpg", "kept"});
    EXPECT_TRUE(failed(BMPToJPG(m_tree.path("missing.bmp"), m_target, 80)));
    m_tree.add({"text.bmp", "no picture"});
    EXPECT_TRUE(failed(BMPToJPG(m_tree.path("text.bmp"), m_target, 80)));
    EXPECT_TRUE(failed(BMPToJPG(m_tree.root(), m_target, 80)));
    EXPECT_EQ(m_tree.content("target.jpg"), "kept");
}

TEST_F(JpegConverter, FailsWhereNoFileCanBe)
{
    m_tree.add({"folder/", ""});
    EXPECT_TRUE(failed(BMPToJPG(m_source, m_tree.path("folder"), 80)));
    EXPECT_TRUE(failed(BMPToJPG(m_source, m_tree.path("none/target.jpg"), 80)));
    EXPECT_TRUE(failed(BMPToJPG(m_source, QString(), 80)));
    EXPECT_TRUE(failed(BMPToJPG(m_source, QStringLiteral("/dev/full"), 80)));
}

TEST_F(JpegConverter, LeavesAReadOnlyTargetAlone)
{
    m_tree.add({"open/locked.jpg", "kept"});
    namespace fs = std::filesystem;
    fs::permissions(m_tree.native("."), fs::perms::group_exec | fs::perms::others_exec,
                    fs::perm_options::add);
    fs::permissions(m_tree.native("open"), fs::perms::all);
    fs::permissions(m_tree.native("source.bmp"), fs::perms::all);
    fs::permissions(m_tree.native("open/locked.jpg"),
                    fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    {
        const support::OrdinaryUser user;
        EXPECT_TRUE(failed(BMPToJPG(m_source, m_tree.path("open/locked.jpg"), 80)));
        EXPECT_FALSE(failed(BMPToJPG(m_source, m_tree.path("open/new.jpg"), 80)));
    }
    EXPECT_EQ(m_tree.content("open/locked.jpg"), "kept");
}

TEST_F(JpegConverter, NeverWritesOverItsSource)
{
    const std::string before = m_tree.content("source.bmp");
    EXPECT_TRUE(failed(BMPToJPG(m_source, m_source, 80)));
    std::filesystem::create_symlink(m_tree.native("source.bmp"), m_tree.native("link.jpg"));
    EXPECT_TRUE(failed(BMPToJPG(m_source, m_tree.path("link.jpg"), 80)));
    EXPECT_EQ(m_tree.content("source.bmp"), before);
}

TEST_F(JpegConverter, KeepsTheTargetOnAFullDisk)
{
    m_tree.add({"target.jpg", "kept"});
    {
        const support::FullDisk disk(100);
        EXPECT_TRUE(failed(BMPToJPG(m_source, m_target, 100)));
    }
    EXPECT_EQ(m_tree.content("target.jpg"), "kept");
}

TEST_F(JpegConverter, WritesWhatADanglingLinkLeadsTo)
{
    std::filesystem::create_symlink(m_tree.native("behind.jpg"), m_tree.native("target.jpg"));
    EXPECT_FALSE(failed(BMPToJPG(m_source, m_target, 80)));
    EXPECT_EQ(decoded("target.jpg").size(), QSize(200, 120));
}

TEST_F(JpegConverter, TakesTheLongestPictureAndRefusesALongerOne)
{
    save(test::filled(65500, 1, qRgb(1, 2, 3)));
    EXPECT_FALSE(failed(BMPToJPG(m_source, m_target, 80)));
    EXPECT_EQ(decoded("target.jpg").size(), QSize(65500, 1));
    m_tree.add({"target.jpg", "kept"});
    save(test::filled(65501, 1, qRgb(1, 2, 3)));
    EXPECT_TRUE(failed(BMPToJPG(m_source, m_target, 80)));
    EXPECT_EQ(m_tree.content("target.jpg"), "kept");
}

TEST_F(JpegConverter, WorksInPieces)
{
    save(test::filled(600, 900, qRgb(1, 2, 3)));
    platform::BitmapSource source(m_source);
    platform::JpegConversion conversion(source, m_target, 80);
    int pieces = 0;
    while (conversion.work(std::chrono::milliseconds(0)) == Progress::Working) {
        EXPECT_FALSE(m_tree.exists("target.jpg"));
        ++pieces;
    }
    EXPECT_GT(pieces, 20);
    EXPECT_EQ(conversion.result(), 0);
    EXPECT_EQ(conversion.work(std::chrono::milliseconds(0)), Progress::Converted);
    EXPECT_EQ(decoded("target.jpg").size(), QSize(600, 900));
}

TEST_F(JpegConverter, LeavesTheTargetWhenItIsGivenUp)
{
    save(test::filled(600, 900, qRgb(1, 2, 3)));
    platform::BitmapSource source(m_source);
    {
        platform::JpegConversion conversion(source, m_target, 80);
        EXPECT_EQ(conversion.work(std::chrono::milliseconds(0)), Progress::Working);
    }
    EXPECT_FALSE(m_tree.exists("target.jpg"));
}

TEST_F(JpegConverter, ReadsAChangedSourceAgain)
{
    platform::BitmapSource source(m_source);
    EXPECT_EQ(source.image().size(), QSize(200, 120));
    const uchar* pixels = source.image().constBits();
    EXPECT_EQ(source.image().constBits(), pixels);
    save(test::numbered(20, 10));
    EXPECT_EQ(source.image().size(), QSize(20, 10));
    m_tree.remove("source.bmp");
    EXPECT_TRUE(source.image().isNull());
}

TEST_F(JpegConverter, SavesAPictureInMemoryAsTheFileOfItWouldBe)
{
    const platform::Picture picture(test::numbered(200, 120));
    EXPECT_FALSE(failed(BMPToJPG(m_source, m_target, 70)));
    EXPECT_TRUE(platform::saveJpeg(picture, m_tree.path("direct.jpg"), 70));
    EXPECT_EQ(m_tree.content("direct.jpg"), m_tree.content("target.jpg"));
    EXPECT_FALSE(platform::saveJpeg({}, m_target, 70));
    EXPECT_FALSE(platform::saveJpeg(picture, m_tree.path("none/a.jpg"), 70));
    EXPECT_EQ(decoded("target.jpg").size(), QSize(200, 120));
}
