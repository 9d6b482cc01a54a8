#include "publishing/printing/print_picture.h"

#include "platform/os/registry.h"
#include "publishing/printing/print_fixture.h"

#include <QSignalSpy>
#include <optional>

using platform::Picture;
using test::numbered;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFFU;
constexpr QRgb kBlack = 0xFF000000U;

// A page of one colour with an image and the outline of a rectangle on it, pixel by pixel.
QImage pageWith(QSize page, QRgb colour, const QImage& image, QPoint corner,
                std::optional<QRgb> outline = {}, std::optional<QSize> outlined = {})
{
    QImage expected(page, QImage::Format_RGB32);
    const QSize size = outlined.value_or(image.size());
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QPoint inside = QPoint(x, y) - corner;
            const bool isOnEdge = inside.x() == 0 || inside.x() == size.width() ||
                                  inside.y() == 0 || inside.y() == size.height();
            const bool isWithin = inside.x() >= 0 && inside.x() <= size.width() &&
                                  inside.y() >= 0 && inside.y() <= size.height();
            const QRgb below = image.valid(inside) ? image.pixel(inside) : colour;
            expected.setPixel(x, y, outline && isOnEdge && isWithin ? *outline : below);
        }
    }
    return expected;
}

class PictureOnPaper : public PrintTest {
protected:
    // A page of 48 by 96 pixels: paper that has no name, on a printer without margins.
    void usePage(AAPrintPicture& print)
    {
        printers.metrics = platform::PaperMetrics{192, 192, 96, 192, 0, 0, 96, 192};
        printers.system = {{QStringLiteral("Laser"), true}};
        print.setPaperSize(0);
        print.setPaperWidth(13);  // 49.13 pixels
        print.setPaperHeight(26); // 98.27
    }
    static constexpr QSize kPage{49, 98};

    static QImage preview(AAPrintPicture& print) { return print.GetPreview().image(); }

    std::vector<support::PrintedThing> onlyPage()
    {
        EXPECT_EQ(printers.documents.size(), 1U);
        EXPECT_EQ(printers.documents.at(0).pages.size(), 1U);
        return printers.documents.at(0).pages.at(0);
    }
};

} // namespace

TEST_F(PictureOnPaper, StartsWithItsDefaults)
{
    AAPrintPicture print;
    EXPECT_EQ(print.Align(), 4);
    EXPECT_TRUE(print.Picture().isNothing());
    EXPECT_EQ(print.BackColor(), 0xFFFFFFU);
    EXPECT_EQ(print.BorderColor(), 0U);
    EXPECT_TRUE(print.ShowBorder());
    EXPECT_EQ(print.DefultPrinter(), "");
    EXPECT_EQ(print.PaperSize(), 2);
    EXPECT_EQ(print.PaperWidth(), 210);
    EXPECT_EQ(print.PaperHeight(), 297);
    EXPECT_FALSE(print.Stretch());
    EXPECT_EQ(print.Copies(), 1);
    core::PropertyBag bag;
    print.WriteProperties(bag);
    EXPECT_TRUE(bag.values().empty());
}

TEST_F(PictureOnPaper, KeepsItsProperties)
{
    AAPrintPicture print;
    print.setAlign(8);
    print.setPicture(Picture(numbered(3, 2)));
    print.setBackColor(0x112233);
    print.setBorderColor(0x445566);
    print.setShowBorder(false);
    print.setDefultPrinter("Laser");
    print.setPaperSize(0);
    print.setPaperWidth(100);
    print.setPaperHeight(-5);
    print.setStretch(true);
    print.setCopies(32767);
    core::PropertyBag bag;
    print.WriteProperties(bag);
    EXPECT_EQ(bag.values().size(), 11U);
    EXPECT_EQ(bag.read("Printer", ""), QVariant("Laser"));
    EXPECT_EQ(bag.read("Copies", 1), QVariant(32767));

    AAPrintPicture other;
    other.ReadProperties(bag);
    EXPECT_EQ(other.Align(), 8);
    test::expectPixels(other.Picture().image(), numbered(3, 2));
    EXPECT_EQ(other.BackColor(), 0x112233U);
    EXPECT_EQ(other.BorderColor(), 0x445566U);
    EXPECT_FALSE(other.ShowBorder());
    EXPECT_EQ(other.DefultPrinter(), "Laser");
    EXPECT_EQ(other.PaperSize(), 0);
    EXPECT_EQ(other.PaperWidth(), 100);
    EXPECT_EQ(other.PaperHeight(), -5);
    EXPECT_TRUE(other.Stretch());
    EXPECT_EQ(other.Copies(), 32767);

    other.ReadProperties({});
    EXPECT_EQ(other.Align(), 4);
    EXPECT_TRUE(other.Picture().isNothing());
    EXPECT_EQ(other.Copies(), 1);
}

TEST_F(PictureOnPaper, ReadsDefaultsInPlaceOfValuesThatDontFit)
{
    core::PropertyBag bag;
    bag.write("Copies", 40000, 1);
    bag.write("PaperWidth", "wide", 210);
    bag.write("Stretch", "perhaps", false);
    bag.write("Picture", "no picture", QImage());
    AAPrintPicture print;
    print.ReadProperties(bag);
    EXPECT_EQ(print.Copies(), 1);
    EXPECT_EQ(print.PaperWidth(), 210);
    EXPECT_FALSE(print.Stretch());
    EXPECT_TRUE(print.Picture().isNothing());
}

TEST_F(PictureOnPaper, TellsThePaperUprightHoweverItLies)
{
    AAPrintPicture print;
    print.setPaperWidth(100);
    print.setPaperHeight(150);
    const QSize expected[] = {{100, 150}, {148, 210}, {210, 297}, {297, 420}};
    for (const bool landscape : {false, true}) {
        print.Hvprinter(landscape);
        for (int size = 0; size < 4; ++size) {
            std::int16_t width = 0;
            std::int16_t height = 0;
            print.setPaperSize(size);
            print.GetPaperWH(width, height);
            EXPECT_EQ(QSize(width, height), expected[size]) << size;
        }
    }
}

TEST_F(PictureOnPaper, TellsTheMarginsFromLeftRound)
{
    havePrinters();
    AAPrintPicture print;
    const QSignalSpy measured(&print, &AAPrintPicture::MarginsMeasured);
    print.GetPrinterMargin();
    ASSERT_EQ(measured.count(), 1);
    EXPECT_EQ(measured.at(0), (QVariantList{20, 40, 60, 80}));
}

TEST_F(PictureOnPaper, TellsNoMarginsWithoutAPrinter)
{
    beClassic();
    AAPrintPicture print;
    const QSignalSpy measured(&print, &AAPrintPicture::MarginsMeasured);
    print.GetPrinterMargin();
    ASSERT_EQ(measured.count(), 1);
    EXPECT_EQ(measured.at(0), (QVariantList{0, 0, 0, 0}));
}

TEST_F(PictureOnPaper, SelectsThePrinterOfItsName)
{
    havePrinters();
    AAPrintPicture print;
    print.setDefultPrinter("Laser");
    print.GetPrinterMargin();
    EXPECT_EQ(printers.selected()->name(), "Laser");
    print.setDefultPrinter("laser");
    print.GetPrinterMargin();
    EXPECT_EQ(printers.selected()->name(), "Laser");
}

TEST_F(PictureOnPaper, MeasuresOnTheSystemsPrinterBeforeOneIsChosen)
{
    havePrinters();
    beClassic();
    AAPrintPicture print;
    print.GetPrinterMargin();
    EXPECT_EQ(printers.selected()->name(), "Ink");
}

TEST_F(PictureOnPaper, SetsThePaperByItsCode)
{
    havePrinters();
    AAPrintPicture print;
    print.setPaperWidth(100);
    print.setPaperHeight(150);
    const char* const expected[] = {"paper 256 100x150", "paper 11 100x150", "paper 9 100x150",
                                    "paper 8 100x150"};
    for (int size = 0; size < 4; ++size) {
        print.setPaperSize(size);
        print.GetPrinterMargin();
        EXPECT_EQ(printers.log.last(), expected[size]);
    }
}

TEST_F(PictureOnPaper, ComposesAPageLessAQuarterOfTheMargins)
{
    havePrinters();
    AAPrintPicture print;
    EXPECT_EQ(preview(print).size(), QSize(774, 1093));
}

TEST_F(PictureOnPaper, LiesOnThePageByItsAlignment)
{
    AAPrintPicture print;
    usePage(print);
    print.setShowBorder(false);
    const QImage image = numbered(20, 31);
    print.setPicture(Picture(image));
    const QPoint corners[] = {{0, 0},   {14, 0}, {29, 0},  {0, 34}, {14, 34},
                              {29, 34}, {0, 67}, {14, 67}, {29, 67}};
    for (int align = 0; align < 9; ++align) {
        print.setAlign(align);
        test::expectPixels(preview(print), pageWith(kPage, kWhite, image, corners[align]));
    }
}

TEST_F(PictureOnPaper, IsCutOnAllSidesWhereItIsLarger)
{
    AAPrintPicture print;
    usePage(print);
    const QImage image = numbered(100, 201);
    print.setPicture(Picture(image));
    test::expectPixels(preview(print), pageWith(kPage, kWhite, image, {-26, -52}));
}

TEST_F(PictureOnPaper, HasABorderOfBothEndsAndAPageOfItsColour)
{
    AAPrintPicture print;
    usePage(print);
    print.setBackColor(base::rgb(1, 2, 3));
    print.setBorderColor(base::rgb(200, 100, 50));
    const QImage image = numbered(20, 30);
    print.setPicture(Picture(image));
    test::expectPixels(preview(print),
                       pageWith(kPage, qRgb(1, 2, 3), image, {14, 34}, qRgb(200, 100, 50)));
    print.setAlign(8); // the far edges are off the page
    test::expectPixels(preview(print),
                       pageWith(kPage, qRgb(1, 2, 3), image, {29, 68}, qRgb(200, 100, 50)));
}

TEST_F(PictureOnPaper, FillsThePageWhenStretchedButNotItsBorder)
{
    AAPrintPicture print;
    usePage(print);
    const QRgb colour = qRgb(10, 20, 30);
    print.setPicture(Picture(test::filled(20, 30, colour)));
    print.setStretch(true);
    test::expectPixels(preview(print),
                       pageWith(kPage, colour, {}, {14, 34}, kBlack, QSize(20, 30)));
}

TEST_F(PictureOnPaper, ShowsThePageThroughWhatIsTransparent)
{
    AAPrintPicture print;
    usePage(print);
    print.setShowBorder(false);
    print.setBackColor(base::rgb(0, 255, 0));
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0, 0, 0, 0));
    image.setPixel(1, 0, qRgba(255, 0, 0, 255));
    print.setPicture(Picture(image));
    print.setAlign(0);
    const QImage page = preview(print);
    EXPECT_EQ(page.pixel(0, 0), qRgb(0, 255, 0));
    EXPECT_EQ(page.pixel(1, 0), qRgb(255, 0, 0));
}

TEST_F(PictureOnPaper, ShowsAnEmptyPageWithoutAPicture)
{
    AAPrintPicture print;
    usePage(print);
    test::expectPixels(preview(print), pageWith(kPage, kWhite, {}, {0, 0}));
}

TEST_F(PictureOnPaper, TakesPicturesOfOnePixelAndOfManyInARow)
{
    AAPrintPicture print;
    usePage(print);
    for (const QSize size : {QSize(1, 1), QSize(30000, 2), QSize(2, 30000)}) {
        const QImage image = numbered(size.width(), size.height());
        print.setPicture(Picture(image));
        print.setShowBorder(false);
        const QPoint corner = printing::alignedOffset(4, kPage, size);
        test::expectPixels(preview(print), pageWith(kPage, kWhite, image, corner));
        print.setShrinksToFit(true);
        EXPECT_EQ(preview(print).size(), kPage);
        print.setShrinksToFit(false);
    }
}

TEST_F(PictureOnPaper, IsReducedToThePageWhereThatIsWanted)
{
    AAPrintPicture print;
    usePage(print);
    print.setShrinksToFit(true);
    const QRgb colour = qRgb(10, 20, 30);
    print.setPicture(Picture(test::filled(490, 490, colour)));
    const QImage reduced = test::filled(49, 49, colour);
    test::expectPixels(preview(print), pageWith(kPage, kWhite, reduced, {0, 24}, kBlack));
}

TEST_F(PictureOnPaper, IsNothingOnAPageWithoutRoom)
{
    AAPrintPicture print;
    usePage(print);
    print.setPicture(Picture(numbered(2, 2)));
    for (const auto [width, height] : {QSize(0, 100), {100, 0}, {-210, -297}, {-210, 297}}) {
        print.setPaperWidth(static_cast<std::int16_t>(width));
        print.setPaperHeight(static_cast<std::int16_t>(height));
        EXPECT_TRUE(print.GetPreview().isNothing());
        print.PrintPicture();
    }
    EXPECT_TRUE(printers.documents.empty());
    EXPECT_FALSE(printers.log.contains("start "));
}

TEST_F(PictureOnPaper, HasNoImageOfAPageBeyondMemory)
{
    AAPrintPicture print;
    usePage(print);
    print.setPicture(Picture(numbered(2, 2)));
    print.setPaperWidth(10000);
    print.setPaperHeight(10000);
    EXPECT_TRUE(print.GetPreview().isNothing());
    print.setPaperHeight(10);
    EXPECT_EQ(preview(print).size(), QSize(37795, 38));
}

TEST_F(PictureOnPaper, LaysItsPageOnTheSideWithThePaper)
{
    AAPrintPicture print;
    usePage(print);
    print.Hvprinter(true);
    EXPECT_EQ(preview(print).size(), kPage.transposed());
    EXPECT_LT(printers.log.indexOf("orientation 2"), printers.log.indexOf("paper 256 13x26"));
    print.Hvprinter(false);
    EXPECT_EQ(preview(print).size(), kPage);
}

TEST_F(PictureOnPaper, KeepsItsPageUprightInClassicMode)
{
    beClassic();
    AAPrintPicture print;
    usePage(print);
    print.Hvprinter(true);
    printers.log.clear();
    EXPECT_EQ(preview(print).size(), kPage);
    // The paper is measured before it is turned.
    EXPECT_EQ(printers.log, (QStringList{"paper 256 13x26", "orientation 2"}));
}

TEST_F(PictureOnPaper, GoesToPaperAtItsOwnPixelsWhereThePageHasIt)
{
    havePrinters(); // two pixels of the printer to one of the page, which has 774 x 1093
    AAPrintPicture print;
    const QImage image = numbered(74, 93);
    print.setPicture(Picture(image));
    print.setBackColor(0x010203);
    print.setBorderColor(0x0A0B0C);
    print.setDocumentTitle("Holiday");
    print.PrintPicture();
    const auto things = onlyPage();
    EXPECT_EQ(printers.documents[0].title, "Holiday");
    EXPECT_EQ(printers.documents[0].copies, 1);
    ASSERT_EQ(things.size(), 6U);
    const QRectF page(0, 0, 1548, 2186);
    EXPECT_EQ(things[0].place, page);
    EXPECT_EQ(things[0].colour, 0x010203U);
    test::expectPixels(things[1].picture, image);
    EXPECT_EQ(things[1].place, QRectF(700, 1000, 148, 186));
    EXPECT_EQ(things[1].clip, page);
    const QRectF sides[] = {
        {700, 1000, 150, 2}, {700, 1186, 150, 2}, {700, 1000, 2, 188}, {848, 1000, 2, 188}};
    for (std::size_t side = 0; side < 4; ++side) {
        EXPECT_EQ(things[2 + side].place, sides[side]);
        EXPECT_EQ(things[2 + side].colour, 0x0A0B0CU);
    }
}

TEST_F(PictureOnPaper, LiesByTheMarginsFurtherInInClassicMode)
{
    havePrinters();
    beClassic();
    AAPrintPicture print;
    print.setPicture(Picture(numbered(74, 93)));
    print.PrintPicture();
    const auto things = onlyPage();
    ASSERT_EQ(things.size(), 6U);
    const QRectF page(20, 40, 1548, 2186);
    EXPECT_EQ(things[0].place, page);
    EXPECT_EQ(things[1].place, QRectF(720, 1040, 148, 186));
    EXPECT_EQ(things[1].clip, page);
    EXPECT_EQ(things[2].place, QRectF(720, 1040, 150, 2));
}

TEST_F(PictureOnPaper, LeavesOutWhatThePageCuts)
{
    AAPrintPicture print;
    usePage(print);
    print.setShowBorder(false);
    const QImage image = numbered(101, 30);
    print.setPicture(Picture(image));
    print.PrintPicture();
    const auto things = onlyPage();
    ASSERT_EQ(things.size(), 2U);
    test::expectPixels(things[1].picture, image.copy(26, 0, 49, 30));
    EXPECT_EQ(things[1].place, QRectF(0, 68, 98, 60));
}

TEST_F(PictureOnPaper, GoesToPaperWholeWhenStretchedOrReduced)
{
    AAPrintPicture print;
    usePage(print);
    print.setShowBorder(false);
    const QImage image = numbered(490, 490);
    print.setPicture(Picture(image));
    print.setStretch(true);
    print.PrintPicture();
    auto things = onlyPage();
    test::expectPixels(things.at(1).picture, image);
    EXPECT_EQ(things.at(1).place, QRectF(0, 0, 98, 196));

    printers.documents.clear();
    print.setStretch(false);
    print.setShrinksToFit(true);
    print.PrintPicture();
    things = onlyPage();
    test::expectPixels(things.at(1).picture, image);
    EXPECT_EQ(things.at(1).place, QRectF(0, 48, 98, 98));
}

TEST_F(PictureOnPaper, MakesAJobOfEachCopy)
{
    havePrinters();
    AAPrintPicture print;
    print.setPicture(Picture(numbered(2, 2)));
    print.setCopies(5);
    print.PrintPicture();
    EXPECT_EQ(onlyPage().size(), 6U);
    EXPECT_EQ(printers.documents[0].copies, 5);
    EXPECT_EQ(printers.documents[0].printer, "Ink");
}

TEST_F(PictureOnPaper, PrintsNothingOfNoPicture)
{
    havePrinters();
    AAPrintPicture print;
    print.PrintPicture();
    EXPECT_TRUE(printers.documents.empty());
}

TEST_F(PictureOnPaper, PrintsNothingWithoutAPrinter)
{
    beClassic();
    AAPrintPicture print;
    print.setPicture(Picture(numbered(2, 2)));
    print.PrintPicture();
    EXPECT_TRUE(printers.documents.empty());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(PictureOnPaper, PrintsNothingWhereTheDocumentDoesntStart)
{
    havePrinters();
    printers.starts = false;
    AAPrintPicture print;
    print.setPicture(Picture(numbered(2, 2)));
    print.PrintPicture();
    EXPECT_TRUE(printers.documents.empty());
    EXPECT_FALSE(printers.log.contains("draw"));
}

TEST_F(PictureOnPaper, PrintsOnThePrinterThatIsGoneWithoutHarm)
{
    havePrinters();
    AAPrintPicture print;
    print.setPicture(Picture(numbered(2, 2)));
    print.setDefultPrinter("Laser");
    print.GetPrinterMargin();
    printers.system.clear();
    printers.fate = platform::PrintFailure::Gone;
    print.PrintPicture();
    EXPECT_TRUE(printers.documents.empty());
}

TEST_F(PictureOnPaper, TellsThatThePrinterIsGoneAndPrintsOnNoOther)
{
    havePrinters();
    AAPrintPicture print;
    print.setPicture(Picture(numbered(2, 2)));
    print.GetPrinterMargin();
    print.setDefultPrinter("Laser");
    printers.system.erase(printers.system.begin());
    print.PrintPicture();
    EXPECT_TRUE(printers.documents.empty());
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_TRUE(dialogs.boxes[0].text.contains(QStringLiteral("“Laser” can't be reached")));
}

TEST_F(PictureOnPaper, GoesToThePrinterThatIsLeftInClassicMode)
{
    havePrinters();
    beClassic();
    AAPrintPicture print;
    print.setPicture(Picture(numbered(2, 2)));
    print.setDefultPrinter("Cellar");
    print.PrintPicture();
    ASSERT_EQ(printers.documents.size(), 1U);
    EXPECT_EQ(printers.documents[0].printer, "Ink");
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(PictureOnPaper, NotesTheResolutionWhenItBegins)
{
    AAPrintPicture print;
    EXPECT_EQ(platform::getSetting("Print", "Resolution"), "");
    print.PrintPicture();
    EXPECT_EQ(platform::getSetting("Print", "Resolution"), "300");
}
