#include "publishing/albums/album_names.h"

#include "platform/os/paths.h"

#include <gtest/gtest.h>

using albums::albumNames;
using albums::AlbumNames;
using albums::cleanedName;
using albums::NameRules;

namespace {

QString text(const char16_t* units)
{
    return QString::fromUtf16(units);
}

void expectNames(const AlbumNames& names, const char* thumbnail, const char* full,
                 const char* detail)
{
    EXPECT_EQ(names.thumbnail, thumbnail);
    EXPECT_EQ(names.full, full);
    EXPECT_EQ(names.detail, detail);
}

} // namespace

TEST(CleanedName, HasOneStandInForEachRefusedCharacter)
{
    EXPECT_EQ(cleanedName("a b\"c\\d/e:f;g*h?i,j<k>l|m%n+o=p"), "a_b_c_d_e_f_g_h_i_j_k_l_m_n_o_p");
    EXPECT_EQ(cleanedName("  \"\\/:;*?,<>|%+=  "), "______________");
}

TEST(CleanedName, LosesTheBlanksAtItsEndsOnly)
{
    EXPECT_EQ(cleanedName("   My  Photo.JPG  "), "My__Photo.JPG");
    EXPECT_EQ(cleanedName("     "), "");
    EXPECT_EQ(cleanedName("\ta.jpg\n"), "\ta.jpg\n");
    EXPECT_EQ(cleanedName(text(u"\u00A0a\u00A0b\u2003")), text(u"\u00A0a\u00A0b\u2003"));
}

TEST(CleanedName, KeepsWhatAnAddressMayMisread)
{
    EXPECT_EQ(cleanedName("#1 & 'two' [x] {y}.jpg"), "#1_&_'two'_[x]_{y}.jpg");
}

TEST(CleanedName, EndsBehind211Characters)
{
    EXPECT_EQ(cleanedName(QString(210, u'a')), QString(210, u'a'));
    EXPECT_EQ(cleanedName(QString(211, u'a')), QString(211, u'a'));
    EXPECT_EQ(cleanedName(QString(300, u'a')), QString(211, u'a'));
    EXPECT_EQ(cleanedName(QString(300, u'+')), QString(211, u'_'));
}

TEST(CleanedName, IsCutBetweenCharactersOfTwoUnits)
{
    const QString smile = text(u"\U0001F600");
    EXPECT_EQ(cleanedName(smile.repeated(300)), smile.repeated(211));
    EXPECT_EQ(cleanedName("a" + smile.repeated(300)), "a" + smile.repeated(210));
}

TEST(CleanedName, KeepsRightToLeftAndUndecodableNames)
{
    const QString hebrew = text(u"\u05E9\u05DC\u05D5\u05DD.jpg");
    EXPECT_EQ(cleanedName(hebrew), hebrew);
    const QString undecodable = platform::fromNative("caf\xE9 1.jpg");
    EXPECT_EQ(platform::toNative(cleanedName(undecodable)), "caf\xE9_1.jpg");
}

TEST(AlbumNames, AreCleanedAndInLowerCase)
{
    const AlbumNames names = albumNames("My Photo+1.JPG", {});
    EXPECT_EQ(names.cleaned, "my_photo_1.jpg");
    expectNames(names, "tn_my_photo_1.jpg", "my_photo_1.jpg", "my_photo_1.htm");
    EXPECT_FALSE(names.keepsGif);
}

TEST(AlbumNames, LoseFourCharactersWhateverTheyAre)
{
    expectNames(albumNames("x.jpeg", {}), "tn_x..jpg", "x..jpg", "x..htm");
    expectNames(albumNames("a.rm", {}), "tn_.jpg", ".jpg", ".htm");
    expectNames(albumNames("a", {}), "tn_.jpg", ".jpg", ".htm");
    expectNames(albumNames("", {}), "tn_.jpg", ".jpg", ".htm");
    const QString smiles = text(u"\U0001F600\U0001F601\U0001F602\U0001F603\U0001F604");
    EXPECT_EQ(albumNames(smiles, {}).detail, smiles.left(2) + ".htm");
}

TEST(AlbumNames, KeepAGifWhereTheRulesSaySo)
{
    const AlbumNames kept = albumNames("Anim.GIF", {});
    EXPECT_TRUE(kept.keepsGif);
    expectNames(kept, "tn_anim.jpg", "anim.gif", "anim.htm");

    const AlbumNames recompressed = albumNames("Anim.GIF", {true, false});
    EXPECT_FALSE(recompressed.keepsGif);
    expectNames(recompressed, "tn_anim.jpg", "anim.jpg", "anim.htm");
}

TEST(AlbumNames, AreBitmapsInTheListWithoutCompression)
{
    const NameRules rules{false, true};
    expectNames(albumNames("a.bmp", rules), "tn_a.bmp", "a.jpg", "a.htm");
    expectNames(albumNames("a.gif", rules), "tn_a.bmp", "a.gif", "a.htm");
}

TEST(AlbumNames, OfALongNameGoByWhatIsLeftOfIt)
{
    const AlbumNames names = albumNames(QString(300, u'x') + ".gif", {});
    EXPECT_FALSE(names.keepsGif);
    EXPECT_EQ(names.full, QString(207, u'x') + ".jpg");
    EXPECT_EQ(names.thumbnail, "tn_" + QString(207, u'x') + ".jpg");
}

TEST(AlbumNames, MayBeTheSameForTwoFiles)
{
    EXPECT_EQ(albumNames("a b.jpg", {}).full, albumNames("A+B.bmp", {}).full);
}

TEST(AlbumNames, KeepBytesThatAreNoText)
{
    const AlbumNames names = albumNames(platform::fromNative("CAF\xE9.JPG"), {});
    EXPECT_EQ(platform::toNative(names.thumbnail), "tn_caf\xE9.jpg");
}
