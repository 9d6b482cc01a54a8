#include "publishing/printing/contact_sheet_window.h"

#include "formats/iff_files.h"
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
    // By a window that is opened for it.
    support::PrintedDocument printed(int columns, int zoom)
    {
        m_printers.documents.clear();
        open();
        control<QSpinBox>("spnColumns").setValue(columns);
        control<QSpinBox>("spnZoom").setValue(zoom);
        press("cmdPrint");
        EXPECT_EQ(m_printers.documents.size(), 1U) << columns << " at " << zoom;
        return m_printers.documents.empty() ? support::PrintedDocument()
                                            : m_printers.documents.front();
    }
    static void expectSame(const support::PrintedDocument& one,
                           const support::PrintedDocument& other)
    {
        ASSERT_EQ(one.pages.size(), other.pages.size());
        for (std::size_t page = 0; page < one.pages.size(); ++page) {
            ASSERT_EQ(one.pages[page].size(), other.pages[page].size());
            for (std::size_t k = 0; k < one.pages[page].size(); ++k) {
                EXPECT_EQ(one.pages[page][k].place, other.pages[page][k].place);
                EXPECT_EQ(one.pages[page][k].picture, other.pages[page][k].picture);
            }
        }
    }
    void addLbm(const std::string& name, QSize size)
    {
        FileBytes body;
        for (int row = 0; row < size.height(); ++row) {
            body.byte(static_cast<unsigned>(257 - size.width())).byte(200);
        }
        const FileBytes file = iffPicture(size.width(), size.height(), body.byte(0));
        m_tree.add(
            {name, std::string(reinterpret_cast<const char*>(file.vector().data()), file.size())});
    }
    QList<QSize> sizesOnPage(std::size_t page)
    {
        QList<QSize> sizes;
        for (const support::PrintedThing& thing : m_printers.documents.at(0).pages.at(page)) {
            sizes.append(thing.picture.size());
        }
        return sizes;
    }
    const QLabel* captionOf(const QWidget& part)
    {
        for (const QLabel* label : m_window->findChildren<QLabel*>()) {
            if (label->buddy() == &part) {
                return label;
            }
        }
        return nullptr;
    }
    static QString letterOf(const QString& caption)
    {
        const auto mark = caption.indexOf(QLatin1Char('&'));
        return mark < 0 ? QString() : caption.mid(mark + 1, 1).toLower();
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

TEST_F(ContactSheetWindowTest, PrintsTheSameSheetsAtEveryZoom)
{
    for (const int columns : {1, 5, 10, 20}) {
        const support::PrintedDocument whole = printed(columns, 100);
        ASSERT_FALSE(whole.pages.empty()) << columns;
        for (const int zoom : {10, 15, 30, 60}) {
            expectSame(printed(columns, zoom), whole);
        }
    }
}

TEST_F(ContactSheetWindowTest, ShowsASmallSheetAsItIsPrinted)
{
    open();
    control<QSpinBox>("spnZoom").setValue(15);
    EXPECT_EQ(counts().toStdString(), "12 pictures on 1 sheet, with 5 across and 8 down.");
    EXPECT_EQ(sheets().surface().pages.pages(), 1);
}

TEST_F(ContactSheetWindowTest, PrintsOnePictureAcrossOnPaperThatLies)
{
    open();
    choose("cmbOrientation", "Landscape");
    control<QSpinBox>("spnColumns").setValue(1);
    EXPECT_EQ(counts().toStdString(), "12 pictures on 12 sheets, with 1 across and 1 down.");
    press("cmdPrint");
    ASSERT_EQ(m_printers.documents.size(), 1U);
    ASSERT_EQ(m_printers.documents[0].pages.size(), 12U);
    const platform::PaperMetrics& paper = m_printers.documents[0].paper;
    for (const auto& page : m_printers.documents[0].pages) {
        ASSERT_EQ(page.size(), 1U);
        EXPECT_TRUE(QRectF(0, 0, paper.innerWidth, paper.innerHeight).contains(page[0].place));
    }
}

TEST_F(ContactSheetWindowTest, PrintsNothingOnPaperWithoutRoom)
{
    m_printers.metrics = platform::PaperMetrics{.logPixelsX = 200,
                                                .logPixelsY = 200,
                                                .physicalWidth = 30,
                                                .physicalHeight = 2000,
                                                .innerWidth = 30,
                                                .innerHeight = 2000};
    open();
    EXPECT_FALSE(control<QPushButton>("cmdPrint").isEnabled());
    EXPECT_EQ(counts().toStdString(), "The paper has no room for so many pictures across.");
    press("cmdPrint");
    EXPECT_TRUE(m_printers.documents.empty());
    EXPECT_TRUE(m_window->isVisible());
}

// In the order of their names, behind the twelve.
TEST_F(ContactSheetWindowTest, PrintsPicturesInTheProgramsOwnFormats)
{
    addLbm("pics/q1.lbm", {8, 6});
    addLbm("pics/q2.IFF", {10, 7});
    m_list.surface().File1.refresh();
    open();
    EXPECT_EQ(counts().toStdString(), "14 pictures on 1 sheet, with 5 across and 8 down.");
    press("cmdPrint");
    ASSERT_EQ(m_printers.documents.size(), 1U);
    EXPECT_EQ(sizesOnPage(0).mid(11), (QList<QSize>{QSize(60, 60), QSize(8, 6), QSize(10, 7)}));
}

TEST_F(ContactSheetWindowTest, LeavesOutWhatHasNoPicture)
{
    for (const char* name : {"a.avi", "b.mp3", "c.html", "d.swf", "e.mpeg", "f.dvd", "g.did"}) {
        m_tree.add({std::string("pics/") + name, "x"});
    }
    m_list.surface().File1.refresh();
    open();
    EXPECT_EQ(counts().toStdString(), "12 pictures on 1 sheet, with 5 across and 8 down.");
    press("cmdPrint");
    EXPECT_EQ(sizesOnPage(0).size(), 12);
}

TEST_F(ContactSheetWindowTest, LeavesThePlaceOfADamagedPictureEmpty)
{
    m_tree.add({"pics/p10a.jpg", "no picture"});
    m_tree.add({"pics/p10b.psd", "no picture"});
    m_list.surface().File1.refresh();
    open();
    press("cmdPrint");
    ASSERT_EQ(m_printers.documents.size(), 1U);
    const auto& page = m_printers.documents[0].pages[0];
    ASSERT_EQ(page.size(), 12U);
    EXPECT_NEAR(page[1].place.x() - page[0].place.x(), 3 * (page[2].place.x() - page[1].place.x()),
                2);
}

TEST_F(ContactSheetWindowTest, StaysOpenWhereNoPictureIsWhole)
{
    m_tree.add({"broken/"});
    m_tree.add({"broken/a.jpg", "no picture"});
    m_list.setPath(m_tree.path("broken"));
    open();
    press("cmdPrint");
    EXPECT_TRUE(m_printers.documents.empty());
    EXPECT_TRUE(m_window->isVisible());
}

TEST_F(ContactSheetWindowTest, NamesAllOfItsControls)
{
    open();
    for (const QWidget* part : m_window->findChildren<QWidget*>()) {
        if (part->focusPolicy() != Qt::NoFocus) {
            EXPECT_FALSE(part->accessibleName().isEmpty()) << part->objectName().toStdString();
        }
    }
    EXPECT_EQ(control<QLabel>("lblCounts").accessibleName(), counts());
    control<QSpinBox>("spnColumns").setValue(2);
    EXPECT_EQ(control<QLabel>("lblCounts").accessibleName(), counts());
}

TEST_F(ContactSheetWindowTest, LeadsToEachControlByALetterOfItsOwn)
{
    open();
    QStringList letters;
    for (const char* name : {"cmbPrinter", "cmbPaper", "cmbOrientation", "spnColumns", "spnZoom"}) {
        const QLabel* caption = captionOf(control<QWidget>(name));
        ASSERT_NE(caption, nullptr) << name;
        letters.append(letterOf(caption->text()));
    }
    for (const char* name : {"cmdPrint", "cmdCancel"}) {
        letters.append(letterOf(control<QPushButton>(name).text()));
    }
    EXPECT_FALSE(letters.contains(QString()));
    EXPECT_EQ(letters.removeDuplicates(), 0);
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
