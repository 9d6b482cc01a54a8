#include "publishing/albums/album_pages.h"

#include "publishing/albums/album_folders.h"

#include <array>
#include <initializer_list>
#include <utility>

namespace albums {

namespace {

constexpr char kLineEnd[] = "\r\n";
constexpr int kWidth = 420; // of the master page's table, in pixels
constexpr int kWidthWithSideText = 600;

// What browsers don't understand in it, they pass over; albums made before have it too.
constexpr char kStyleBlock[] =
    "<style>\r\n"
    "  BODY    { FONT-SIZE: 8pt; BACKGROUND-IMAGE: bg.jpg); COLOR: #999999;    "
    "FONT-FAMILY: Verdana; BACKGROUND-COLOR: #FFFFFF}\r\n"
    "  A:link  { FONT-SIZE: 8pt; COLOR: #000000;}\r\n"
    "  A:visit { FONT-SIZE: 8pt; COLOR: #000000;}\r\n"
    "  A:hover { FONT-SIZE: 8pt; BORDER-TOP: #FFFFFF 1px solid; COLOR: #000000; "
    "BORDER-BOTTOM: #FFFFFF 1px solid; BACKGROUND-COLOR: #FFFFFF; text-decoration: none;}\r\n"
    "  HR      { height:1 ; color:#FFFFFF}\r\n"
    "</style>";

constexpr char kDetailTable[] =
    R"(  <Table border="1"align="center" width="" cellpadding="11" cellspacing="8")"
    R"( bordercolorlight="#FFFFFF" bordercolordark="#FFFFFF" bordercolor="#FFFFFF">)";

struct NavigationWords {
    const char* previous;
    const char* index;
    const char* next;
    const char* behindNextLink;
};
// By language.
constexpr std::array<NavigationWords, 2> kNavigation{
    {{"Previous", "Index", "Next", ""}, {"Vorige", "Inhoud", "Volgende", "  "}}};

QByteArray lines(std::initializer_list<QByteArray> texts)
{
    QByteArray all;
    for (const QByteArray& text : texts) {
        all += text + kLineEnd;
    }
    return all;
}

// Up to the body's first line.
QByteArray pageHead(const QByteArray& title)
{
    return lines({
        "<Html>",
        "<head>",
        "<title>" + title + "</title>",
        kStyleBlock,
        "</head>",
        "<body>",
        R"(<p align="center"><font size="4">)" + title + "</font></p>",
    });
}

QByteArray sizeAttributes(QSize size)
{
    return R"( width=")" + QByteArray::number(size.width()) + R"(" height=")" +
           QByteArray::number(size.height()) + '"';
}

QByteArray smallText(const QByteArray& text)
{
    return R"(<font size="1">)" + text + "</font>";
}

// The word alone where there is no page.
QByteArray navigationLink(const QByteArray& page, const char* word)
{
    if (page.isEmpty()) {
        return word;
    }
    return "<a href=" + page + '>' + word + "</a>";
}

QByteArray navigation(const DetailPage& page, const PageMode& mode)
{
    if (mode.language != 0 && mode.language != 1) {
        return {};
    }
    const NavigationWords& words = kNavigation[static_cast<std::size_t>(mode.language)];
    return navigationLink(linkBytes(page.previous, mode.writing), words.previous) + " | " +
           navigationLink("../" + linkBytes(kMasterPage, mode.writing), words.index) + " | " +
           navigationLink(linkBytes(page.next, mode.writing), words.next) +
           (page.next.isEmpty() ? "" : words.behindNextLink);
}

QByteArray detailPicture(const DetailPage& page, Writing writing)
{
    return lines({
        "<p> ",
        "</p> ",
        kDetailTable,
        "    <tr>",
        R"(      <td width="2" bgcolor="#FFFFFF" align="center"><img border="0" src=")" +
            linkBytes(page.picture, writing) + '"' + sizeAttributes(page.size) + "></a></td>",
        "    </tr>",
        "  </Table>",
    });
}

QByteArray detailInfo(const QByteArray& info)
{
    return lines({
        "<p> ",
        "</p> ",
        "<p> ",
        "</p> ",
        kDetailTable,
        "    <tr>",
        R"(      <td width="160" bgcolor="#FFFFFF" align="left" rowspan="1000" valign="top">)",
        "        <dl>",
        "          <dt>" + smallText(info) + "</dt>",
        "        </dl>",
        "      </td>",
        "    </tr>",
        "  </Table>",
    });
}

} // namespace

MasterPage::MasterPage(MasterTexts texts, Writing writing)
    : m_texts(std::move(texts))
    , m_writing(writing)
{
}

QByteArray MasterPage::head()
{
    SideCellDone = false;
    QByteArray head = pageHead(textBytes(m_texts.AlbumTitle, m_writing));
    if (!m_texts.AlbumSubTitle.isEmpty()) {
        head +=
            lines({"<font size=1>" + markupBytes(m_texts.AlbumSubTitle, m_writing) + "</font>"});
    }
    const int width = m_texts.AlbumSideText.isEmpty() ? kWidth : kWidthWithSideText;
    return head + lines({
                      "<hr>",
                      R"( <div align="left">)",
                      R"(  <table border="1" width=")" + QByteArray::number(width) +
                          R"(" cellpadding="11" cellspacing="8" bordercolorlight="#FFFFFF")"
                          R"( bordercolordark="#FFFFFF" bordercolor="#000000">)",
                  });
}

QByteArray MasterPage::row(const MasterRow& row)
{
    QByteArray written = lines({
        "    <tr>",
        R"(      <td width="200" bgcolor="#FFFFFF" align="center"><a href=")" +
            linkBytes(detailLink(row.detail), m_writing) + R"("><img border="0" src=")" +
            linkBytes(row.thumbnail, m_writing) + '"' + sizeAttributes(row.size) + "></a></td>",
        R"(        <td width="140" bgcolor="#FFFFFF" align="left">)",
        "          <dl>",
        "            <dt>" + smallText(row.info) + "</dt>",
        "        </dl>",
        "      </td>",
    });
    if (!m_texts.AlbumSideText.isEmpty() && !SideCellDone) {
        written += sideCell();
        SideCellDone = true;
    }
    return written + lines({"    </tr>"});
}

QByteArray MasterPage::sideCell() const
{
    return lines({
        R"(      <td width="160" bgcolor="#E9E9E9" align="left" rowspan="1000" valign="top">)",
        "        <dl>",
        "          <dt>" + smallText(markupBytes(m_texts.AlbumSideText, m_writing)) + "</dt>",
        "        </dl>",
        "      </td>",
    });
}

QByteArray MasterPage::tail()
{
    return lines({
        "  </Table>",
        " </div>",
        R"( <hr size="1" color="#B9C5FF">)",
        "</Body>",
        "</Html>",
    });
}

QString detailLink(const QString& detail)
{
    return kOriginals + QLatin1Char('/') + detail;
}

QByteArray detailPage(const DetailPage& page, const PageMode& mode)
{
    return pageHead(textBytes(page.picture, mode.writing)) +
           lines({"<font size=1 >" + navigation(page, mode) + "</font>", "<hr>"}) +
           detailPicture(page, mode.writing) + detailInfo(page.info) +
           lines({"</Body>", "</Html>"});
}

} // namespace albums
