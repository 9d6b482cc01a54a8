#include "acquire/scanner_chooser.h"

#include "acquire/scan_settings.h"
#include "acquire/scanner_source.h"
#include "platform/desktop/clipboard.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/registry.h"
#include "platform/pictures/test_images.h"
#include "support/fake_dialogs.h"
#include "support/fake_scanners.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

using acquire::ScannerChooser;
using acquire::ScannerSource;
using platform::ScanFailure;
using platform::ScannerFacts;

namespace {

const std::vector<ScannerFacts> kTwo{{"a:0", "Maker", "One", "flatbed"},
                                     {"b:1", "Other", "Two", "sheetfed"}};

class ScannerChoosing : public testing::Test {
protected:
    ScannerChoosing() { platform::clearClipboard(); }
    ~ScannerChoosing() override
    {
        EXPECT_TRUE(boxes.boxes.empty());
        chooser.reset();
        platform::resetClosing();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void show(const std::string& before = {})
    {
        chooser = std::make_unique<ScannerChooser>(nullptr, before);
        chooser->show();
    }
    template<typename Control> Control* control(const char* name) const
    {
        return chooser->findChild<Control*>(name);
    }
    void press(const char* button) const { control<QPushButton>(button)->click(); }

    // Runs once a window of that name is shown.
    void whenShown(const char* name, const std::function<void(QWidget&)>& act)
    {
        QTimer::singleShot(0, &context, [this, name, act] {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (window->isVisible() && window->objectName() == QLatin1String(name)) {
                    act(*window);
                    return;
                }
            }
            whenShown(name, act);
        });
    }
    static void pressIn(QWidget& window, const char* button)
    {
        window.findChild<QPushButton*>(button)->click();
    }
    static QString remembered()
    {
        return platform::getSetting(QStringLiteral("Acquire"), QStringLiteral("Scanner"));
    }

    support::TempTree tree;
    support::MemoryConfigStore config;
    support::FakeDialogs boxes;
    support::FakeScanners scanners;
    ScannerSource source;
    QObject context;
    std::unique_ptr<ScannerChooser> chooser;
};

} // namespace

TEST_F(ScannerChoosing, ListsAllScannersOnceTheyAreFound)
{
    show();
    EXPECT_FALSE(control<QPushButton>("cmdSelect")->isEnabled());
    EXPECT_TRUE(control<QLabel>("lblScanners")->isVisible());
    emit scanners.lastSearch->found(kTwo);
    auto* list = control<QListWidget>("lstScanners");
    ASSERT_EQ(list->count(), 2);
    EXPECT_TRUE(list->isVisible());
    EXPECT_TRUE(list->item(1)->text().startsWith("Other Two"));
    EXPECT_EQ(list->currentRow(), 0);
    list->setCurrentRow(1);
    press("cmdSelect");
    EXPECT_EQ(chooser->choice(), "b:1");
    EXPECT_FALSE(chooser->isVisible());
}

TEST_F(ScannerChoosing, MarksTheOneChosenBefore)
{
    show("b:1");
    emit scanners.lastSearch->found(kTwo);
    EXPECT_EQ(control<QListWidget>("lstScanners")->currentRow(), 1);
}

TEST_F(ScannerChoosing, SaysInTheListsPlaceThatThereIsNone)
{
    show();
    emit scanners.lastSearch->found({});
    EXPECT_TRUE(control<QLabel>("lblScanners")->isVisible());
    EXPECT_TRUE(control<QLabel>("lblScanners")->text().contains("No scanner"));
    EXPECT_FALSE(control<QPushButton>("cmdSelect")->isEnabled());
    press("cmdAgain");
    EXPECT_EQ(scanners.log, QStringList({"search", "search"}));
    emit scanners.lastSearch->failed(ScanFailure::NoLibrary);
    EXPECT_EQ(control<QLabel>("lblScanners")->text(), acquire::failureText(ScanFailure::NoLibrary));
}

TEST_F(ScannerChoosing, BearsAnswersThatComeTwice)
{
    show();
    emit scanners.lastSearch->found(kTwo);
    emit scanners.lastSearch->found({kTwo[1]});
    EXPECT_EQ(control<QListWidget>("lstScanners")->count(), 1);
    emit scanners.lastSearch->found({});
    EXPECT_FALSE(control<QPushButton>("cmdSelect")->isEnabled());
    press("cmdCancel");
    EXPECT_EQ(chooser->choice(), std::nullopt);
}

TEST_F(ScannerChoosing, TakesReturnAndADoubleClick)
{
    show();
    emit scanners.lastSearch->found(kTwo);
    QTest::keyClick(control<QListWidget>("lstScanners"), Qt::Key_Down);
    QTest::keyClick(control<QListWidget>("lstScanners"), Qt::Key_Return);
    EXPECT_EQ(chooser->choice(), "b:1");
    show();
    emit scanners.lastSearch->found(kTwo);
    auto* list = control<QListWidget>("lstScanners");
    const QPoint place = list->visualItemRect(list->item(0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(chooser->choice(), "a:0");
}

TEST_F(ScannerChoosing, IsRememberedByTheSource)
{
    whenShown("ScannerChooser", [this](QWidget& window) {
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        emit scanners.lastSearch->found(kTwo);
        pressIn(window, "cmdSelect");
    });
    const platform::PointerGuard hourglass;
    EXPECT_EQ(source.selectImageSource(nullptr), 1);
    EXPECT_EQ(remembered(), "a:0");
    EXPECT_EQ(platform::pointer(), platform::Pointer::HourGlass);
    whenShown("ScannerChooser", [](QWidget& window) { pressIn(window, "cmdCancel"); });
    EXPECT_EQ(source.selectImageSource(nullptr), 0);
    EXPECT_EQ(remembered(), "a:0");
}

TEST_F(ScannerChoosing, LeavesNamesThatAreNoUtf8AsTheyAre)
{
    for (const std::string name : {"sc\xff", "f\xc3\xbcr 100%25:0"}) {
        whenShown("ScannerChooser", [&](QWidget& window) {
            emit scanners.lastSearch->found({kTwo[0], {name, "Maker", "Three", "flatbed"}});
            window.findChild<QListWidget*>("lstScanners")->setCurrentRow(1);
            pressIn(window, "cmdSelect");
        });
        EXPECT_EQ(source.selectImageSource(nullptr), 1);
        whenShown("ScanDialog", [](QWidget& dialog) { pressIn(dialog, "cmdCancel"); });
        EXPECT_EQ(source.acquireToClipboard(nullptr, 0), 0);
        EXPECT_EQ(scanners.lastOpened, name);
    }
}

TEST_F(ScannerChoosing, ComesFirstWhereNoneWasChosen)
{
    whenShown("ScannerChooser", [](QWidget& window) { pressIn(window, "cmdCancel"); });
    EXPECT_EQ(source.acquireToClipboard(nullptr, 0), 0);
    EXPECT_EQ(scanners.log, QStringList{"search"});
    const QImage page = test::numbered(20, 10);
    whenShown("ScannerChooser", [this, page](QWidget& window) {
        emit scanners.lastSearch->found(kTwo);
        pressIn(window, "cmdSelect");
        whenShown("ScanDialog", [this, page](QWidget& dialog) {
            emit scanners.lastSession->optionsRead({});
            pressIn(dialog, "cmdScan");
            emit scanners.lastSession->scanned(page.convertToFormat(QImage::Format_RGB888));
        });
    });
    EXPECT_EQ(source.acquireToClipboard(nullptr, 0), 1);
    const auto picture = platform::clipboardPicture();
    ASSERT_TRUE(picture.has_value());
    test::expectPixels(picture->flattened(), page);
}

TEST_F(ScannerChoosing, LeavesTheClipboardWhenTheScanIsCancelled)
{
    platform::saveSetting(QStringLiteral("Acquire"), QStringLiteral("Scanner"), "a:0");
    platform::setClipboardText("text");
    whenShown("ScanDialog", [](QWidget& dialog) { pressIn(dialog, "cmdCancel"); });
    EXPECT_EQ(source.acquireToClipboard(nullptr, 0), 0);
    EXPECT_EQ(scanners.log, QStringList{"open a:0"});
    EXPECT_EQ(platform::clipboardPicture(), std::nullopt);
}

TEST_F(ScannerChoosing, EndsWithTheProgram)
{
    whenShown("ScannerChooser", [](QWidget&) { platform::beginClosing(); });
    EXPECT_EQ(source.acquireToClipboard(nullptr, 0), 0);
    EXPECT_EQ(scanners.log, QStringList{"search"});
}

TEST_F(ScannerChoosing, EndsWithItsWindow)
{
    auto window = std::make_unique<QWidget>();
    window->show();
    whenShown("ScannerChooser", [&](QWidget&) { window.reset(); });
    EXPECT_EQ(source.acquireToClipboard(window.get(), 0), 0);
    EXPECT_EQ(scanners.log, QStringList{"search"});
}
