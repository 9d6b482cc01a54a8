#include "platform/os/file_url.h"
#include "publishing/albums/album_run_fixture.h"
#include "publishing/albums/headless_browser.h"

#include <QJsonArray>
#include <QLineEdit>
#include <map>
#include <set>

// Albums as a browser shows them: every page that a link leads to, with its pictures and colours.

namespace {

const QString kWhatIsOnThePage = QStringLiteral(R"((() => {
    const styleOf = element => getComputedStyle(element);
    return {
        title: document.title,
        text: document.body.innerText,
        links: Array.from(document.querySelectorAll('a[href]'), link => link.href),
        pictures: Array.from(document.images, picture => ({
            source: picture.src,
            isLoaded: picture.complete && picture.naturalWidth > 0,
            told: [picture.getAttribute('width'), picture.getAttribute('height')].join('x'),
            natural: [picture.naturalWidth, picture.naturalHeight].join('x'),
        })),
        ground: styleOf(document.body).backgroundColor,
        words: styleOf(document.body).color,
        linkWords: Array.from(document.querySelectorAll('a[href]'), link => styleOf(link).color),
        cells: Array.from(document.querySelectorAll('td'), cell => styleOf(cell).backgroundColor),
    };
})())");

QStringList texts(const QJsonValue& array)
{
    QStringList all;
    for (const QJsonValue& value : array.toArray()) {
        all.append(value.toString());
    }
    return all;
}

class AlbumInBrowser : public AlbumRunTest {
protected:
    [[nodiscard]] QString address(const std::string& page) const
    {
        return platform::fileAddress(m_tree.path("home/Web/pics/" + page));
    }

    // Visits the master page and whatever links lead to from there, each page once.
    void visitAll()
    {
        ASSERT_EQ(browser.complaint().toStdString(), "");
        std::set<QString> known{address("index.htm")};
        std::vector<QString> toVisit(known.begin(), known.end());
        while (!toVisit.empty()) {
            const QString next = toVisit.back();
            toVisit.pop_back();
            for (const QString& link : visit(next)) {
                if (!link.startsWith("mailto:") && known.insert(link).second) {
                    toVisit.push_back(link);
                }
            }
        }
    }

    // The links of a page, whose pictures must be there and whose colours must be the album's.
    QStringList visit(const QString& page)
    {
        const std::string name = page.toStdString();
        EXPECT_EQ(browser.open(page).toStdString(), "") << name;
        const QJsonObject shown = browser.evaluate(kWhatIsOnThePage).toObject();
        pages[page] = shown;
        EXPECT_EQ(shown["ground"].toString(), "rgb(255, 255, 255)") << name;
        EXPECT_EQ(shown["words"].toString(), "rgb(153, 153, 153)") << name;
        for (const QString& colour : texts(shown["linkWords"])) {
            EXPECT_EQ(colour, "rgb(0, 0, 0)") << name;
        }
        expectPictures(shown["pictures"].toArray());
        return texts(shown["links"]);
    }

    void expectPictures(const QJsonArray& shown)
    {
        EXPECT_FALSE(shown.empty());
        for (const QJsonValue& picture : shown) {
            const std::string source = picture["source"].toString().toStdString();
            EXPECT_TRUE(picture["isLoaded"].toBool()) << source;
            EXPECT_EQ(picture["natural"].toString(), picture["told"].toString()) << source;
            ++pictures;
        }
    }

    test::HeadlessBrowser browser{m_tree.path("browser")};
    std::map<QString, QJsonObject> pages; // by their addresses
    int pictures = 0;                     // seen on all of them
};

} // namespace

// Else no link would ever be found dead.
TEST_F(AlbumInBrowser, MissesAPageThatIsGone)
{
    addPicture("home/pics/a.jpg");
    run();
    ASSERT_EQ(browser.complaint().toStdString(), "");
    m_tree.remove("home/Web/pics/OriginalPics/a.htm");
    EXPECT_EQ(browser.open(address("OriginalPics/a.htm")).toStdString(), "net::ERR_FILE_NOT_FOUND");
    m_tree.remove("home/Web/pics/tn_a.jpg");
    EXPECT_EQ(browser.open(address("index.htm")).toStdString(), "");
    const QJsonValue shown = browser.evaluate(kWhatIsOnThePage);
    EXPECT_FALSE(shown["pictures"][0]["isLoaded"].toBool(true));
}

TEST_F(AlbumInBrowser, LeadsToEveryPageAndPicture)
{
    addPicture("home/pics/beach.jpg", qRgb(200, 30, 30), {800, 600});
    addPicture("home/pics/My Photo+1.BMP", qRgb(30, 200, 30), {90, 400});
    addGif("home/pics/spin.gif");
    run();
    visitAll();
    EXPECT_EQ(pages.size(), 4U);
    EXPECT_EQ(pictures, 6);
    const QJsonObject beach = pages[address("OriginalPics/beach.htm")];
    EXPECT_EQ(beach["title"].toString(), "beach.jpg");
    EXPECT_EQ(beach["pictures"][0]["natural"].toString(), "800x600");
}

TEST_F(AlbumInBrowser, ResolvesNamesThatAnAddressWouldMisread)
{
    addPicture("home/pics/plain.jpg");
    const std::string content = m_tree.content("home/pics/plain.jpg");
    const std::set<std::string> names{"#1 & 'two'.jpg",
                                      "a%41.jpg",
                                      "<b>.jpg",
                                      "~(x)[y]!@.jpg",
                                      "&amp;.jpg",
                                      "x.jpeg",
                                      "caf\xC3\xA9.jpg",
                                      "\xD0\xB4\xD0\xBE\xD0\xBC.jpg",
                                      "\xD7\xA9\xD7\x9C.jpg",
                                      "\xF0\x9F\x98\x80.jpg",
                                      "no text \xE9\xFF.jpg"};
    for (const std::string& name : names) {
        m_tree.add({"home/pics/" + name, content});
    }
    run();
    visitAll();
    EXPECT_EQ(pages.size(), names.size() + 2);
    EXPECT_EQ(pictures, static_cast<int>(names.size() + 1) * 2);
}

TEST_F(AlbumInBrowser, ShowsNamesAndTextsAsTheyAre)
{
    const QString name = QString::fromUtf8(u8"r&b_<i>_café_дом.jpg");
    const QString cleaned = QString::fromUtf8(u8"r&b__i__café_дом.jpg");
    addPicture("home/pics/" + name.toStdString());
    showFolder();
    auto* const setup = core::windows().load(core::Window::frmWebRelease);
    const QString title = QString::fromUtf8(u8"Été <b>&amp; Зима");
    setup->findChild<QLineEdit*>("WebTitle")->setText(title);
    MakeHtmlGallery(list(), m_tree.path("home"), "By <b>me</b>, 2003",
                    R"(<a href="mailto:a@b.example?subject=x&amp;y">Email</a>)");
    visitAll();
    ASSERT_EQ(pages.size(), 2U);
    const QJsonObject master = pages[address("index.htm")];
    EXPECT_EQ(master["title"].toString(), title);
    const QString text = master["text"].toString();
    EXPECT_TRUE(text.contains("Filename : " + cleaned)) << text.toStdString();
    EXPECT_TRUE(text.contains("By me, 2003")) << text.toStdString();
    EXPECT_TRUE(texts(master["links"]).contains("mailto:a@b.example?subject=x&y"));
    EXPECT_TRUE(texts(master["cells"]).contains("rgb(233, 233, 233)"));
    for (const auto& [address, page] : pages) {
        EXPECT_TRUE(page["title"].toString() == title || page["title"].toString() == cleaned)
            << address.toStdString();
    }
}

TEST_F(AlbumInBrowser, LeadsFromPictureToPictureInClassicModeToo)
{
    m_config.values["Classic"] = "1";
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
        addPicture(std::string("home/pics/") + name);
    }
    run();
    visitAll();
    EXPECT_EQ(pages.size(), 4U);
    EXPECT_EQ(texts(pages[address("OriginalPics/b.htm")]["links"]),
              QStringList({address("OriginalPics/a.htm"), address("index.htm"),
                           address("OriginalPics/c.htm")}));
}
