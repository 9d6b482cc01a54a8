#include "editing/jpeg_window.h"

#include "editing/edit_fixture.h"
#include "platform/pictures/picture_saver.h"
#include "widgets/title_strip.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTimer>

using test::numbered;

namespace {

class JpegWindow : public EditTest {
protected:
    JpegWindow() { saveSource(numbered(200, 150)); }

    void saveSource(const QImage& image) const
    {
        EXPECT_TRUE(platform::savePicture(platform::Picture(image), tree.path("app/saveTemp.bmp")));
    }

    // Loads the window, and shows it where its slider is to move on screen.
    frmSaveJPGc& open(bool onScreen = false)
    {
        m_window = qobject_cast<frmSaveJPGc*>(core::windows().load(core::Window::frmSaveJPGc));
        if (onScreen) {
            core::windows().show(core::Window::frmSaveJPGc);
        }
        return *m_window;
    }

    template<typename Control> Control* control(const char* name) const
    {
        return m_window->findChild<Control*>(name);
    }
    QSlider* slider() const { return control<QSlider>("Slider1"); }
    QLineEdit* qualitys() const { return control<QLineEdit>("Qualitys"); }
    void press(const char* button) const { control<QPushButton>(button)->click(); }

    [[nodiscard]] std::string preview() const { return tree.content("app/saveJpgTemp.jpg"); }

    // What a conversion of the working file at this quality gives.
    [[nodiscard]] std::string convertedAt(int quality) const
    {
        EXPECT_EQ(BMPToJPG(tree.path("app/saveTemp.bmp"), tree.path("expected.jpg"), quality), 0);
        return tree.content("expected.jpg");
    }

    void expectPreviewAt(int quality) const { EXPECT_TRUE(preview() == convertedAt(quality)); }

    frmSaveJPGc* m_window = nullptr;
};

} // namespace

TEST_F(JpegWindow, ConvertsAtQuality80AsItLoads)
{
    platform::setPointer(platform::Pointer::HourGlass);
    open();
    EXPECT_EQ(slider()->value(), 80);
    EXPECT_EQ(qualitys()->text(), "80");
    expectPreviewAt(80);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    const QImage decoded = QImage::fromData(QByteArray::fromStdString(preview()), "JPEG");
    EXPECT_EQ(decoded.size(), QSize(200, 150));
}

TEST_F(JpegWindow, HasTheControlsOfAQuality)
{
    open();
    EXPECT_EQ(m_window->windowTitle(), "JPEG Options");
    EXPECT_EQ(slider()->minimum(), 0);
    EXPECT_EQ(slider()->maximum(), 100);
    EXPECT_EQ(slider()->pageStep(), 5);
    EXPECT_EQ(slider()->singleStep(), 1);
    EXPECT_EQ(control<QPushButton>("Command1_0")->text(), "&Ok");
    EXPECT_EQ(control<QPushButton>("Command1_1")->text(), "&Cancel");
    QStringList labels;
    for (const QLabel* label : m_window->findChildren<QLabel*>()) {
        labels.append(label->text());
    }
    EXPECT_TRUE(labels.contains("Small File"));
    EXPECT_TRUE(labels.contains("Big File"));
    EXPECT_TRUE(labels.contains("Output Filename"));
    EXPECT_TRUE(labels.contains("Quality"));
}

TEST_F(JpegWindow, FollowsTheSlider)
{
    open();
    const std::size_t large = preview().size();
    slider()->setValue(20);
    EXPECT_EQ(qualitys()->text(), "20");
    expectPreviewAt(20);
    EXPECT_LT(preview().size(), large);
}

TEST_F(JpegWindow, ConvertsAtQuality1WhereTheSliderShows0)
{
    open();
    slider()->setValue(0);
    EXPECT_EQ(qualitys()->text(), "0");
    expectPreviewAt(1);
}

TEST_F(JpegWindow, TakesATypedQuality)
{
    open();
    qualitys()->setText("35");
    EXPECT_EQ(slider()->value(), 35);
    expectPreviewAt(35);
    qualitys()->setText("150");
    EXPECT_EQ(slider()->value(), 100);
    EXPECT_EQ(qualitys()->text(), "100");
    expectPreviewAt(100);
}

TEST_F(JpegWindow, IgnoresATextThatIsNoNumber)
{
    open();
    for (const char* text : {"abc", "", "8x", "-"}) {
        qualitys()->setText(text);
        EXPECT_EQ(slider()->value(), 80);
        EXPECT_EQ(qualitys()->text(), text);
    }
    expectPreviewAt(80);
}

TEST_F(JpegWindow, KeepsTheTextWhenAConversionFails)
{
    open();
    tree.remove("app/saveTemp.bmp");
    slider()->setValue(30);
    EXPECT_EQ(qualitys()->text(), "80");
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(JpegWindow, OpensWithoutASource)
{
    tree.remove("app/saveTemp.bmp");
    open();
    EXPECT_EQ(slider()->value(), 80);
    EXPECT_EQ(qualitys()->text(), "");
    EXPECT_FALSE(exists("saveJpgTemp.jpg"));
}

TEST_F(JpegWindow, WritesTheOutputAndClosesUnderOk)
{
    open().setOutputPath(tree.path("picture.jpg"));
    slider()->setValue(50);
    press("Command1_0");
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0],
              (support::FakeDialogs::Box{tree.path("picture.jpg"), "", platform::BoxIcon::None}));
    EXPECT_TRUE(tree.content("picture.jpg") == convertedAt(50));
    EXPECT_FALSE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    EXPECT_TRUE(exists("saveJpgTemp.jpg"));
}

TEST_F(JpegWindow, StaysOpenWhileTheOutputCantBeWritten)
{
    open().setOutputPath(tree.path("later/picture.jpg"));
    press("Command1_0");
    EXPECT_TRUE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    press("Command1_0");
    EXPECT_TRUE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    EXPECT_EQ(dialogs.boxes.size(), 2U);
    tree.add({"later/", ""});
    press("Command1_0");
    EXPECT_EQ(dialogs.boxes.size(), 3U);
    EXPECT_FALSE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    EXPECT_TRUE(tree.exists("later/picture.jpg"));
}

TEST_F(JpegWindow, RefusesToWriteOverItsSource)
{
    open().setOutputPath(tree.path("app/saveTemp.bmp"));
    press("Command1_0");
    EXPECT_TRUE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    expectFile("saveTemp.bmp", numbered(200, 150));
}

TEST_F(JpegWindow, DeletesThePreviewUnderCancelOnly)
{
    open();
    control<widgets::TitleStrip>("Picture2")->closeBox()->click();
    EXPECT_FALSE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    EXPECT_TRUE(exists("saveJpgTemp.jpg"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open();
    press("Command1_1");
    EXPECT_FALSE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    EXPECT_FALSE(exists("saveJpgTemp.jpg"));
}

TEST_F(JpegWindow, PressesItsButtonsByReturnAndEscape)
{
    open(true).setOutputPath(tree.path("picture.jpg"));
    QTest::keyClick(slider(), Qt::Key_Return);
    EXPECT_TRUE(tree.exists("picture.jpg"));
    EXPECT_FALSE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open(true);
    QTest::keyClick(slider(), Qt::Key_Escape);
    EXPECT_FALSE(exists("saveJpgTemp.jpg"));
}

// ---- conversions that events come between ----

namespace {

// A source that takes many pieces of work, so that there is time to overtake its conversion.
class LongConversion : public JpegWindow {
protected:
    LongConversion()
    {
        saveSource(test::filled(4000, 3000, qRgb(10, 200, 90)));
        open(true);
    }

    // Runs while the conversion that the next change of the slider starts is at work.
    static void meanwhile(const std::function<void()>& action)
    {
        QTimer::singleShot(0, qApp, action);
    }
};

} // namespace

TEST_F(LongConversion, GivesWayToANewerValue)
{
    QStringList shownTexts;
    QObject::connect(qualitys(), &QLineEdit::textChanged,
                     [&](const QString& text) { shownTexts.append(text); });
    meanwhile([&] {
        slider()->setValue(60);
        EXPECT_EQ(qualitys()->text(), "80");
        slider()->setValue(25);
    });
    slider()->setValue(40);
    EXPECT_EQ(shownTexts, QStringList({"25"}));
    expectPreviewAt(25);
}

TEST_F(LongConversion, IsCompletedBeforeOkWritesTheOutput)
{
    m_window->setOutputPath(tree.path("picture.jpg"));
    meanwhile([&] { press("Command1_0"); });
    slider()->setValue(40);
    EXPECT_FALSE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    EXPECT_TRUE(tree.content("picture.jpg") == convertedAt(40));
    expectPreviewAt(40);
}

TEST_F(LongConversion, EndsWithoutAFileUnderCancel)
{
    meanwhile([&] { press("Command1_1"); });
    slider()->setValue(40);
    EXPECT_FALSE(core::windows().isLoaded(core::Window::frmSaveJPGc));
    EXPECT_FALSE(exists("saveJpgTemp.jpg"));
}

TEST_F(LongConversion, EndsWhenTheProgramCloses)
{
    meanwhile([] { platform::beginClosing(); });
    slider()->setValue(40);
    platform::resetClosing();
    EXPECT_EQ(qualitys()->text(), "80");
    expectPreviewAt(80);
}
