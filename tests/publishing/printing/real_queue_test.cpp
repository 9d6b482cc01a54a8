#include "core/printing.h"
#include "publishing/printing/contact_sheets.h"
#include "publishing/printing/print_picture.h"
#include "support/memory_config_store.h"
#include "support/printed_jobs.h"
#include "support/printed_pages.h"
#include "thumbs/gallery_fixture.h"

namespace {

constexpr int kScreenDots = 96;

// What comes out of a printer of the printing service that stands behind these tests.
class RealQueue : public GalleryTest {
protected:
    RealQueue() { EXPECT_TRUE(core::selectPrinter(QStringLiteral("Desk"))); }

    support::MemoryConfigStore m_config;
    support::PrintedJobs m_jobs;
};

QImage red(int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return picture;
}

// What the printer reaches of a page, at the size of its sheet on the screen.
QImage printedSheet(const QString& document, int page, QSize size)
{
    const platform::PaperMetrics paper = core::currentPrinter()->metrics();
    const QImage whole = support::pageOf(document, page, paper.logPixelsX);
    return whole
        .copy(paper.physicalOffsetX, paper.physicalOffsetY, paper.innerWidth, paper.innerHeight)
        .scaled(size);
}

bool differs(QRgb a, QRgb b)
{
    constexpr int kTolerance = 6;
    return std::abs(qRed(a) - qRed(b)) > kTolerance ||
           std::abs(qGreen(a) - qGreen(b)) > kTolerance ||
           std::abs(qBlue(a) - qBlue(b)) > kTolerance;
}

// Not within two pixels of an edge, where the rounding of two scales shows.
bool isPlain(const QImage& image, QPoint point)
{
    for (int y = point.y() - 2; y <= point.y() + 2; ++y) {
        for (int x = point.x() - 2; x <= point.x() + 2; ++x) {
            if (image.pixel(x, y) != image.pixel(point)) {
                return false;
            }
        }
    }
    return true;
}

void expectSame(const QImage& shown, const QImage& printed)
{
    for (int y = 2; y < shown.height() - 2; ++y) {
        for (int x = 2; x < shown.width() - 2; ++x) {
            ASSERT_FALSE(isPlain(shown, {x, y}) && differs(shown.pixel(x, y), printed.pixel(x, y)))
                << x << ", " << y << " is " << QColor(printed.pixel(x, y)).name().toStdString()
                << " on paper, not " << QColor(shown.pixel(x, y)).name().toStdString();
        }
    }
}

} // namespace

TEST_F(RealQueue, PrintsEachCopyOfAPictureAsAJob)
{
    AAPrintPicture print;
    print.setDefultPrinter(QStringLiteral("Desk"));
    print.setPicture(platform::Picture(red(300, 200)));
    print.setCopies(5);
    print.PrintPicture();
    const QStringList printed = m_jobs.waitFor(5);
    ASSERT_EQ(printed.size(), 5);
    for (const QString& document : printed) {
        EXPECT_EQ(support::pdfFact(document, QStringLiteral("Pages")), "1");
        EXPECT_EQ(support::paperOf(document), QSize(210, 297));
    }
    const auto images = support::imagesOf(printed[0]);
    ASSERT_EQ(images.size(), 1);
    EXPECT_EQ(images[0].size, QSize(300, 200));
}

TEST_F(RealQueue, PrintsAPictureInTheCornerOfItsPage)
{
    AAPrintPicture print;
    print.setDefultPrinter(QStringLiteral("Desk"));
    print.setPicture(platform::Picture(red(300, 200)));
    print.setAlign(0);
    print.setShowBorder(false);
    print.PrintPicture();
    const QStringList printed = m_jobs.waitFor(1);
    ASSERT_EQ(printed.size(), 1);
    const platform::PaperMetrics paper = core::currentPrinter()->metrics();
    const QPoint corner(paper.physicalOffsetX * kScreenDots / paper.logPixelsX,
                        paper.physicalOffsetY * kScreenDots / paper.logPixelsY);
    const QImage page = support::pageOf(printed[0], 1, kScreenDots);
    support::expectColour(page, {0, 0, page.width(), corner.y()}, Qt::white);
    support::expectColour(page, {corner, QSize(300, 200)}, Qt::red);
    support::expectColour(page, {corner.x() + 301, 0, 200, page.height()}, Qt::white);
    support::expectColour(page, {0, corner.y() + 201, page.width(), 300}, Qt::white);
}

TEST_F(RealQueue, PrintsSheetsAsThePagesOfOneJobThatLookLikeThePreview)
{
    m_list.setPrintLayout(&printing::makeContactSheets);
    m_list.setPrint_NrThumbCols(2);
    for (int k = 0; k < 9; ++k) {
        const QColor colour = QColor::fromHsv(40 * k, 200, 220);
        addPicture(
            "pics/" + std::to_string(k) + ".bmp",
            base::rgb(unsigned(colour.red()), unsigned(colour.green()), unsigned(colour.blue())),
            {320, 180 + 40 * k});
    }
    runFolder();
    m_list.PrintPicture();
    thumbs::PageSheet& sheets = m_list.surface().pages;
    ASSERT_EQ(sheets.pages(), 3);
    const QStringList printed = m_jobs.waitFor(1);
    ASSERT_EQ(printed.size(), 1);
    EXPECT_EQ(support::pdfFact(printed[0], QStringLiteral("Pages")), "3");
    EXPECT_EQ(support::paperOf(printed[0]), QSize(210, 297));
    EXPECT_EQ(support::imagesOf(printed[0]).size(), 9);
    for (int page = 0; page < sheets.pages(); ++page) {
        SCOPED_TRACE(page);
        const QImage* const shown = sheets.bitmap(page);
        ASSERT_NE(shown, nullptr);
        expectSame(*shown, printedSheet(printed[0], page + 1, shown->size()));
    }
}

TEST_F(RealQueue, PrintsTheSheetsUntilTheCancel)
{
    m_list.setPrintLayout(&printing::makeContactSheets);
    m_list.setPrint_NrThumbCols(1);
    for (const char* name : {"pics/a.bmp", "pics/b.bmp", "pics/c.bmp"}) {
        addPicture(name, kBlue, {300, 300});
    }
    runFolder();
    atEveryYield(
        [this, count = 0]() mutable { m_list.surface().state.CancelLoading = ++count == 3; });
    m_list.PrintPicture();
    const QStringList printed = m_jobs.waitFor(1);
    ASSERT_EQ(printed.size(), 1);
    EXPECT_EQ(support::imagesOf(printed[0]).size(), 2);
}
