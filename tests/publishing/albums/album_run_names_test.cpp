#include "publishing/albums/album_run_fixture.h"

namespace {

// Names as the file system may have them.
class AlbumRunNames : public AlbumRunTest {
protected:
    void addNamed(const std::string& name, QRgb colour = qRgb(200, 30, 30))
    {
        if (m_picture.empty()) {
            addPicture("picture.bmp", colour, {30, 20});
            m_picture = m_tree.content("picture.bmp");
        }
        m_tree.add({"home/pics/" + name, m_picture});
    }

    // The album of one picture, as its full picture is called.
    [[nodiscard]] bool hasPicture(const std::string& stem) const
    {
        return m_tree.exists("home/Web/pics/tn_" + stem + ".jpg") &&
               m_tree.exists("home/Web/pics/OriginalPics/" + stem + ".jpg") &&
               m_tree.exists("home/Web/pics/OriginalPics/" + stem + ".htm");
    }

    std::string m_picture;
};

std::string repeated(const std::string& text, int times)
{
    std::string all;
    for (int k = 0; k < times; ++k) {
        all += text;
    }
    return all;
}

} // namespace

TEST_F(AlbumRunNames, ThatComeToOneWriteOverEachOther)
{
    addPicture("home/pics/a b.bmp", qRgb(255, 0, 0), {40, 40});
    addPicture("home/pics/a+b.bmp", qRgb(0, 255, 0), {40, 40});
    run();
    EXPECT_EQ(rows(), 2);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(namesIn("home/Web/pics"), (QStringList{"OriginalPics/a_b.htm", "OriginalPics/a_b.jpg",
                                                     "index.htm", "tn_a_b.jpg"}));
    EXPECT_GT(qGreen(picture("OriginalPics/a_b.jpg").pixel(20, 20)), 200);
    EXPECT_TRUE(page("OriginalPics/a_b.htm").contains("<a href=a_b.htm>Previous</a>"));
}

TEST_F(AlbumRunNames, LoseFourCharactersWhateverTheExtension)
{
    addPicture("home/pics/x.jpeg", qRgb(9, 9, 9), {30, 20}, "JPG");
    run();
    EXPECT_TRUE(hasPicture("x."));
}

TEST_F(AlbumRunNames, OfManyCharactersAreCut)
{
    addNamed(std::string(250, 'n') + ".bmp");
    run();
    EXPECT_TRUE(hasPicture(std::string(207, 'n')));
}

// As long as a file may be called here, so that the thumbnail's longer name is refused.
TEST_F(AlbumRunNames, ThatAreTooLongForTheDiskKeepTheirRow)
{
    addNamed(repeated("\xC3\xA9", 124) + "abc.bmp");
    addNamed("z.bmp");
    run();
    EXPECT_EQ(rows(), 2);
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(hasPicture("z"));
    expectAllGivenBack();
}

TEST_F(AlbumRunNames, OfForbiddenCharactersAloneStandIn)
{
    addNamed("?*:<>.bmp");
    run();
    EXPECT_TRUE(hasPicture("_____"));
}

TEST_F(AlbumRunNames, FromRightToLeftStay)
{
    const std::string name = "\xD7\xAA\xD7\x9E\xD7\x95\xD7\xA0\xD7\x94";
    addNamed(name + ".bmp");
    run();
    EXPECT_TRUE(hasPicture(name));
    EXPECT_TRUE(page("index.htm").contains("Filename : &#1514;&#1502;"));
}

TEST_F(AlbumRunNames, OfBytesThatAreNoTextStay)
{
    addNamed("\xFF\xFEq.bmp");
    run();
    EXPECT_TRUE(hasPicture("\xFF\xFEq"));
    EXPECT_EQ(rows(), 1);
}
