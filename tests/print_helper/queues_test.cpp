#include "platform/devices/queue_printers.h"
#include "support/full_disk.h"
#include "support/printed_jobs.h"
#include "support/printed_pages.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using platform::Paper;
using platform::PaperMetrics;
using platform::PaperOrientation;
using platform::PrintFailure;

QImage red(int width = 40, int height = 30)
{
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return picture;
}

// Rules of the service, changed by its own tools.
void runTool(const QString& tool, const QStringList& arguments)
{
    support::toolOutput(tool, arguments);
}

class Queues : public testing::Test {
protected:
    std::unique_ptr<platform::Printer> open(const QString& name)
    {
        return printers.open(name, {{}, [this](PrintFailure why) { failures.push_back(why); }});
    }

    // Hands a document with a red square over.
    static bool print(platform::Printer& printer, int copies = 1)
    {
        if (!printer.startDocument(QStringLiteral("Square"))) {
            return false;
        }
        printer.draw(red(), {100, 100, 300, 300});
        return printer.endDocument(copies);
    }

    static void waitForSender()
    {
        while (platform::printSender().isBusy()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    support::PrintedJobs jobs;
    std::vector<PrintFailure> failures;
    platform::QueuePrinters printers;
};

TEST_F(Queues, AreListedWithTheDefault)
{
    QStringList names;
    for (const platform::PrinterFacts& each : printers.list()) {
        names.append(each.name + (each.isDefault ? QStringLiteral("*") : QString()));
    }
    EXPECT_EQ(names, QStringList({"Closed", "Desk*", "Lost", "Stopped"}));
}

TEST_F(Queues, TellTheirRimAndResolution)
{
    const auto printer = open(QStringLiteral("Desk"));
    const PaperMetrics own = printer->metrics();
    EXPECT_EQ(own.logPixelsX, 600);
    printer->setQuality(72);
    const PaperMetrics a4 = printer->metrics();
    EXPECT_EQ(QSize(a4.physicalWidth, a4.physicalHeight), QSize(595, 842));
    EXPECT_EQ(QPoint(a4.physicalOffsetX, a4.physicalOffsetY), QPoint(9, 36));
    EXPECT_EQ(QSize(a4.innerWidth, a4.innerHeight), QSize(559, 788));
    printer->setPaper(Paper::A5);
    const PaperMetrics a5 = printer->metrics();
    EXPECT_EQ(QSize(a5.innerWidth, a5.innerHeight), QSize(393, 541));
}

TEST_F(Queues, GiveAPaperThatTheyDoNotKnowTheUsualRim)
{
    const auto printer = open(QStringLiteral("Desk"));
    printer->setQuality(72);
    printer->setPaper(Paper::Custom, {100, 150});
    EXPECT_EQ(printer->metrics().physicalOffsetX, 9);
    EXPECT_FALSE(printer->metrics().isEmpty());
}

TEST_F(Queues, PutAPictureInItsPlaceOnThePaper)
{
    const auto printer = open(QStringLiteral("Desk"));
    printer->setQuality(72);
    ASSERT_TRUE(print(*printer));
    const QStringList printed = jobs.waitFor(1);
    const QImage page = support::pageOf(printed.at(0), 1, 72);
    support::expectColour(page, {109, 136, 300, 300}, Qt::red);
    support::expectColour(page, {0, 0, 595, 136}, Qt::white);
    support::expectColour(page, {0, 0, 109, 842}, Qt::white);
    support::expectColour(page, {409, 136, 180, 600}, Qt::white);
    EXPECT_EQ(support::paperOf(printed.at(0)), QSize(210, 297));
    EXPECT_EQ(support::PrintedJobs::titleOf(printed.at(0)), "Square");
    EXPECT_TRUE(failures.empty());
}

TEST_F(Queues, KeepAllPixelsOfAPicture)
{
    const auto printer = open(QStringLiteral("Desk"));
    ASSERT_TRUE(printer->startDocument(QStringLiteral("Large")));
    printer->draw(red(3000, 2000), {0, 0, 600, 400});
    ASSERT_TRUE(printer->endDocument());
    const auto images = support::imagesOf(jobs.waitFor(1).at(0));
    ASSERT_EQ(images.size(), 1);
    EXPECT_EQ(images.at(0).size, QSize(3000, 2000));
}

TEST_F(Queues, PrintEachCopyAsAJob)
{
    const auto printer = open(QStringLiteral("Desk"));
    ASSERT_TRUE(print(*printer, 5));
    for (const QString& document : jobs.waitFor(5)) {
        EXPECT_EQ(support::pdfFact(document, QStringLiteral("Pages")), "1");
    }
    ASSERT_TRUE(print(*printer, 0));
    ASSERT_TRUE(print(*printer));
    EXPECT_EQ(jobs.waitFor(6).size(), 6);
}

TEST_F(Queues, PrintAllPages)
{
    const auto printer = open(QStringLiteral("Desk"));
    ASSERT_TRUE(printer->startDocument(QStringLiteral("Pages")));
    printer->newPage();
    printer->draw(red(), {100, 100, 300, 300});
    printer->newPage();
    ASSERT_TRUE(printer->endDocument());
    EXPECT_EQ(support::pdfFact(jobs.waitFor(1).at(0), QStringLiteral("Pages")), "3");
}

TEST_F(Queues, PrintOnThePaperThatIsSet)
{
    const auto printer = open(QStringLiteral("Desk"));
    printer->setPaper(Paper::A5);
    ASSERT_TRUE(print(*printer));
    const QStringList printed = jobs.waitFor(1);
    EXPECT_EQ(support::paperOf(printed.at(0)), QSize(148, 210));
    EXPECT_TRUE(support::PrintedJobs::optionsOf(printed.at(0)).contains("iso_a5_148x210mm"));
}

TEST_F(Queues, PrintInLandscape)
{
    const auto printer = open(QStringLiteral("Desk"));
    printer->setOrientation(PaperOrientation::Landscape);
    printer->setQuality(72);
    const PaperMetrics paper = printer->metrics();
    EXPECT_GT(paper.innerWidth, paper.innerHeight);
    ASSERT_TRUE(printer->startDocument(QStringLiteral("Wide")));
    printer->draw(red(), {double(paper.innerWidth - 100), 0, 100, 50});
    ASSERT_TRUE(printer->endDocument());
    const QImage page = support::pageOf(jobs.waitFor(1).at(0), 1, 72);
    const bool isUpright = page.height() > page.width();
    const QImage lying = isUpright ? page.transformed(QTransform().rotate(-90)) : page;
    support::expectColour(
        lying, {paper.physicalOffsetX + paper.innerWidth - 100, paper.physicalOffsetY, 100, 50},
        Qt::red);
    support::expectColour(lying, {0, 200, 842, 390}, Qt::white);
}

TEST_F(Queues, TellOnceOfEachDocumentThatTheyTakeNoJobs)
{
    const auto printer = open(QStringLiteral("Closed"));
    ASSERT_TRUE(print(*printer, 3));
    ASSERT_TRUE(print(*printer));
    waitForSender();
    EXPECT_EQ(failures, std::vector(2, PrintFailure::Refused));
    EXPECT_TRUE(jobs.now().isEmpty());
}

TEST_F(Queues, TakeJobsWhileTheyAreStopped)
{
    ASSERT_TRUE(print(*open(QStringLiteral("Stopped"))));
    waitForSender();
    EXPECT_TRUE(failures.empty());
    const QByteArray waiting = support::toolOutput(
        QStringLiteral("lpstat"), {QStringLiteral("-o"), QStringLiteral("Stopped")});
    EXPECT_TRUE(waiting.startsWith("Stopped-")) << waiting.toStdString();
    EXPECT_TRUE(jobs.now().isEmpty());
}

TEST_F(Queues, TellThatTheyVanishedBeforePrinting)
{
    const auto printer = open(QStringLiteral("Lost"));
    EXPECT_FALSE(printer->metrics().isEmpty());
    runTool(QStringLiteral("lpadmin"), {QStringLiteral("-x"), QStringLiteral("Lost")});
    ASSERT_TRUE(print(*printer));
    waitForSender();
    EXPECT_EQ(failures, std::vector{PrintFailure::Gone});
}

TEST_F(Queues, LeaveNoFileBehind)
{
    const QTemporaryDir folder;
    qputenv("TMPDIR", folder.path().toUtf8());
    ASSERT_TRUE(print(*open(QStringLiteral("Desk"))));
    ASSERT_TRUE(print(*open(QStringLiteral("Closed"))));
    const auto abandoned = open(QStringLiteral("Desk"));
    ASSERT_TRUE(abandoned->startDocument({}));
    abandoned->abandonDocument();
    EXPECT_EQ(jobs.waitFor(1).size(), 1);
    waitForSender();
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    qunsetenv("TMPDIR");
}

TEST_F(Queues, TellThatTheDiskIsFull)
{
    const auto printer = open(QStringLiteral("Desk"));
    EXPECT_FALSE(printer->metrics().isEmpty());
    const support::FullDisk full(500);
    EXPECT_FALSE(print(*printer));
    EXPECT_EQ(failures, std::vector{PrintFailure::NotSaved});
}

TEST_F(Queues, TellThatThereIsNoFolderForTheDocument)
{
    qputenv("TMPDIR", "/proc");
    EXPECT_FALSE(print(*open(QStringLiteral("Desk"))));
    qunsetenv("TMPDIR");
    EXPECT_EQ(failures, std::vector{PrintFailure::NotSaved});
}

TEST_F(Queues, GetTheirDocumentsAlsoWhenTheProgramEndsMeanwhile)
{
    runTool(QStringLiteral(VISTARA_PRINT_AND_LEAVE), {});
    EXPECT_EQ(jobs.waitFor(2).size(), 2);
}

} // namespace
