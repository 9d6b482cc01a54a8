#include "thumbs/gallery_fixture.h"
#include "thumbs/html_preview.h"
#include "thumbs/sample_picture.h"

#include <QPainter>

using thumbs::ThumbnailProperties;

namespace {

constexpr QSize kPage(300, 500);

// Every colour of the pages different from the others.
ThumbnailProperties colourful()
{
    ThumbnailProperties look;
    look.Html_PageBackcolor = 0x101010;
    look.Html_PageForecolor = 0x20F020;
    look.Html_PageLineColor = 0x3030F0;
    look.Html_PageLinkColor = 0xF04040;
    look.Html_PageLinkHoverForeColor = 0xF0F050;
    look.Html_PageLinkHoverBackColor = 0x600060;
    look.Html_PageFotoframeBackColor = 0x707000;
    look.Html_PageFotoframeBorderColor = 0x80FF80;
    look.Html_ThumbnailBorderColor = 0x9000F0;
    look.Html_ThumbnailBorderThicknes = 4;
    look.Html_ThumbnailSize = 80;
    return look;
}

QImage drawn(void (*draw)(QPainter&, QSize, const ThumbnailProperties&, const QImage&))
{
    QImage image(kPage, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing, false);
    draw(painter, kPage, colourful(), thumbs::samplePicture());
    return image;
}

bool holds(const QImage& image, const QRect& area, base::Colour colour)
{
    const QRgb wanted =
        qRgb(static_cast<int>(base::redOf(colour)), static_cast<int>(base::greenOf(colour)),
             static_cast<int>(base::blueOf(colour)));
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.valid(x, y) && image.pixel(x, y) == wanted) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

TEST(HtmlPreview, ShowsTheColoursOfTheMasterPage)
{
    const QImage page = drawn(&thumbs::drawMasterPage);
    const ThumbnailProperties look = colourful();
    const thumbs::MasterPageParts parts = thumbs::masterPageParts(kPage, look);
    EXPECT_TRUE(holds(page, {0, 0, 1, 1}, look.Html_PageBackcolor));
    EXPECT_TRUE(holds(page, parts.title, look.Html_PageForecolor));
    EXPECT_TRUE(holds(page, parts.line, look.Html_PageLineColor));
    EXPECT_TRUE(holds(page, parts.links[0], look.Html_PageLinkHoverForeColor));
    EXPECT_TRUE(holds(page, parts.links[0], look.Html_PageLinkHoverBackColor));
    EXPECT_TRUE(holds(page, parts.links[1], look.Html_PageLinkColor));
    EXPECT_TRUE(holds(page, parts.texts[1], look.Html_PageForecolor));
}

TEST(HtmlPreview, ShowsThumbnailsInTheirBorder)
{
    const thumbs::MasterPageParts parts = thumbs::masterPageParts(kPage, colourful());
    EXPECT_EQ(parts.thumbnails[0].size(), QSize(88, 88));
    const QImage page = drawn(&thumbs::drawMasterPage);
    const QRect top(parts.thumbnails[0].topLeft(), QSize(88, 4));
    EXPECT_TRUE(holds(page, top, colourful().Html_ThumbnailBorderColor));
    EXPECT_FALSE(holds(page, {parts.thumbnails[0].center(), QSize(1, 1)},
                       colourful().Html_ThumbnailBorderColor));
}

TEST(HtmlPreview, ShowsNavigationAndFrameOfTheDetailPage)
{
    const QImage page = drawn(&thumbs::drawDetailPage);
    const ThumbnailProperties look = colourful();
    const auto parts = thumbs::detailPageParts(kPage, thumbs::samplePicture().size());
    EXPECT_EQ(thumbs::kPreviewNavigation, " vorige [ index ] volgende  ");
    EXPECT_TRUE(holds(page, parts.navigation, look.Html_PageLinkColor));
    EXPECT_TRUE(holds(page, parts.navigation, look.Html_PageLinkHoverForeColor));
    EXPECT_TRUE(holds(page, parts.line, look.Html_PageLineColor));
    EXPECT_TRUE(
        holds(page, {parts.frame.topLeft(), QSize(1, 1)}, look.Html_PageFotoframeBorderColor));
    EXPECT_TRUE(holds(page, {parts.frame.topLeft() + QPoint(2, 2), QSize(1, 1)},
                      look.Html_PageFotoframeBackColor));
    EXPECT_TRUE(parts.frame.contains(parts.picture));
}

TEST_F(GalleryTest, ShowsTheAlbumOnItsPages)
{
    addFiles("pics", 30);
    runFolder();
    m_list.Html_Thumbnail_Preview();
    EXPECT_TRUE(m_list.surface().state.IsHtmlRun);
    EXPECT_EQ(m_list.surface().pages.pages(), 2);
    EXPECT_EQ(at(0, 0, 0), 0x353535U);
    EXPECT_EQ(at(0, 0, 1), 0x353535U);
    m_list.Makegallery();
    EXPECT_FALSE(m_list.surface().state.IsHtmlRun);
}

TEST_F(GalleryTest, SurvivesAnAlbumOnPagesWithoutRoom)
{
    setViewport(20, 20);
    m_list.Html_Thumbnail_Preview();
    EXPECT_TRUE(m_list.surface().state.IsHtmlRun);
    setViewport(40, 60);
    m_list.Html_Thumbnail_Preview();
    EXPECT_NE(m_list.surface().pages.bitmap(0), nullptr);
}
