#include "acquire/scan_dialog.h"

#include "acquire/scan_preview.h"
#include "platform/pictures/test_images.h"
#include "support/fake_dialogs.h"
#include "support/fake_scanners.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

using acquire::ScanDialog;
using acquire::ScanOptions;
using acquire::ScanPreview;
using acquire::ScanSettings;
using platform::ScanFailure;
using platform::ScanOption;
using platform::ScanRole;
using platform::ScanUnit;

namespace {

ScanOption words(ScanRole role, std::vector<std::string> words, const std::string& value)
{
    ScanOption option;
    option.role = role;
    option.words = std::move(words);
    option.value.word = value;
    return option;
}

ScanOption range(ScanRole role, ScanUnit unit, double least, double most, double value)
{
    ScanOption option;
    option.role = role;
    option.unit = unit;
    option.least = least;
    option.most = most;
    option.step = 1;
    option.value.number = value;
    return option;
}

ScanOptions flatbed()
{
    return {words(ScanRole::Source, {"Flatbed", "Feeder"}, "Flatbed"),
            words(ScanRole::Mode, {"Gray", "Color"}, "Gray"),
            range(ScanRole::Resolution, ScanUnit::DotsPerInch, 50, 600, 100),
            range(ScanRole::Left, ScanUnit::Millimetres, 0, 200, 0),
            range(ScanRole::Top, ScanUnit::Millimetres, 0, 300, 0),
            range(ScanRole::Right, ScanUnit::Millimetres, 0, 200, 100),
            range(ScanRole::Bottom, ScanUnit::Millimetres, 0, 300, 50)};
}

class ScanDialogs : public testing::Test {
protected:
    void show()
    {
        dialog = std::make_unique<ScanDialog>(nullptr, "fake:1", settings);
        dialog->show();
    }
    void showReady(const ScanOptions& options = flatbed())
    {
        show();
        emit scanners.lastSession->optionsRead(options);
        scanners.log.clear();
    }
    ~ScanDialogs() override
    {
        dialog.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(boxes.boxes.empty());
    }

    template<typename Control> Control* control(const char* name) const
    {
        return dialog->findChild<Control*>(name);
    }
    void press(const char* button) const { control<QPushButton>(button)->click(); }
    [[nodiscard]] QString status() const { return control<QLabel>("lblStatus")->text(); }
    [[nodiscard]] bool canPress(const char* button) const
    {
        return control<QPushButton>(button)->isEnabled();
    }
    [[nodiscard]] ScanPreview* preview() const { return control<ScanPreview>("preview"); }
    void sendPicture(const QImage& image) const { emit scanners.lastSession->scanned(image); }
    void choose(const char* box, int index) const
    {
        auto* choice = control<QComboBox>(box);
        choice->setCurrentIndex(index);
        emit choice->activated(index);
    }

    support::TempTree tree;
    support::MemoryConfigStore config;
    support::FakeDialogs boxes;
    support::FakeScanners scanners;
    ScanSettings settings;
    std::unique_ptr<ScanDialog> dialog;
};

const QImage kPage = test::numbered(30, 40).convertToFormat(QImage::Format_RGB888);

} // namespace

TEST_F(ScanDialogs, OpenTheScannerAndWait)
{
    show();
    EXPECT_EQ(scanners.log, QStringList{"open fake:1"});
    EXPECT_FALSE(canPress("cmdScan"));
    EXPECT_FALSE(canPress("cmdPreview"));
    EXPECT_TRUE(canPress("cmdCancel"));
    emit scanners.lastSession->optionsRead(flatbed());
    EXPECT_TRUE(canPress("cmdScan"));
    EXPECT_TRUE(canPress("cmdPreview"));
}

TEST_F(ScanDialogs, ShowTheOptionsThatThereAre)
{
    showReady();
    EXPECT_EQ(control<QComboBox>("cboMode")->currentText(), "Gray");
    EXPECT_EQ(control<QComboBox>("cboResolution")->currentText(), "100 dpi");
    EXPECT_EQ(control<QComboBox>("cboSource")->count(), 2);
    EXPECT_FALSE(control<QComboBox>("cboDepth")->isVisible());
    EXPECT_FALSE(control<QDoubleSpinBox>("txtBrightness")->isVisible());
    EXPECT_EQ(control<QDoubleSpinBox>("txtWidth")->value(), 100);
    EXPECT_EQ(control<QLabel>("lblSize")->text(), "394 x 197 pixels, 0.3 MB");
}

TEST_F(ScanDialogs, LeaveWordsThatAreNoUtf8AsTheyAre)
{
    const std::vector<std::string> odd{"Flatbed", "Vitre \xe0 plat", "Vitre \xe8 plat"};
    showReady({words(ScanRole::Source, odd, odd[2])});
    EXPECT_EQ(control<QComboBox>("cboSource")->currentIndex(), 2);
    choose("cboSource", 1);
    EXPECT_EQ(scanners.lastSession->lastValue.word, odd[1]);
    choose("cboSource", 0);
    EXPECT_EQ(scanners.lastSession->lastValue, platform::ScanValue({"Flatbed", 0}));
}

TEST_F(ScanDialogs, SetWhatIsChosenAndFollowWhatComesOfIt)
{
    showReady();
    choose("cboMode", 1);
    choose("cboResolution", 2);
    EXPECT_EQ(scanners.log, QStringList({"set 1 Color0", "set 3 150"}));
    ScanOptions options = flatbed();
    options[2].value.number = 150;
    options.push_back(range(ScanRole::Brightness, ScanUnit::Percent, -100, 100, 5));
    emit scanners.lastSession->optionsRead(options);
    EXPECT_TRUE(control<QDoubleSpinBox>("txtBrightness")->isVisible());
    EXPECT_EQ(control<QLabel>("lblSize")->text(), "591 x 295 pixels, 0.7 MB");
    control<QDoubleSpinBox>("txtBrightness")->setValue(20);
    EXPECT_EQ(scanners.log.last(), "set 8 20");
}

TEST_F(ScanDialogs, ScanTheAreaAndCloseWithThePicture)
{
    showReady();
    press("cmdScan");
    EXPECT_EQ(scanners.log, QStringList({"set 4 0", "set 5 0", "set 6 100", "set 7 50", "scan"}));
    EXPECT_FALSE(canPress("cmdScan"));
    emit scanners.lastSession->progressed(20, 40);
    EXPECT_EQ(control<QProgressBar>("progress")->value(), 20);
    EXPECT_EQ(control<QProgressBar>("progress")->maximum(), 40);
    sendPicture(kPage);
    EXPECT_FALSE(dialog->isVisible());
    test::expectPixels(dialog->picture().flattened(), kPage);
}

TEST_F(ScanDialogs, ShowAPreviewAndStay)
{
    showReady();
    press("cmdPreview");
    EXPECT_EQ(scanners.log, QStringList{"preview"});
    sendPicture(kPage);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(canPress("cmdScan"));
    EXPECT_TRUE(dialog->picture().isNothing());
    EXPECT_EQ(preview()->area(), QRectF(0, 0, 100, 50));
}

TEST_F(ScanDialogs, TakeTheAreaFromTheMouse)
{
    showReady();
    const QRectF bed = preview()->bedPlace();
    const auto place = [&](double x, double y) {
        return (bed.topLeft() + QPointF(x * bed.width() / 200, y * bed.height() / 300)).toPoint();
    };
    QTest::mousePress(preview(), Qt::LeftButton, {}, place(120, 100));
    QTest::mouseMove(preview(), place(180, 250));
    QTest::mouseRelease(preview(), Qt::LeftButton, {}, place(180, 250));
    const QRectF drawn = preview()->area();
    EXPECT_NEAR(drawn.left(), 120, 1);
    EXPECT_NEAR(drawn.bottom(), 250, 1);
    EXPECT_NEAR(control<QDoubleSpinBox>("txtWidth")->value(), 60, 1.5);
    QTest::mousePress(preview(), Qt::LeftButton, {}, place(150, 175));
    QTest::mouseMove(preview(), place(0, 175));
    QTest::mouseRelease(preview(), Qt::LeftButton, {}, place(0, 175));
    EXPECT_NEAR(preview()->area().left(), 0, 0.01);
    EXPECT_NEAR(preview()->area().width(), drawn.width(), 0.01);
    QTest::mouseDClick(preview(), Qt::LeftButton, {}, place(150, 50));
    EXPECT_EQ(preview()->area(), QRectF(0, 0, 200, 300));
}

TEST_F(ScanDialogs, TakeTheAreaFromTheKeysAndTheFields)
{
    showReady();
    QTest::keyClick(preview(), Qt::Key_Right);
    QTest::keyClick(preview(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(preview()->area(), QRectF(1, 10, 100, 50));
    QTest::keyClick(preview(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(preview()->area(), QRectF(1, 10, 99, 50));
    control<QDoubleSpinBox>("txtTop")->setValue(40);
    control<QDoubleSpinBox>("txtHeight")->setValue(120);
    EXPECT_EQ(preview()->area(), QRectF(1, 40, 99, 120));
    QTest::keyClick(preview(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(preview()->area(), QRectF(0, 0, 200, 300));
}

TEST_F(ScanDialogs, StopAScanFirstAndCloseThen)
{
    showReady();
    press("cmdScan");
    press("cmdCancel");
    EXPECT_EQ(scanners.log.last(), "cancel");
    EXPECT_TRUE(dialog->isVisible());
    emit scanners.lastSession->failed(ScanFailure::Cancelled);
    EXPECT_EQ(status(), acquire::failureText(ScanFailure::Cancelled));
    EXPECT_TRUE(canPress("cmdScan"));
    press("cmdCancel");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(dialog->picture().isNothing());
}

TEST_F(ScanDialogs, SayWhatFailedAndBearAnotherTry)
{
    showReady();
    press("cmdScan");
    emit scanners.lastSession->failed(ScanFailure::Jammed);
    EXPECT_EQ(status(), acquire::failureText(ScanFailure::Jammed));
    press("cmdScan");
    sendPicture(kPage);
    EXPECT_FALSE(dialog->picture().isNothing());
}

TEST_F(ScanDialogs, OpenALostScannerAgain)
{
    showReady();
    press("cmdScan");
    scanners.lastSession->lose(ScanFailure::Crashed);
    EXPECT_EQ(status(), acquire::failureText(ScanFailure::Crashed));
    EXPECT_FALSE(canPress("cmdScan"));
    EXPECT_EQ(control<QPushButton>("cmdPreview")->text(), "Tr&y again");
    scanners.log.clear();
    press("cmdPreview");
    EXPECT_EQ(scanners.log, QStringList{"open fake:1"});
    emit scanners.lastSession->optionsRead(flatbed());
    EXPECT_TRUE(canPress("cmdScan"));
}

TEST_F(ScanDialogs, BearAnswersThatComeTwiceOrUnasked)
{
    showReady();
    sendPicture(kPage);
    emit scanners.lastSession->progressed(1, 2);
    emit scanners.lastSession->failed(ScanFailure::Busy);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(dialog->picture().isNothing());
    press("cmdPreview");
    sendPicture(kPage);
    sendPicture(kPage);
    EXPECT_TRUE(dialog->isVisible());
    press("cmdScan");
    emit scanners.lastSession->optionsRead({});
    EXPECT_EQ(preview()->area(), QRectF(0, 0, 100, 50));
    sendPicture(kPage);
    EXPECT_FALSE(dialog->isVisible());
    scanners.lastSession->lose(ScanFailure::Crashed);
}

TEST_F(ScanDialogs, BearAnswersThatComeAfterClosing)
{
    showReady();
    press("cmdScan");
    dialog->close();
    sendPicture(kPage);
    EXPECT_TRUE(dialog->picture().isNothing());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(scanners.lastSession, nullptr);
}

TEST_F(ScanDialogs, RememberTheSettings)
{
    showReady();
    choose("cboMode", 1);
    control<QDoubleSpinBox>("txtWidth")->setValue(80);
    press("cmdScan");
    sendPicture(kPage);
    show();
    scanners.log.clear();
    emit scanners.lastSession->optionsRead(flatbed());
    EXPECT_TRUE(scanners.log.contains("set 1 Color0"));
    EXPECT_EQ(preview()->area(), QRectF(0, 0, 80, 50));
}

TEST_F(ScanDialogs, DoWithoutAnAreaAndWithoutOptions)
{
    showReady({});
    EXPECT_FALSE(control<QDoubleSpinBox>("txtLeft")->isVisible());
    EXPECT_EQ(control<QLabel>("lblSize")->text(), "");
    QTest::mouseClick(preview(), Qt::LeftButton);
    QTest::keyClick(preview(), Qt::Key_Right);
    press("cmdScan");
    EXPECT_EQ(scanners.log, QStringList{"scan"});
    emit scanners.lastSession->progressed(12, 0);
    EXPECT_TRUE(status().contains("12 rows"));
    sendPicture(kPage.convertToFormat(QImage::Format_Grayscale8));
    EXPECT_FALSE(dialog->picture().isNothing());
}

TEST_F(ScanDialogs, ArePressedByReturnAndEscape)
{
    showReady();
    QTest::keyClick(preview(), Qt::Key_Return);
    EXPECT_EQ(scanners.log.last(), "scan");
    emit scanners.lastSession->failed(ScanFailure::Busy);
    QTest::keyClick(preview(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}
