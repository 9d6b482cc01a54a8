#include "publishing/printing/contact_sheet_window.h"

#include "support/fake_browser_pane.h"
#include "support/fake_printers.h"
#include "support/memory_config_store.h"
#include "thumbs/gallery_fixture.h"
#include "thumbs/pane_thumbnails.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <memory>

using printing::ContactSheetWindow;

namespace {

class Pane : public support::FakeBrowserPane, public thumbs::PaneThumbnails {
public:
    explicit Pane(ThumbNailList& list)
        : FakeBrowserPane(nullptr)
        , m_list(list)
    {
    }
    ThumbNailList& ThumbNailList1() override { return m_list; }

private:
    ThumbNailList& m_list;
};

// Twelve pictures in the folder of the pane, and a printer with A4 of which rims of 5 to 8
// millimetres stay white.
class ContactSheetWindowTest : public GalleryTest {
protected:
    ContactSheetWindowTest()
    {
        m_printers.system = {{"Office", true}, {"Attic", false}};
        for (int k = 0; k < 12; ++k) {
            addPicture("pics/p" + std::to_string(10 + k) + ".bmp", kRed, {60, 60});
        }
        m_list.setPath(m_tree.path("pics"));
    }
    ~ContactSheetWindowTest() override
    {
        m_yield.stop();
        m_window.reset();
    }

    void open()
    {
        m_window = std::make_unique<ContactSheetWindow>();
        m_window->show();
        QCoreApplication::processEvents();
    }
    template<typename Control> Control& control(const char* name)
    {
        return *m_window->findChild<Control*>(name);
    }
    ThumbNailList& sheets() { return control<ThumbNailList>("sheets"); }
    QSize sheetSize() { return sheets().surface().pages.stack().pageSize(); }
    QString counts() { return control<QLabel>("lblCounts").text(); }
    void press(const char* button) { control<QPushButton>(button).click(); }
    void choose(const char* combo, const QString& text)
    {
        auto& box = control<QComboBox>(combo);
        box.setCurrentText(text);
        emit box.activated(box.currentIndex());
    }
    // Acts once, at a yield of the run that is to come.
    void atYield(int which, std::function<void()> act)
    {
        atEveryYield([which, act = std::move(act), count = 0]() mutable {
            if (++count == which) {
                act();
            }
        });
    }

    support::MemoryConfigStore m_config;
    support::FakePrinters m_printers;
    Pane m_pane{m_list};
    std::unique_ptr<ContactSheetWindow> m_window;
};

} // namespace

TEST_F(ContactSheetWindowTest, ShowsTheSheetsOfTheFolderInThePane)
{
    open();
    EXPECT_EQ(sheets().path(), m_tree.path("pics"));
    EXPECT_EQ(counts().toStdString(), "12 pictures on 1 sheet, with 5 across and 8 down.");
    EXPECT_EQ(control<QComboBox>("cmbPrinter").currentText(), "Office");
    EXPECT_EQ(control<QSpinBox>("spnZoom").value(), 100);
    EXPECT_LT(sheetSize().width(), sheetSize().height());
    EXPECT_TRUE(m_printers.documents.empty());
    EXPECT_EQ(m_window->windowTitle(), "Contact Sheets");
}

TEST_F(ContactSheetWindowTest, LeavesTheTilesOfThePane)
{
    m_list.Makegallery();
    open();
    EXPECT_EQ(filledRows(), 12);
    EXPECT_FALSE(m_list.surface().state.IsPrintPreview);
}

TEST_F(ContactSheetWindowTest, PrintsTheFolderAndCloses)
{
    open();
    press("cmdPrint");
    ASSERT_EQ(m_printers.documents.size(), 1U);
    EXPECT_EQ(m_printers.documents[0].printer, "Office");
    EXPECT_EQ(m_printers.documents[0].pages[0].size(), 12U);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(ContactSheetWindowTest, PrintsOnThePrinterThatIsChosen)
{
    open();
    choose("cmbPrinter", "Attic");
    press("cmdPrint");
    EXPECT_EQ(m_printers.documents[0].printer, "Attic");
}

TEST_F(ContactSheetWindowTest, PrintsToAPdfFile)
{
    open();
    choose("cmbPrinter", "Print to a PDF file");
    press("cmdPrint");
    EXPECT_TRUE(m_printers.log.contains("open PDF Print to a PDF file"));
    EXPECT_EQ(m_printers.documents.size(), 1U);
}

TEST_F(ContactSheetWindowTest, StaysOpenWhereNoDocumentIsWanted)
{
    open();
    m_printers.starts = false;
    press("cmdPrint");
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(control<QPushButton>("cmdPrint").isEnabled());
}

TEST_F(ContactSheetWindowTest, StaysOpenWhereTheDocumentFails)
{
    open();
    m_printers.fate = platform::PrintFailure::NotSaved;
    press("cmdPrint");
    EXPECT_TRUE(m_window->isVisible());
}

TEST_F(ContactSheetWindowTest, HasAsManyPicturesAcrossAsAreAskedFor)
{
    open();
    control<QSpinBox>("spnColumns").setValue(3);
    EXPECT_TRUE(counts().contains("with 3 across")) << counts().toStdString();
    control<QSpinBox>("spnColumns").setValue(2);
    EXPECT_EQ(counts().toStdString(), "12 pictures on 2 sheets, with 2 across and 3 down.");
    press("cmdPrint");
    EXPECT_EQ(m_printers.documents[0].pages.size(), 2U);
}

TEST_F(ContactSheetWindowTest, ShowsAWholeSheetOfThePaperThatIsChosen)
{
    open();
    choose("cmbOrientation", "Landscape");
    const QSize viewport = sheets().surface().viewportSize();
    EXPECT_GT(sheetSize().width(), sheetSize().height());
    EXPECT_LE(sheetSize().width(), viewport.width() - 40);
    EXPECT_GT(sheetSize().width(), viewport.width() - 60);
    choose("cmbPaper", "A3");
    EXPECT_TRUE(m_printers.log.contains("paper 8 -1x-1"))
        << m_printers.log.join('\n').toStdString();
    press("cmdPrint");
    const platform::PaperMetrics& paper = m_printers.documents[0].paper;
    EXPECT_GT(paper.physicalWidth, paper.physicalHeight);
}

TEST_F(ContactSheetWindowTest, ZoomsTheSheets)
{
    open();
    const QSize whole = sheetSize();
    control<QSpinBox>("spnZoom").setValue(50);
    EXPECT_EQ(sheetSize(), whole / 2);
}

TEST_F(ContactSheetWindowTest, LaysOutAnewWhatChangesInTheMiddle)
{
    open();
    atYield(3, [this] { control<QSpinBox>("spnColumns").setValue(2); });
    control<QSpinBox>("spnColumns").setValue(4);
    EXPECT_EQ(counts().toStdString(), "12 pictures on 2 sheets, with 2 across and 3 down.");
}

TEST_F(ContactSheetWindowTest, CancelsAPrintAndStaysOpen)
{
    open();
    bool isLocked = false;
    atYield(3, [&] {
        isLocked = !control<QSpinBox>("spnColumns").isEnabled() &&
                   !control<QPushButton>("cmdPrint").isEnabled();
        EXPECT_EQ(control<QPushButton>("cmdCancel").accessibleName(), "Cancel");
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
    });
    press("cmdPrint");
    EXPECT_TRUE(isLocked);
    ASSERT_EQ(m_printers.documents.size(), 1U);
    EXPECT_EQ(m_printers.documents[0].pages[0].size(), 2U);
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(control<QPushButton>("cmdCancel").accessibleName(), "Close");
    EXPECT_TRUE(control<QSpinBox>("spnColumns").isEnabled());
}

TEST_F(ContactSheetWindowTest, EndsItsRunWhenItCloses)
{
    open();
    atYield(3, [this] { m_window->close(); });
    press("cmdPrint");
    EXPECT_EQ(m_printers.documents[0].pages[0].size(), 2U);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(ContactSheetWindowTest, SurvivesItsOwnEndInTheMiddle)
{
    open();
    atYield(3, [this] { m_window.reset(); });
    press("cmdPrint");
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(ContactSheetWindowTest, ClosesByEscape)
{
    open();
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(ContactSheetWindowTest, PrintsNothingOfAFolderWithoutPictures)
{
    m_tree.add({"empty/"});
    m_list.setPath(m_tree.path("empty"));
    open();
    EXPECT_EQ(counts().toStdString(), "There are no pictures in this folder.");
    EXPECT_FALSE(control<QPushButton>("cmdPrint").isEnabled());
}

TEST_F(ContactSheetWindowTest, OpensWithoutAPane)
{
    core::services().browserPane = nullptr;
    open();
    EXPECT_FALSE(control<QPushButton>("cmdPrint").isEnabled());
}

TEST_F(ContactSheetWindowTest, DropsAPrinterThatHasGone)
{
    open();
    m_printers.system = {{"Office", true}};
    choose("cmbPrinter", "Attic");
    EXPECT_EQ(control<QComboBox>("cmbPrinter").findText("Attic"), -1);
    EXPECT_EQ(control<QComboBox>("cmbPrinter").currentText(), "Office");
}

TEST_F(ContactSheetWindowTest, OffersAPdfFileWhereThereIsNoPrinter)
{
    m_printers.system.clear();
    open();
    EXPECT_EQ(control<QComboBox>("cmbPrinter").count(), 1);
    EXPECT_EQ(control<QComboBox>("cmbPrinter").currentText(), "Print to a PDF file");
    EXPECT_TRUE(control<QPushButton>("cmdPrint").isEnabled());
}
