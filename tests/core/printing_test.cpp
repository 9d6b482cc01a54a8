#include "core/printing.h"

#include "core/settings.h"
#include "support/fake_dialogs.h"
#include "support/fake_printers.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace {

using platform::PrinterFacts;
using platform::PrintFailure;

class Printing : public testing::Test {
protected:
    Printing()
    {
        printers.system = {{QStringLiteral("Attic"), false}, {QStringLiteral("Desk"), true}};
    }

    static void beClassic() { core::store(core::kClassic, true); }
    static QStringList names()
    {
        QStringList names;
        for (const PrinterFacts& each : core::printerChoices()) {
            names.append(each.name + (each.isDefault ? QStringLiteral("*") : QString()));
        }
        return names;
    }

    support::MemoryConfigStore config;
    support::FakeDialogs dialogs;
    support::FakePrinters printers;
};

TEST_F(Printing, OffersThePdfFileLast)
{
    EXPECT_EQ(names(), QStringList({"Attic", "Desk*", "Print to a PDF file"}));
    printers.system.clear();
    EXPECT_EQ(names(), QStringList({"Print to a PDF file*"}));
}

TEST_F(Printing, OffersTheSystemsPrintersAloneInClassicMode)
{
    beClassic();
    EXPECT_EQ(names(), QStringList({"Attic", "Desk*"}));
    printers.system.clear();
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(core::currentPrinter(), nullptr);
}

TEST_F(Printing, PresetsTheDefaultButNothingInClassicMode)
{
    EXPECT_EQ(core::presetPrinter(core::printerChoices()), "Desk");
    beClassic();
    EXPECT_EQ(core::presetPrinter(core::printerChoices()), "");
}

TEST_F(Printing, BeginsWithTheDefaultAndKeepsWhatIsSelected)
{
    ASSERT_NE(core::currentPrinter(), nullptr);
    EXPECT_EQ(core::currentPrinter()->name(), "Desk");
    EXPECT_TRUE(core::selectPrinter(QStringLiteral("Attic")));
    core::currentPrinter()->setQuality(400);
    EXPECT_FALSE(core::selectPrinter(QStringLiteral("Cellar")));
    EXPECT_TRUE(core::selectPrinter(QStringLiteral("Attic")));
    EXPECT_EQ(core::currentPrinter()->name(), "Attic");
    EXPECT_EQ(core::currentPrinter()->metrics().logPixelsX, 400);
}

TEST_F(Printing, OpensPdfFilesForTheirEntryAlone)
{
    EXPECT_TRUE(core::selectPrinter(core::kPdfPrinter));
    EXPECT_TRUE(printers.log.contains(QStringLiteral("open PDF Print to a PDF file")));
    EXPECT_TRUE(core::selectPrinter(QStringLiteral("Desk")));
    EXPECT_EQ(printers.log.last(), "open Desk");
}

TEST_F(Printing, AsksForTheFileByTheTitleAndNamesItPdf)
{
    ASSERT_NE(core::currentPrinter(), nullptr);
    dialogs.saveAnswers = {platform::SaveChoice{QStringLiteral("/tmp/a")},
                           platform::SaveChoice{QStringLiteral("/tmp/b.PDF")}, std::nullopt};
    EXPECT_EQ(printers.lastContact.askFile(QStringLiteral("2/3 holidays")), "/tmp/a.pdf");
    EXPECT_EQ(printers.lastContact.askFile(QString()), "/tmp/b.PDF");
    EXPECT_EQ(printers.lastContact.askFile(QStringLiteral("x")), "");
    EXPECT_EQ(dialogs.fileRequests.at(0).fileName, "2-3 holidays.pdf");
    EXPECT_EQ(dialogs.fileRequests.at(1).fileName, "Document.pdf");
    EXPECT_TRUE(dialogs.fileRequests.at(0).askBeforeReplacing);
}

TEST_F(Printing, AsksAgainWhereTheEndingMakesItAFileThatIsThere)
{
    const support::TempTree tree({{"foo.pdf", "kept"}});
    ASSERT_NE(core::currentPrinter(), nullptr);
    const platform::SaveChoice typed{tree.path("foo")};
    dialogs.saveAnswers = {typed, typed};
    dialogs.yesNoAnswers = {false, true};
    EXPECT_EQ(printers.lastContact.askFile(QStringLiteral("x")), tree.path("foo.pdf"));
    ASSERT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_TRUE(dialogs.boxes[0].text.contains(QStringLiteral("“foo.pdf” already exists")));
    EXPECT_EQ(dialogs.subjects[0].preset, platform::Answer::No);
    EXPECT_EQ(dialogs.fileRequests.at(1).fileName, "foo.pdf");
    dialogs.saveAnswers = {typed, std::nullopt};
    EXPECT_EQ(printers.lastContact.askFile(QStringLiteral("x")), "");
}

TEST_F(Printing, ProposesANameThatAFileCanHave)
{
    ASSERT_NE(core::currentPrinter(), nullptr);
    for (const QString& letter : {QStringLiteral("x"), QStringLiteral("ä"), QStringLiteral("😀")}) {
        static_cast<void>(printers.lastContact.askFile(letter.repeated(300)));
        const QString name = dialogs.fileRequests.back().fileName;
        EXPECT_LE(name.toUtf8().size(), 204);
        EXPECT_GE(name.toUtf8().size(), 200);
        EXPECT_EQ(QString::fromUtf8(name.toUtf8()), name); // no half of a letter
        EXPECT_TRUE(name.endsWith(QStringLiteral(".pdf")));
    }
}

TEST_F(Printing, TellsAFailureByThePrintersNameButNotInClassicMode)
{
    ASSERT_NE(core::currentPrinter(), nullptr);
    const auto told = [this](PrintFailure why) {
        printers.lastContact.failed(why);
        QCoreApplication::processEvents();
        return dialogs.boxes.empty() ? QString() : dialogs.boxes.back().text;
    };
    EXPECT_TRUE(told(PrintFailure::Gone).contains(QStringLiteral("“Desk” can't be reached")));
    EXPECT_TRUE(told(PrintFailure::Refused).contains(QStringLiteral("doesn't accept")));
    EXPECT_TRUE(told(PrintFailure::NotSaved).contains(QStringLiteral("couldn't be written")));
    beClassic();
    printers.lastContact.failed(PrintFailure::Gone);
    QCoreApplication::processEvents();
    EXPECT_EQ(dialogs.boxes.size(), 3);
}

} // namespace
