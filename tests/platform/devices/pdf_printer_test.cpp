#include "platform/devices/printers.h"
#include "platform/devices/queue_printers.h"
#include "support/full_disk.h"
#include "support/printed_pages.h"
#include "support/temp_tree.h"

#include <gtest/gtest.h>

namespace {

using platform::Paper;
using platform::PaperOrientation;
using platform::PrintFailure;

QImage filled(int width, int height, Qt::GlobalColor colour)
{
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

// Every pixel has a colour of its own, as on a photograph.
QImage photograph(int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, (x + y) % 97));
        }
    }
    return picture;
}

class PdfPrinter : public testing::Test {
protected:
    PdfPrinter()
    {
        target = tree.path("out/a.pdf");
        tree.add({"out/"});
        printer->setQuality(254); // ten pixels in a millimetre
    }

    bool start() { return printer->startDocument(QStringLiteral("Title")); }

    // The page at a pixel in a tenth of an inch.
    [[nodiscard]] QImage page(int number = 1) const { return support::pageOf(target, number, 254); }

    support::TempTree tree;
    QString target;
    QStringList titles;
    std::vector<PrintFailure> failures;
    platform::QueuePrinters printers;
    std::unique_ptr<platform::Printer> printer = printers.openPdf(
        QStringLiteral("File"), {[this](const QString& title) {
                                     titles.append(title);
                                     return target;
                                 },
                                 [this](PrintFailure why) { failures.push_back(why); }});
};

TEST_F(PdfPrinter, PutsAPictureInItsPlaceWithItsColours)
{
    ASSERT_TRUE(start());
    printer->draw(filled(40, 20, Qt::red), {100, 200, 400, 300}, {});
    printer->fill({1000, 1500, 300, 200}, 0xFF8000);
    EXPECT_TRUE(printer->endDocument());
    const QImage shown = page();
    support::expectColour(shown, {100, 200, 400, 300}, Qt::red);
    support::expectColour(shown, {1000, 1500, 300, 200}, QColor(0, 0x80, 0xFF));
    support::expectColour(shown, {0, 0, 2090, 200}, Qt::white);
    support::expectColour(shown, {500, 200, 400, 1200}, Qt::white);
    EXPECT_TRUE(failures.empty());
    EXPECT_EQ(titles, QStringList("Title"));
    EXPECT_EQ(support::pdfFact(target, "Title"), "Title");
}

TEST_F(PdfPrinter, KeepsAllPixelsOfAPicture)
{
    ASSERT_TRUE(start());
    printer->draw(photograph(3000, 2000), {0, 0, 300, 200}, {});
    printer->draw(filled(3000, 2000, Qt::blue), {0, 300, 2000, 1000}, {});
    EXPECT_TRUE(printer->endDocument());
    const auto images = support::imagesOf(target);
    ASSERT_EQ(images.size(), 2);
    EXPECT_EQ(images[0].size, QSize(3000, 2000));
    EXPECT_EQ(images[1].size, QSize(3000, 2000));
}

TEST_F(PdfPrinter, CompressesPhotographsAloneWithLoss)
{
    ASSERT_TRUE(start());
    printer->draw(photograph(300, 200), {0, 0, 300, 200}, {});
    printer->draw(filled(300, 200, Qt::blue), {0, 300, 300, 200}, {});
    EXPECT_TRUE(printer->endDocument());
    const auto images = support::imagesOf(target);
    ASSERT_EQ(images.size(), 2);
    EXPECT_EQ(images[0].encoding, "jpeg");
    EXPECT_EQ(images[1].encoding, "image");
}

TEST_F(PdfPrinter, PrintsPhotographsOfAnyLength)
{
    ASSERT_TRUE(start());
    printer->draw(photograph(70000, 20), {0, 0, 2000, 100}, {});
    EXPECT_TRUE(printer->endDocument());
    const auto images = support::imagesOf(target);
    ASSERT_EQ(images.size(), 1);
    EXPECT_EQ(images[0].size, QSize(70000, 20));
    EXPECT_EQ(images[0].encoding, "image");
}

TEST_F(PdfPrinter, ShowsNothingBeyondTheClipAndThePaper)
{
    ASSERT_TRUE(start());
    printer->draw(filled(10, 10, Qt::red), {-500, -500, 5000, 5000}, {100, 100, 200, 200});
    printer->draw(filled(10, 10, Qt::green), {1900, 2800, 5000, 5000}, {});
    EXPECT_TRUE(printer->endDocument());
    const QImage shown = page();
    support::expectColour(shown, {100, 100, 200, 200}, Qt::red);
    support::expectColour(shown, {0, 0, 2000, 100}, Qt::white);
    support::expectColour(shown, {300, 0, 1600, 2000}, Qt::white);
    support::expectColour(shown, {1900, 2800, 190, 160}, Qt::green);
}

TEST_F(PdfPrinter, MixesASeeThroughPictureWithThePaper)
{
    QImage half(10, 10, QImage::Format_ARGB32);
    half.fill(QColor(255, 0, 0, 128));
    ASSERT_TRUE(start());
    printer->draw(half, {100, 100, 200, 200}, {});
    EXPECT_TRUE(printer->endDocument());
    support::expectColour(page(), {100, 100, 200, 200}, QColor(255, 127, 127));
}

TEST_F(PdfPrinter, HasAsManyPagesAsWereBegun)
{
    ASSERT_TRUE(start());
    printer->newPage();
    printer->draw(filled(10, 10, Qt::blue), {0, 0, 500, 500}, {});
    printer->newPage();
    EXPECT_TRUE(printer->endDocument());
    EXPECT_EQ(support::pdfFact(target, "Pages"), "3");
    support::expectColour(page(1), {0, 0, 500, 500}, Qt::white);
    support::expectColour(page(2), {0, 0, 500, 500}, Qt::blue);
    support::expectColour(page(3), {0, 0, 500, 500}, Qt::white);
}

TEST_F(PdfPrinter, HasThePaperThatIsSet)
{
    struct Case {
        Paper paper;
        QSizeF custom;
        PaperOrientation orientation;
        QSize millimetres;
    };
    const std::initializer_list<Case> cases = {
        {Paper::A4, {}, PaperOrientation::Portrait, {210, 297}},
        {Paper::A4, {}, PaperOrientation::Landscape, {297, 210}},
        {Paper::A3, {}, PaperOrientation::Portrait, {297, 420}},
        {Paper::A5, {}, PaperOrientation::Landscape, {210, 148}},
        {Paper::Custom, {100, 50}, PaperOrientation::Portrait, {100, 50}},
        {Paper::Custom, {100, 50}, PaperOrientation::Landscape, {50, 100}},
        {Paper::Custom, {1, 1}, PaperOrientation::Portrait, {1, 1}},
    };
    for (const Case& each : cases) {
        printer->setPaper(each.paper, each.custom);
        printer->setOrientation(each.orientation);
        ASSERT_TRUE(start());
        EXPECT_TRUE(printer->endDocument());
        EXPECT_EQ(support::paperOf(target), each.millimetres) << each.millimetres.width();
    }
}

TEST_F(PdfPrinter, PrintsOnAPaperOfTenMetres)
{
    printer->setPaper(Paper::Custom, {10000, 10000});
    ASSERT_TRUE(start());
    printer->draw(filled(10, 10, Qt::red), {0, 0, 50000, 50000}, {});
    EXPECT_TRUE(printer->endDocument());
    const QImage shown = support::pageOf(target, 1, 2);
    const int half = shown.width() / 2;
    EXPECT_GT(half, 0);
    support::expectColour(shown, {0, 0, half, half}, Qt::red);
    support::expectColour(shown, {half, half, half, half}, Qt::white);
}

TEST_F(PdfPrinter, AsksForNoFileWithoutPaper)
{
    for (const QSizeF size : {QSizeF(0, 0), QSizeF(-10, 100)}) {
        printer->setPaper(Paper::Custom, size);
        EXPECT_FALSE(start());
        printer->draw(filled(10, 10, Qt::red), {0, 0, 100, 100}, {});
        printer->newPage();
        EXPECT_FALSE(printer->endDocument());
    }
    EXPECT_TRUE(titles.isEmpty());
    EXPECT_TRUE(failures.empty());
}

TEST_F(PdfPrinter, DrawsNothingOfPicturesWithoutSize)
{
    ASSERT_TRUE(start());
    printer->draw({}, {0, 0, 100, 100}, {});
    printer->draw(filled(10, 10, Qt::red), {50, 50, 0, 100}, {});
    printer->draw(filled(10, 10, Qt::red), {50, 50, -100, -100}, {});
    printer->fill({100, 100, -10, 10}, 0);
    EXPECT_TRUE(printer->endDocument());
    support::expectColour(page(), {0, 0, 300, 300}, Qt::white);
}

TEST_F(PdfPrinter, PrintsPicturesOfOddShapes)
{
    ASSERT_TRUE(start());
    printer->draw(filled(1, 1, Qt::red), {0, 0, 500, 500}, {});
    printer->draw(filled(30000, 2, Qt::blue), {0, 600, 2000, 100}, {});
    EXPECT_TRUE(printer->endDocument());
    support::expectColour(page(), {0, 0, 500, 500}, Qt::red);
    support::expectColour(page(), {0, 600, 2000, 100}, Qt::blue);
}

TEST_F(PdfPrinter, PrintsNothingWhenNoFileIsWanted)
{
    target.clear();
    EXPECT_FALSE(start());
    EXPECT_FALSE(printer->endDocument());
    EXPECT_TRUE(failures.empty());
}

TEST_F(PdfPrinter, LeavesTheFileThatStoodThereUntilTheEnd)
{
    tree.add({"out/a.pdf", "before"});
    ASSERT_TRUE(start());
    printer->draw(photograph(500, 500), {0, 0, 500, 500}, {});
    EXPECT_EQ(tree.content("out/a.pdf"), "before");
    printer->abandonDocument();
    EXPECT_FALSE(printer->endDocument());
    EXPECT_EQ(tree.content("out/a.pdf"), "before");
    ASSERT_TRUE(start());
    printer.reset();
    EXPECT_EQ(tree.content("out/a.pdf"), "before");
}

TEST_F(PdfPrinter, MakesOneFileOfManyCopiesAndNoneOfNone)
{
    ASSERT_TRUE(start());
    EXPECT_TRUE(printer->endDocument(0));
    EXPECT_FALSE(tree.exists("out/a.pdf"));
    ASSERT_TRUE(start());
    EXPECT_TRUE(printer->endDocument(40000));
    EXPECT_EQ(support::pdfFact(target, "Pages"), "1");
}

TEST_F(PdfPrinter, TellsOnceOfEachDocumentThatItCannotBeWritten)
{
    for (const QString& refused : {tree.path("missing/a.pdf"), tree.path("out"),
                                   QStringLiteral("/proc/a.pdf"), QStringLiteral("/dev/full")}) {
        target = refused;
        EXPECT_FALSE(start());
        EXPECT_FALSE(printer->endDocument());
    }
    EXPECT_EQ(failures, std::vector(4, PrintFailure::NotSaved));
}

TEST_F(PdfPrinter, KeepsTheOldFileOnAFullDisk)
{
    tree.add({"out/a.pdf", "before"});
    {
        const support::FullDisk full(20000);
        ASSERT_TRUE(start());
        for (int page = 0; page < 5; ++page) {
            printer->draw(photograph(600, 600), {0, 0, 500, 500}, {});
            printer->newPage();
        }
        EXPECT_FALSE(printer->endDocument());
    }
    EXPECT_EQ(failures, std::vector{PrintFailure::NotSaved});
    EXPECT_TRUE(tree.content("out/a.pdf") == "before");
}

TEST_F(PdfPrinter, TellsOfAFolderThatIsGoneAtTheEnd)
{
    ASSERT_TRUE(start());
    tree.remove("out");
    EXPECT_FALSE(printer->endDocument());
    EXPECT_EQ(failures, std::vector{PrintFailure::NotSaved});
}

TEST_F(PdfPrinter, KeepsItsQualityAgainstNonsense)
{
    for (const int nonsense : {0, -1, 9, 1000000}) {
        printer->setQuality(nonsense);
    }
    EXPECT_EQ(printer->metrics().logPixelsX, 254);
}

} // namespace
