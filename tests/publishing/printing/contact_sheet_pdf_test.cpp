#include "core/printing.h"
#include "publishing/printing/contact_sheets.h"
#include "support/memory_config_store.h"
#include "thumbs/gallery_fixture.h"

#include <QFile>

namespace {

// The real printing to a file; its name is asked for by a scripted dialog.
class ContactSheetPdf : public GalleryTest {
protected:
    ContactSheetPdf()
    {
        m_list.setPrintLayout(&printing::makeContactSheets);
        m_list.setPrint_NrThumbCols(1);
        for (const char* name : {"pics/a.jpg", "pics/b.jpg", "pics/c.jpg"}) {
            addPicture(name, kBlue, {1500, 1000}, "JPG");
        }
        runFolder();
        EXPECT_TRUE(core::selectPrinter(core::kPdfPrinter));
    }

    // Prints into a file of the tree; its bytes.
    QByteArray print()
    {
        const QString path = m_tree.path("sheets.pdf");
        m_dialogs.saveAnswers.push_back(platform::SaveChoice{path});
        m_list.PrintPicture();
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    support::MemoryConfigStore m_config;
};

} // namespace

TEST_F(ContactSheetPdf, HasAPageForEachSheet)
{
    const QByteArray pdf = print();
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_EQ(m_list.surface().pages.pages(), 3);
    EXPECT_EQ(pdf.count("/Type /Page\n"), 3);
}

TEST_F(ContactSheetPdf, KeepsThePixelsOfThePictures)
{
    const QByteArray pdf = print();
    EXPECT_EQ(pdf.count("/Width 1500\n"), 3);
    EXPECT_EQ(pdf.count("/Height 1000\n"), 3);
}

TEST_F(ContactSheetPdf, ProposesTheNameOfTheFolder)
{
    print();
    ASSERT_EQ(m_dialogs.fileRequests.size(), 1U);
    EXPECT_EQ(m_dialogs.fileRequests[0].fileName, "Contact sheets of pics.pdf");
}

TEST_F(ContactSheetPdf, HoldsTheSheetsUntilTheCancel)
{
    int yields = 0;
    atEveryYield([&] { m_list.surface().state.CancelLoading = ++yields == 3; });
    EXPECT_EQ(print().count("/Type /Page\n"), 2);
}

TEST_F(ContactSheetPdf, IsNotThereWhereNoFileIsNamed)
{
    m_list.PrintPicture();
    EXPECT_FALSE(QFile::exists(m_tree.path("sheets.pdf")));
    EXPECT_FALSE(m_list.surface().state.IsPrinting);
}

TEST_F(ContactSheetPdf, EndsWhereTheFileCanNotBeWritten)
{
    m_dialogs.saveAnswers.push_back(platform::SaveChoice{m_tree.path("missing/sheets.pdf")});
    m_list.PrintPicture();
    EXPECT_FALSE(m_list.surface().state.IsLoading);
    EXPECT_FALSE(QFile::exists(m_tree.path("missing")));
}
