#include "publishing/albums/info_lines.h"

#include "support/temp_tree.h"

#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace albums;

namespace {

const QString kTime = QStringLiteral("2003-01-02 03:04:05");

void setChange(const std::string& path, std::time_t seconds)
{
    const timespec times[] = {{seconds, 0}, {seconds, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}

} // namespace

TEST(InfoLines, TellNameAndTimeInBothLanguages)
{
    EXPECT_EQ(infoLines("my_photo.jpg", kTime, {0, Writing::Plain}),
              "<dt>Filename : my_photo.jpg</dt>\r\n<dt>Date     : 2003-01-02 03:04:05</dt>\r\n");
    EXPECT_EQ(infoLines("my_photo.jpg", kTime, {1, Writing::Plain}),
              "<dt>Bestand  : my_photo.jpg</dt>\r\n<dt>Datum    : 2003-01-02 03:04:05</dt>\r\n");
}

TEST(InfoLines, AreEmptyInAnyOtherLanguage)
{
    EXPECT_EQ(infoLines("a.jpg", kTime, {2, Writing::Plain}), "");
    EXPECT_EQ(infoLines("a.jpg", kTime, {-1, Writing::Encoded}), "");
}

TEST(InfoLines, WriteTheNameAsTheModeSays)
{
    const QString name = QString::fromUtf8(u8"r&b_дом.jpg");
    EXPECT_EQ(infoLines(name, {}, {0, Writing::Plain}),
              "<dt>Filename : r&b_&#1076;&#1086;&#1084;.jpg</dt>\r\n<dt>Date     : </dt>\r\n");
    EXPECT_EQ(infoLines(name, {}, {0, Writing::Encoded}),
              "<dt>Filename : r&amp;b_&#1076;&#1086;&#1084;.jpg</dt>\r\n<dt>Date     : </dt>\r\n");
}

TEST(LastChange, IsLocalTime)
{
    support::TempTree tree({{"a.jpg", "x"}});
    tree.setVariable("TZ", "XYZ-2");
    ::tzset();
    setChange(tree.native("a.jpg"), 1041476645); // 2003-01-02 03:04:05 UTC
    EXPECT_EQ(lastChange(tree.path("a.jpg")), "2003-01-02 05:04:05");
}

TEST(LastChange, IsThatOfTheFileBehindALink)
{
    support::TempTree tree({{"a.jpg", "x"}});
    tree.setVariable("TZ", "UTC0");
    ::tzset();
    setChange(tree.native("a.jpg"), 0);
    std::filesystem::create_symlink(tree.native("a.jpg"), tree.native("b.jpg"));
    EXPECT_EQ(lastChange(tree.path("b.jpg")), "1970-01-01 00:00:00");
}

TEST(LastChange, IsEmptyForAFileThatIsGone)
{
    const support::TempTree tree;
    EXPECT_EQ(lastChange(tree.path("gone.jpg")), "");
}
