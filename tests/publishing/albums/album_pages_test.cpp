#include "publishing/albums/album_pages.h"

#include "platform/os/files.h"

#include <gtest/gtest.h>
#include <vector>

// Whole pages, byte for byte, beside those of the folder golden.

using namespace albums;

namespace {

struct Shown {
    const char* stem;
    const char* cleaned; // the file's own name
    const char* full;
    const char* changed;
    QSize thumbnail;
    QSize size;
};

const Shown kBeach{"beach",    "beach.jpg", "beach.jpg", "2003-01-02 03:04:05",
                   {160, 107}, {3000, 2000}};
const Shown kCafe{"caf\xC3\xA9_at_night",
                  "caf\xC3\xA9_at_night.bmp",
                  "caf\xC3\xA9_at_night.jpg",
                  "2010-11-12 13:14:15",
                  {120, 160},
                  {1200, 1600}};
const Shown kSpin{"spin", "spin.gif", "spin.gif", "1999-12-31 23:59:59", {16, 16}, {16, 16}};

const QString kMailLink = QStringLiteral("<a href=\"mailto:albums@example.org\">Email</a>");
constexpr PageMode kEnglish{0, Writing::Plain};
constexpr PageMode kDutch{1, Writing::Plain};

QByteArray golden(const std::string& name)
{
    const auto bytes =
        platform::readFile(QStringLiteral(GOLDEN_FOLDER "/") + QString::fromStdString(name));
    EXPECT_TRUE(bytes.has_value()) << name;
    return bytes.value_or(QByteArray());
}

void expectPage(const QByteArray& page, const std::string& name)
{
    EXPECT_EQ(page.toStdString(), golden(name).toStdString()) << name;
}

QString htm(const Shown& shown)
{
    return QString::fromUtf8(shown.stem) + ".htm";
}

QByteArray info(const Shown& shown, const PageMode& mode)
{
    return infoLines(QString::fromUtf8(shown.cleaned), shown.changed, mode);
}

QByteArray master(const MasterTexts& texts, const std::vector<Shown>& pictures,
                  const PageMode& mode)
{
    MasterPage page(texts, mode.writing);
    QByteArray bytes = page.head();
    for (const Shown& shown : pictures) {
        bytes += page.row({htm(shown), "tn_" + QString::fromUtf8(shown.stem) + ".jpg",
                           shown.thumbnail, info(shown, mode)});
    }
    return bytes + MasterPage::tail();
}

QByteArray detail(const Shown& shown, const QString& previous, const QString& next,
                  const PageMode& mode)
{
    return detailPage(
        {QString::fromUtf8(shown.full), shown.size, info(shown, mode), previous, next}, mode);
}

QByteArray navigationOf(const QByteArray& page)
{
    const QByteArray line = "<font size=1 >";
    const qsizetype start = page.indexOf(line) + line.size();
    return page.mid(start, page.indexOf("</font>\r\n<hr>", start) - start);
}

} // namespace

TEST(MasterPage, HasARowForEachPicture)
{
    expectPage(master({"Web Page", "", ""}, {kBeach}, kDutch), "master_one_dutch.htm");
    expectPage(master({"Summer & Sea", kMailLink, ""}, {kBeach, kCafe, kSpin}, kEnglish),
               "master_three_english.htm");
}

TEST(MasterPage, HasTheSideTextBesideTheFirstPicture)
{
    expectPage(master({"Summer", "", "By the sea"}, {kBeach}, kEnglish),
               "master_one_english_side.htm");
    expectPage(master({"Zomer", kMailLink, "Aan zee,<br>in juli"}, {kBeach, kCafe, kSpin}, kDutch),
               "master_three_dutch_side.htm");
}

TEST(MasterPage, HasTheSideTextAgainBehindAnotherHead)
{
    MasterPage page({"Summer", "", "By the sea"}, Writing::Plain);
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(page.head().contains("width=\"600\""));
        EXPECT_TRUE(page.row({"a.htm", "tn_a.jpg", {1, 1}, {}}).contains("By the sea"));
        EXPECT_FALSE(page.row({"b.htm", "tn_b.jpg", {1, 1}, {}}).contains("By the sea"));
    }
}

TEST(MasterPage, WritesOtherScriptsAsNumbers)
{
    const QString house = QString::fromUtf8(u8"дом");
    MasterPage page({QString::fromUtf8(u8"Дом"), "", ""}, Writing::Plain);
    const QByteArray row = page.row({house + ".htm",
                                     "tn_" + house + ".jpg",
                                     {160, 160},
                                     infoLines(house + ".jpg", kBeach.changed, kEnglish)});
    expectPage(page.head() + row + MasterPage::tail(), "master_non_latin.htm");
}

TEST(MasterPage, EncodesLinksAndTextsButNotTags)
{
    constexpr PageMode mode{0, Writing::Encoded};
    const QString stem = QString::fromUtf8(u8"r&b_#1_дом");
    MasterPage page(
        {QString::fromUtf8(u8"Café <1 & 2>"), kMailLink, QString::fromUtf8(u8"By <b>me</b> ©")},
        mode.writing);
    const QByteArray row = page.row({stem + ".htm",
                                     "tn_" + stem + ".jpg",
                                     {160, 120},
                                     infoLines(stem + ".jpg", kBeach.changed, mode)});
    const QByteArray written = page.head() + row + MasterPage::tail();
    expectPage(written, "master_encoded.htm");
}

TEST(DetailPage, LeadsToThePagesBesideIt)
{
    expectPage(detail(kBeach, "", htm(kCafe), kEnglish), "detail_first_english.htm");
    expectPage(detail(kCafe, htm(kBeach), htm(kSpin), kEnglish), "detail_middle_english.htm");
    expectPage(detail(kSpin, htm(kCafe), "", kEnglish), "detail_last_english.htm");
    expectPage(detail(kBeach, "", "", kEnglish), "detail_single_english.htm");
}

TEST(DetailPage, DoesTheSameInDutch)
{
    expectPage(detail(kBeach, "", htm(kCafe), kDutch), "detail_first_dutch.htm");
    expectPage(detail(kCafe, htm(kBeach), htm(kSpin), kDutch), "detail_middle_dutch.htm");
    expectPage(detail(kSpin, htm(kCafe), "", kDutch), "detail_last_dutch.htm");
    expectPage(detail(kBeach, "", "", kDutch), "detail_single_dutch.htm");
}

TEST(DetailPage, HasTwoBlanksBehindADutchLinkToTheNextOnly)
{
    EXPECT_EQ(navigationOf(detail(kCafe, "a.htm", "b.htm", kDutch)),
              "<a href=a.htm>Vorige</a> | <a href=../index.htm>Inhoud</a> | "
              "<a href=b.htm>Volgende</a>  ");
    EXPECT_EQ(navigationOf(detail(kCafe, "", "", kDutch)),
              "Vorige | <a href=../index.htm>Inhoud</a> | Volgende");
}

TEST(DetailPage, HasNoWordsInAnyOtherLanguage)
{
    expectPage(detail(kBeach, "a.htm", "b.htm", {2, Writing::Plain}), "detail_other_language.htm");
}

TEST(DetailPage, EncodesLinksAndTexts)
{
    constexpr PageMode mode{0, Writing::Encoded};
    const QString picture = QString::fromUtf8(u8"r&b_#1_дом.jpg");
    expectPage(
        detailPage(
            {picture, {800, 600}, infoLines(picture, kBeach.changed, mode), "#.htm", "b's.htm"},
            mode),
        "detail_encoded.htm");
}
