#include "publishing/albums/album_setup_window.h"

#include "core/window_registry.h"
#include "publishing/albums/pane_with_thumbnails.h"
#include "publishing/albums/windows.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/temp_tree.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace {

constexpr auto kWindow = core::Window::frmWebRelease;

class AlbumSetupWindow : public testing::Test {
protected:
    AlbumSetupWindow() { albums::registerWindows(); }
    ~AlbumSetupWindow() override
    {
        core::windows().unload(kWindow);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open() { m_window = core::windows().show(kWindow); }

    template<typename Control> Control& control(const char* name) const
    {
        return *m_window->findChild<Control*>(QString::fromLatin1(name));
    }
    [[nodiscard]] QComboBox& size() const { return control<QComboBox>("WebSize"); }
    [[nodiscard]] QLineEdit& quality() const { return control<QLineEdit>("WebQuality"); }
    [[nodiscard]] QLineEdit& title() const { return control<QLineEdit>("WebTitle"); }
    void press(const char* button) const { control<QPushButton>(button).click(); }
    [[nodiscard]] int albumSize() const { return pane.thumbnails.Html_ThumbnailSize(); }

    // Whether "Ok" takes the text for a quality.
    bool accepts(const char* text)
    {
        open();
        quality().setText(QString::fromUtf8(text));
        press("Ok");
        return !m_window->isVisible();
    }

    support::TempTree tree;
    support::FakeMainWindow form;
    support::FakeDialogs dialogs;
    support::FakeDesktop desktop;
    PaneWithThumbnails pane{nullptr};
    QPointer<QWidget> m_window;
};

} // namespace

TEST_F(AlbumSetupWindow, StartsFromItsDefaults)
{
    open();
    EXPECT_EQ(m_window->windowTitle(), "Album Steup...");
    EXPECT_EQ(m_window->objectName(), "frmWebRelease");
    EXPECT_EQ(size().currentIndex(), 16);
    EXPECT_EQ(quality().text(), "80");
    EXPECT_EQ(title().text(), " Web Page");
    EXPECT_EQ(albumSize(), 160);
}

TEST_F(AlbumSetupWindow, HasTwentySizesAndSetsTenPixelsLessThanTheyTell)
{
    open();
    ASSERT_EQ(size().count(), 20);
    EXPECT_EQ(size().itemText(0), "10 + 10 Pixel");
    EXPECT_EQ(size().itemText(16), "170 + 170 Pixel");
    EXPECT_EQ(size().itemText(19), "200 + 200 Pixel");
    for (int entry = 0; entry < size().count(); ++entry) {
        size().setCurrentIndex(entry);
        EXPECT_EQ(albumSize(), entry * 10);
    }
}

TEST_F(AlbumSetupWindow, SetsTheSizeByKeysAtOnce)
{
    open();
    size().setFocus();
    QTest::keyClick(&size(), Qt::Key_Home);
    EXPECT_EQ(albumSize(), 0);
    QTest::keyClick(&size(), Qt::Key_Down);
    EXPECT_EQ(albumSize(), 10);
    QTest::keyClick(&size(), Qt::Key_End);
    EXPECT_EQ(albumSize(), 190);
}

TEST_F(AlbumSetupWindow, OpensWithoutAPane)
{
    core::services().browserPane = nullptr;
    open();
    size().setCurrentIndex(3);
    EXPECT_TRUE(m_window->isVisible());
    core::services().browserPane = &pane;
}

TEST_F(AlbumSetupWindow, StaysWithoutAWordWhileTheQualityIsNone)
{
    for (const char* text : {"", "101", "-1", "1000", "100.5", "1e9", "-0.5"}) {
        EXPECT_FALSE(accepts(text)) << text;
        m_window->hide();
    }
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(AlbumSetupWindow, TakesEveryQualityFrom0To100)
{
    for (const char* text : {"0", "1", "50", "100", " 75", "75 percent", "abc", " "}) {
        EXPECT_TRUE(accepts(text)) << text;
    }
}

TEST_F(AlbumSetupWindow, KeepsItsValuesForTheRunsBehindOk)
{
    open();
    quality().setText("50");
    title().setText("  Summer  ");
    size().setCurrentIndex(5);
    press("Ok");
    EXPECT_TRUE(core::windows().isLoaded(kWindow));
    EXPECT_EQ(albums::albumSetup().title, "Summer");
    EXPECT_EQ(albums::albumSetup().quality, 50);
    EXPECT_EQ(albumSize(), 50);
}

TEST_F(AlbumSetupWindow, StartsFromItsDefaultsWhenItOpensAgain)
{
    open();
    quality().setText("50");
    title().setText("Summer");
    size().setCurrentIndex(5);
    press("Ok");
    open();
    EXPECT_EQ(size().currentIndex(), 16);
    EXPECT_EQ(quality().text(), "80");
    EXPECT_EQ(title().text(), " Web Page");
    EXPECT_EQ(albumSize(), 160);
    EXPECT_EQ(albums::albumSetup().quality, 80);
}

TEST_F(AlbumSetupWindow, SetsItsSizeAgainWhenItOpensAgain)
{
    open();
    press("Ok");
    pane.thumbnails.setHtml_ThumbnailSize(40);
    open();
    EXPECT_EQ(albumSize(), 160);
}

TEST_F(AlbumSetupWindow, UnloadsByCancelAndByItsBox)
{
    const std::function<void()> ways[] = {[this] { press("Cancel"); },
                                          [this] { QTest::keyClick(m_window, Qt::Key_Escape); },
                                          [this] { m_window->close(); }};
    for (const auto& leave : ways) {
        open();
        quality().setText("50");
        leave();
        EXPECT_FALSE(core::windows().isLoaded(kWindow));
        EXPECT_EQ(albums::albumSetup().quality, 80);
    }
}

TEST_F(AlbumSetupWindow, IsReadWithoutBeingShown)
{
    EXPECT_EQ(albumSize(), 200);
    const albums::AlbumSetup setup = albums::albumSetup();
    EXPECT_EQ(setup.title, "Web Page");
    EXPECT_EQ(setup.quality, 80);
    EXPECT_EQ(albumSize(), 160);
    ASSERT_TRUE(core::windows().isLoaded(kWindow));
    EXPECT_FALSE(core::windows().find(kWindow)->isVisible());
}

TEST_F(AlbumSetupWindow, IsNotLoadedAgainForTheNextRun)
{
    static_cast<void>(albums::albumSetup());
    pane.thumbnails.setHtml_ThumbnailSize(40);
    static_cast<void>(albums::albumSetup());
    EXPECT_EQ(albumSize(), 40);
}

TEST_F(AlbumSetupWindow, ReadsTheQualityByItsLeadingDigits)
{
    open();
    const std::pair<const char*, int> texts[] = {{"75 percent", 75}, {"abc", 0},   {"62.5", 62},
                                                 {"62.9", 62},       {"1e300", 0}, {"", 0}};
    for (const auto& [text, quality] : texts) {
        this->quality().setText(text);
        EXPECT_EQ(albums::albumSetup().quality, quality) << text;
    }
}

TEST_F(AlbumSetupWindow, EndsItsModalShowByOk)
{
    bool wasVisible = false;
    QTimer::singleShot(0, &pane, [this, &wasVisible] {
        m_window = core::windows().find(kWindow);
        wasVisible = m_window != nullptr && m_window->isVisible();
        press("Ok");
    });
    EXPECT_NE(core::windows().show(kWindow, core::ShowMode::Modal), nullptr);
    EXPECT_TRUE(wasVisible);
}

TEST_F(AlbumSetupWindow, TakesReturnForOk)
{
    open();
    title().setFocus();
    QTest::keyClick(&title(), Qt::Key_Return);
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_TRUE(core::windows().isLoaded(kWindow));
}

TEST_F(AlbumSetupWindow, OpensTheHelp)
{
    open();
    press("Help");
    EXPECT_EQ(desktop.opened, QStringList(tree.path("app/HelpDocuments.chm")));
    EXPECT_TRUE(m_window->isVisible());
}

TEST_F(AlbumSetupWindow, TellsScreenReadersWhatItsControlsAre)
{
    open();
    for (const char* name : {"WebSize", "WebQuality", "WebTitle", "Ok", "Cancel", "Help"}) {
        auto& part = control<QWidget>(name);
        EXPECT_FALSE(part.accessibleName().isEmpty()) << name;
        EXPECT_NE(part.focusPolicy(), Qt::NoFocus) << name;
    }
    QStringList captions;
    for (const QLabel* label : m_window->findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            captions.append(label->text().remove('&'));
        }
    }
    EXPECT_EQ(captions,
              QStringList({"Web Images Size:", "Web Images Quality:", "Web Page Title:"}));
}
