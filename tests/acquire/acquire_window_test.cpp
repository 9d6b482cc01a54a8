#include "acquire/acquire_window.h"

#include "acquire/picture_source.h"
#include "acquire/windows.h"
#include "core/window_registry.h"
#include "platform/desktop/clipboard.h"
#include "platform/desktop/pointer.h"
#include "platform/pictures/test_images.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"
#include "viewer/picture_viewer.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

using platform::Picture;

namespace {

// Answers as it is told, after doing what a test has it do.
class FakeSource : public acquire::PictureSource {
public:
    int selectImageSource(QWidget* window) override
    {
        asked.push_back(window);
        pointers.push_back(platform::pointer());
        return answer;
    }
    int acquireToClipboard(QWidget* window, std::int16_t pixelTypes) override
    {
        asked.push_back(window);
        pixels.push_back(pixelTypes);
        pointers.push_back(platform::pointer());
        if (meanwhile) {
            meanwhile();
        }
        return answer;
    }

    std::function<void()> meanwhile;
    int answer = 1;
    std::vector<QWidget*> asked;
    std::vector<std::int16_t> pixels;
    std::vector<platform::Pointer> pointers;

private:
    acquire::ScopedPictureSource m_inPlace{*this};
};

class AcquireWindow : public testing::Test {
protected:
    AcquireWindow()
    {
        acquire::registerWindows();
        platform::clearClipboard();
        form.viewer().setPicture(Picture(test::filled(3, 3, qRgb(9, 9, 9))));
        form.log.clear();
        core::windows().show(core::Window::Acquire);
        window = qobject_cast<Acquire*>(core::windows().find(core::Window::Acquire));
    }

    ~AcquireWindow() override
    {
        EXPECT_TRUE(dialogs.boxes.empty());
        core::windows().unload(core::Window::Acquire);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        platform::setPointer(platform::Pointer::Default);
    }

    [[nodiscard]] cpvPicViewer* viewer() const
    {
        return window->findChild<cpvPicViewer*>("cpvPiScroll1");
    }
    void press(const char* button) const { window->findChild<QPushButton*>(button)->click(); }
    [[nodiscard]] static bool isOpen() { return core::windows().isLoaded(core::Window::Acquire); }

    support::TempTree tree;
    support::MemoryConfigStore config;
    support::FakeMainWindow form;
    support::FakeDialogs dialogs;
    support::FakeDesktop desktop;
    FakeSource source;
    QPointer<Acquire> window;
};

} // namespace

TEST_F(AcquireWindow, HasItsControlsAndTexts)
{
    ASSERT_NE(window, nullptr);
    for (const char* name :
         {"cpvPiScroll1", "Command1", "Command2", "Ok", "Cancel", "Help", "Max", "Picture1"}) {
        EXPECT_NE(window->findChild<QWidget*>(name), nullptr) << name;
    }
    QStringList texts;
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        texts.append(label->text());
    }
    EXPECT_EQ(texts, QStringList({"Click on ", "Input", " to input you digital picture."}));
    EXPECT_TRUE(viewer()->BestFitMode());
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(AcquireWindow, AsksForTheSourceWithItself)
{
    source.answer = 7;
    press("Command1");
    EXPECT_EQ(source.asked, std::vector<QWidget*>{window.data()});
    EXPECT_EQ(window->lastResult(), 7);
    EXPECT_FALSE(viewer()->PictureExists());
}

TEST_F(AcquireWindow, ShowsThePictureThatComesByTheClipboard)
{
    const QImage picture = test::numbered(40, 20);
    source.meanwhile = [&] { EXPECT_TRUE(platform::setClipboardPicture(Picture(picture))); };
    press("Command2");
    EXPECT_EQ(source.asked, std::vector<QWidget*>{window.data()});
    EXPECT_EQ(source.pixels, std::vector<std::int16_t>{0});
    EXPECT_EQ(source.pointers, std::vector{platform::Pointer::HourGlass});
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    EXPECT_EQ(window->lastResult(), 1);
    test::expectPixels(viewer()->Picture().flattened(), picture);
    EXPECT_TRUE(viewer()->BestFitMode());
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(AcquireWindow, GivesThePictureToTheMainViewer)
{
    const QImage picture = test::numbered(40, 20);
    ASSERT_TRUE(platform::setClipboardPicture(Picture(picture)));
    press("Command2");
    press("Ok");
    test::expectPixels(form.viewer().Picture().flattened(), picture);
    EXPECT_EQ(form.log, QStringList{"viewer picture 40x20"});
    EXPECT_FALSE(isOpen());
}

TEST_F(AcquireWindow, GivesAnEmptyPictureBeforeAnyWasAcquired)
{
    press("Ok");
    EXPECT_EQ(form.log, QStringList{"viewer emptied"});
    EXPECT_FALSE(isOpen());
}

TEST_F(AcquireWindow, ShowsWhatTheClipboardHeldAfterAFailure)
{
    const QImage picture = test::numbered(5, 6);
    ASSERT_TRUE(platform::setClipboardPicture(Picture(picture)));
    source.answer = 0;
    press("Command2");
    EXPECT_EQ(window->lastResult(), 0);
    test::expectPixels(viewer()->Picture().flattened(), picture);
}

TEST_F(AcquireWindow, IsEmptyAfterAFailureOverText)
{
    ASSERT_TRUE(platform::setClipboardPicture(Picture(test::numbered(5, 6))));
    press("Command2");
    platform::setClipboardText("text");
    source.answer = 0;
    press("Command2");
    EXPECT_TRUE(viewer()->Picture().isNothing());
    press("Ok");
    EXPECT_TRUE(form.viewer().Picture().isNothing());
}

TEST_F(AcquireWindow, IsEmptyAfterAFailureOverNothing)
{
    source.answer = 0;
    press("Command2");
    EXPECT_TRUE(viewer()->Picture().isNothing());
}

TEST_F(AcquireWindow, ClosesWithoutTouchingTheMainViewer)
{
    for (const char* button : {"Cancel", "Max"}) {
        core::windows().show(core::Window::Acquire);
        window = qobject_cast<Acquire*>(core::windows().find(core::Window::Acquire));
        window->findChild<QAbstractButton*>(button)->click();
        EXPECT_FALSE(isOpen()) << button;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(AcquireWindow, OpensHelp)
{
    press("Help");
    EXPECT_EQ(desktop.opened.size(), 1);
    EXPECT_TRUE(isOpen());
}

TEST_F(AcquireWindow, MayGoWhileASourceIsAsked)
{
    source.meanwhile = [this] {
        core::windows().unload(core::Window::Acquire);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    QMetaObject::invokeMethod(
        window, [this] { press("Command2"); }, Qt::QueuedConnection);
    EXPECT_TRUE(QTest::qWaitFor([] { return !isOpen(); }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}
