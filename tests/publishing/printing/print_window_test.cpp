#include "publishing/printing/print_window.h"

#include "core/state.h"
#include "core/window_registry.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"
#include "publishing/printing/print_fixture.h"
#include "publishing/printing/print_picture.h"
#include "publishing/printing/windows.h"
#include "widgets/colour_swatch.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using core::Window;
using platform::Picture;
using test::numbered;

namespace {

const QString kPdf = QStringLiteral("Print to a PDF file");

class PrintWindow : public PrintTest {
protected:
    PrintWindow() { printing::registerWindows(); }
    ~PrintWindow() override
    {
        core::windows().unload(Window::frmTemp);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        core::state() = {};
        platform::setPointer(platform::Pointer::Default);
    }

    frmTemp& open()
    {
        m_window = qobject_cast<frmTemp*>(core::windows().show(Window::frmTemp));
        m_window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window));
        return *m_window;
    }
    frmTemp& openWith(const QImage& image)
    {
        open();
        m_window->setPicture(Picture(image), "Holiday");
        return *m_window;
    }

    template<typename Control> Control& control(const char* name) const
    {
        return *m_window->findChild<Control*>(name);
    }
    QLineEdit& field(const char* name) const { return control<QLineEdit>(name); }
    QComboBox& box(const char* name) const { return control<QComboBox>(name); }
    QCheckBox& check(const char* name) const { return control<QCheckBox>(name); }
    void press(const char* name) const { control<QAbstractButton>(name).click(); }
    AAPrintPicture& print() const { return control<AAPrintPicture>("AAPrintPicture1"); }
    QStringList entries(const char* name) const
    {
        QStringList texts;
        for (int i = 0; i < box(name).count(); ++i) {
            texts.append(box(name).itemText(i));
        }
        return texts;
    }

    // What the page shows at a place given in parts of its size.
    QColor shownAt(double x, double y) const
    {
        const QImage page = control<QWidget>("picPreview").grab().toImage();
        return page.pixelColor(int(x * page.width()), int(y * page.height()));
    }
    QColor shownInTheMiddle() const { return shownAt(0.5, 0.5); }
    [[nodiscard]] QColor windowColour() const
    {
        return m_window->palette().color(QPalette::Window);
    }

    frmTemp* m_window = nullptr;
};

const QImage kRed = test::filled(400, 400, qRgb(255, 0, 0));

} // namespace

TEST_F(PrintWindow, OffersPapersAndAlignments)
{
    open();
    EXPECT_EQ(m_window->windowTitle(), "Print");
    EXPECT_EQ(entries("cmbPaperSize"), (QStringList{"Manual ->", "A5", "A4", "A3"}));
    EXPECT_EQ(entries("cmbAlign"),
              (QStringList{"Top - Left", "Top - Center", "Top - Right", "Middle - Left",
                           "Middle - Center", "Middle - Right", "Bottom - Left", "Bottom - Center",
                           "Bottom - Right"}));
}

TEST_F(PrintWindow, ShowsThePropertiesAsItLoads)
{
    open();
    EXPECT_EQ(box("cmbPaperSize").currentIndex(), 2);
    EXPECT_EQ(box("cmbAlign").currentIndex(), 4);
    EXPECT_TRUE(box("cmbAlign").isEnabled());
    EXPECT_EQ(field("txtWidth").text(), "210");
    EXPECT_EQ(field("txtHeight").text(), "297");
    EXPECT_EQ(field("txtCopies").text(), "1");
    EXPECT_FALSE(check("chkStretch").isChecked());
    EXPECT_TRUE(check("chkShowBorder").isChecked());
    EXPECT_TRUE(check("chkPreview").isChecked());
    EXPECT_EQ(control<AASelectColor>("AASelectColor1").Color(), 0xFFFFFFU);
    EXPECT_EQ(control<AASelectColor>("AASelectColor2").Color(), 0U);
    EXPECT_TRUE(control<QAbstractButton>("Command1").isChecked());
    EXPECT_FALSE(control<QAbstractButton>("Command2").isChecked());
}

TEST_F(PrintWindow, NamesAllOfItsControls)
{
    open();
    for (const QWidget* part : m_window->findChildren<QWidget*>()) {
        if (part->focusPolicy() != Qt::NoFocus) {
            EXPECT_FALSE(part->accessibleName().isEmpty()) << part->objectName().toStdString();
        }
    }
    EXPECT_EQ(control<QWidget>("picPreview").accessibleName(), "Preview of the page");
}

TEST_F(PrintWindow, ChoosesTheSystemsPrinterAndOffersPdfFiles)
{
    havePrinters();
    open();
    EXPECT_EQ(entries("cmbPrinter"), (QStringList{"Laser", "Ink", kPdf}));
    EXPECT_EQ(box("cmbPrinter").currentText(), "Ink");
    EXPECT_EQ(print().DefultPrinter(), "Ink");
    EXPECT_TRUE(control<QPushButton>("cmdPrint").isEnabled());
}

TEST_F(PrintWindow, ChoosesNoPrinterInClassicMode)
{
    beClassic();
    havePrinters();
    openWith(kRed);
    EXPECT_EQ(entries("cmbPrinter"), (QStringList{"Laser", "Ink"}));
    EXPECT_EQ(box("cmbPrinter").currentIndex(), -1);
    EXPECT_EQ(print().DefultPrinter(), "");
    press("cmdPrint");
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].text, "Please select Printer");
    EXPECT_EQ(dialogs.boxes[0].icon, platform::BoxIcon::Critical);
    EXPECT_TRUE(printers.documents.empty());
}

TEST_F(PrintWindow, CantPrintWithoutAnyPrinter)
{
    beClassic();
    openWith(kRed);
    EXPECT_FALSE(control<QPushButton>("cmdPrint").isEnabled());
    QTest::keyClick(m_window, Qt::Key_Return);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(PrintWindow, MeasuresThePrinterThatIsChosen)
{
    havePrinters();
    open();
    EXPECT_EQ(field("txtLeft").text(), "20");
    EXPECT_EQ(field("txtTop").text(), "40");
    EXPECT_EQ(field("txtRight").text(), "60");
    EXPECT_EQ(field("txtBottom").text(), "80");
    printers.metrics->physicalOffsetX = 30;
    box("cmbPrinter").setCurrentIndex(0);
    EXPECT_EQ(print().DefultPrinter(), "Laser");
    EXPECT_EQ(field("txtLeft").text(), "30");
    EXPECT_EQ(field("txtRight").text(), "50");
}

TEST_F(PrintWindow, TakesTypedSizesForManualPaperAlone)
{
    havePrinters();
    open();
    EXPECT_FALSE(field("txtWidth").isEnabled());
    box("cmbPaperSize").setCurrentIndex(1);
    EXPECT_EQ(print().PaperSize(), 1);
    EXPECT_EQ(field("txtWidth").text(), "148");
    EXPECT_EQ(field("txtHeight").text(), "210");
    EXPECT_FALSE(field("txtHeight").isEnabled());
    press("Command2");
    EXPECT_EQ(field("txtWidth").text(), "148");
    box("cmbPaperSize").setCurrentIndex(0);
    EXPECT_TRUE(field("txtWidth").isEnabled());
    EXPECT_TRUE(field("txtHeight").isEnabled());
    EXPECT_EQ(field("txtWidth").text(), "210");
    EXPECT_EQ(field("txtHeight").text(), "297");
}

TEST_F(PrintWindow, TakesASizeWithReturnAndDoesntPrint)
{
    havePrinters();
    openWith(kRed);
    box("cmbPaperSize").setCurrentIndex(0);
    field("txtWidth").setFocus();
    field("txtWidth").setText("100");
    EXPECT_EQ(print().PaperWidth(), 210);
    QTest::keyClick(&field("txtWidth"), Qt::Key_Return);
    EXPECT_EQ(print().PaperWidth(), 100);
    field("txtHeight").setText("50");
    QTest::keyClick(&field("txtHeight"), Qt::Key_Enter);
    EXPECT_EQ(print().PaperHeight(), 50);
    const QSize page = control<QWidget>("picPreview").size();
    EXPECT_GT(page.width(), page.height());
    EXPECT_TRUE(printers.documents.empty());
    box("cmbPaperSize").setCurrentIndex(2);
    box("cmbPaperSize").setCurrentIndex(0);
    EXPECT_EQ(field("txtWidth").text(), "100");
}

TEST_F(PrintWindow, TakesASizeWhenTheFieldIsLeft)
{
    open();
    box("cmbPaperSize").setCurrentIndex(0);
    field("txtWidth").setFocus();
    field("txtWidth").setText("100");
    field("txtHeight").setFocus();
    EXPECT_EQ(print().PaperWidth(), 100);
    field("txtHeight").setText("abc");
    box("cmbAlign").setFocus();
    EXPECT_EQ(print().PaperHeight(), 297);
    EXPECT_EQ(field("txtHeight").text(), "297");
}

TEST_F(PrintWindow, TakesASizeByReturnAloneInClassicMode)
{
    beClassic();
    open();
    box("cmbPaperSize").setCurrentIndex(0);
    field("txtWidth").setFocus();
    field("txtWidth").setText("100");
    field("txtHeight").setFocus();
    EXPECT_EQ(print().PaperWidth(), 210);
    QTest::keyClick(&field("txtHeight"), Qt::Key_Return);
    EXPECT_EQ(print().PaperWidth(), 210); // each field is its own
    QTest::keyClick(&field("txtWidth"), Qt::Key_Return);
    EXPECT_EQ(print().PaperWidth(), 100);
}

TEST_F(PrintWindow, StandsSizesThatAreNone)
{
    havePrinters();
    openWith(kRed);
    box("cmbPaperSize").setCurrentIndex(0);
    for (const char* text : {"0", "-5", "10000", "40000", "abc", "", "12.5"}) {
        field("txtWidth").setText(text);
        QTest::keyClick(&field("txtWidth"), Qt::Key_Return);
        field("txtHeight").setText(text);
        QTest::keyClick(&field("txtHeight"), Qt::Key_Return);
    }
    EXPECT_EQ(print().PaperWidth(), 12);
    EXPECT_EQ(print().PaperHeight(), 12);
    field("txtWidth").setText("0");
    QTest::keyClick(&field("txtWidth"), Qt::Key_Return);
    EXPECT_EQ(print().PaperWidth(), 0);
    press("cmdPrint");
    EXPECT_TRUE(printers.documents.empty());
}

TEST_F(PrintWindow, PassesOverCopiesThatAreNone)
{
    open();
    field("txtCopies").setText("3");
    EXPECT_EQ(print().Copies(), 3);
    for (const char* text : {"", "0", "-2", "0.4", "40000", "abc"}) {
        field("txtCopies").setText(text);
        EXPECT_EQ(print().Copies(), 3) << text;
    }
}

TEST_F(PrintWindow, TellsTheCopiesThatCountWhenTheFieldIsLeft)
{
    open();
    field("txtCopies").setFocus();
    field("txtCopies").setText("abc");
    box("cmbAlign").setFocus();
    EXPECT_EQ(field("txtCopies").text(), "1");
}

TEST_F(PrintWindow, AlignsUnlessItStretches)
{
    openWith(kRed);
    EXPECT_EQ(shownInTheMiddle(), QColor(Qt::red));
    box("cmbAlign").setCurrentIndex(0);
    EXPECT_EQ(print().Align(), 0);
    EXPECT_EQ(shownAt(0.25, 0.1), QColor(Qt::red));
    EXPECT_EQ(shownInTheMiddle(), QColor(Qt::white));
    check("chkStretch").click();
    EXPECT_TRUE(print().Stretch());
    EXPECT_FALSE(box("cmbAlign").isEnabled());
    EXPECT_EQ(shownAt(0.9, 0.9), QColor(Qt::red));
    check("chkStretch").click();
    EXPECT_FALSE(print().Stretch());
    EXPECT_TRUE(box("cmbAlign").isEnabled());
}

TEST_F(PrintWindow, ClearsThePreviewAndPaintsItAgain)
{
    havePrinters();
    openWith(kRed);
    EXPECT_EQ(shownInTheMiddle(), QColor(Qt::red));
    check("chkPreview").click();
    EXPECT_EQ(shownInTheMiddle(), windowColour());
    printers.log.clear();
    box("cmbAlign").setCurrentIndex(8);
    EXPECT_TRUE(printers.log.isEmpty()); // nothing is measured
    EXPECT_EQ(shownInTheMiddle(), windowColour());
    check("chkPreview").click();
    EXPECT_EQ(shownAt(0.9, 0.9), QColor(Qt::red));
}

TEST_F(PrintWindow, ShowsThePageScaledToAllOfThePreview)
{
    printers.metrics = platform::PaperMetrics{96, 96, 794, 1123, 0, 0, 794, 1123};
    openWith(numbered(256, 256));
    QWidget& preview = control<QWidget>("picPreview");
    const QSize page(794, 1123);
    EXPECT_NEAR(preview.height(), double(preview.width()) * page.height() / page.width(), 1);
    // Half of the page is half of the preview.
    check("chkShowBorder").click();
    const QImage whole = print().GetPreview().image();
    EXPECT_EQ(whole.size(), page);
    EXPECT_EQ(shownAt(0.5 - 128.0 / page.width() - 0.02, 0.5), QColor(Qt::white));
    EXPECT_NE(shownAt(0.5 - 128.0 / page.width() + 0.02, 0.5), QColor(Qt::white));
}

TEST_F(PrintWindow, SwitchesTheBorder)
{
    openWith(kRed);
    check("chkShowBorder").click();
    EXPECT_FALSE(print().ShowBorder());
    check("chkShowBorder").click();
    EXPECT_TRUE(print().ShowBorder());
}

TEST_F(PrintWindow, TakesTheColours)
{
    openWith(kRed);
    dialogs.colourAnswers = {base::rgb(0, 255, 0), base::rgb(0, 0, 255)};
    control<AASelectColor>("AASelectColor1").click();
    EXPECT_EQ(print().BackColor(), base::rgb(0, 255, 0));
    EXPECT_EQ(shownAt(0.1, 0.1), QColor(Qt::green));
    control<AASelectColor>("AASelectColor2").click();
    EXPECT_EQ(print().BorderColor(), base::rgb(0, 0, 255));
}

TEST_F(PrintWindow, TurnsThePaper)
{
    havePrinters();
    open();
    press("Command2");
    EXPECT_TRUE(printers.log.contains("orientation 2"));
    QWidget& preview = control<QWidget>("picPreview");
    EXPECT_GT(preview.width(), preview.height());
    press("Command1");
    EXPECT_EQ(printers.log.last(), "orientation 1");
    EXPECT_LT(preview.width(), preview.height());
}

TEST_F(PrintWindow, ReducesALargePictureUnlessItIsTold)
{
    openWith(test::filled(2000, 1000, qRgb(255, 0, 0)));
    EXPECT_TRUE(check("chkShrink").isVisible());
    EXPECT_EQ(shownAt(0.5, 0.2), QColor(Qt::white));
    check("chkShrink").click();
    EXPECT_EQ(shownAt(0.5, 0.2), QColor(Qt::red));
}

TEST_F(PrintWindow, CutsALargePictureInClassicMode)
{
    beClassic();
    openWith(test::filled(2000, 1000, qRgb(255, 0, 0)));
    EXPECT_FALSE(check("chkShrink").isVisible());
    EXPECT_EQ(shownAt(0.5, 0.2), QColor(Qt::red));
}

TEST_F(PrintWindow, OpensAnotherPicture)
{
    open();
    const QString path = tree.path("blue.bmp");
    ASSERT_TRUE(platform::savePicture(Picture(test::filled(300, 300, qRgb(0, 0, 255))), path));
    tree.add({"broken.jpg", "no picture"});
    dialogs.openAnswers = {{path}, {tree.path("broken.jpg")}, {}};
    press("cmdOpen");
    EXPECT_EQ(dialogs.fileRequests.at(0).title, "Open Image File For Print");
    EXPECT_EQ(dialogs.fileRequests.at(0).filter, "All Supported Images|*.gif;*.jpg;*.bmp");
    EXPECT_EQ(field("txtFileName").text(), path);
    EXPECT_EQ(shownInTheMiddle(), QColor(Qt::blue));
    press("cmdOpen"); // a file that can't be read
    press("cmdOpen"); // cancelled
    EXPECT_EQ(field("txtFileName").text(), path);
    EXPECT_EQ(shownInTheMiddle(), QColor(Qt::blue));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(PrintWindow, PrintsTheCopies)
{
    havePrinters();
    openWith(kRed);
    field("txtCopies").setText("5");
    press("cmdPrint");
    ASSERT_EQ(printers.documents.size(), 1U);
    EXPECT_EQ(printers.documents[0].copies, 5);
    EXPECT_EQ(printers.documents[0].printer, "Ink");
    EXPECT_EQ(printers.documents[0].title, "Holiday");
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(PrintWindow, PrintsWithThePreviewOff)
{
    havePrinters();
    openWith(kRed);
    check("chkPreview").click();
    box("cmbPaperSize").setCurrentIndex(3);
    press("cmdPrint");
    ASSERT_EQ(printers.documents.size(), 1U);
    EXPECT_TRUE(printers.log.contains("paper 8 210x297"));
}

TEST_F(PrintWindow, ClosesByExitAndEscape)
{
    open();
    press("cmdExit");
    EXPECT_FALSE(core::windows().isLoaded(Window::frmTemp));
    open();
    QTest::keyClick(m_window, Qt::Key_Escape);
    EXPECT_FALSE(core::windows().isLoaded(Window::frmTemp));
}

TEST_F(PrintWindow, ShowsThePictureByWayOfItsWorkingFile)
{
    core::state().CurrentFile = "/pictures/Summer.day.jpg";
    havePrinters();
    QTimer::singleShot(0, [this] {
        m_window = qobject_cast<frmTemp*>(core::windows().find(Window::frmTemp));
        ASSERT_NE(m_window, nullptr);
        EXPECT_TRUE(m_window->isModal());
        test::expectPixels(print().Picture().image(), numbered(30, 20));
        press("cmdPrint");
        m_window->close();
    });
    printing::showPrintWindow(Picture(numbered(30, 20)));
    ASSERT_EQ(printers.documents.size(), 1U);
    EXPECT_EQ(printers.documents[0].title, "Summer.day");
    const auto kept = platform::loadPicture(tree.path("app/temp.bmp"));
    ASSERT_TRUE(kept);
    test::expectPixels(kept->flattened(), numbered(30, 20));
}

TEST_F(PrintWindow, ShowsThePictureItselfWhereTheWorkingFileCantBeWritten)
{
    tree.add({"app/temp.bmp/", ""}); // a folder in its place
    QTimer::singleShot(0, [this] {
        m_window = qobject_cast<frmTemp*>(core::windows().find(Window::frmTemp));
        ASSERT_NE(m_window, nullptr);
        test::expectPixels(print().Picture().image(), numbered(30, 20));
        m_window->close();
    });
    printing::showPrintWindow(Picture(numbered(30, 20)));
    EXPECT_FALSE(core::windows().isLoaded(Window::frmTemp));
}
