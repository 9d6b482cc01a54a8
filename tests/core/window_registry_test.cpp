#include "core/window_registry.h"

#include "platform/desktop/pump.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>
#include <vector>

namespace {

using core::Window;

constexpr Window kTool = Window::fastZoom;

// A window that counts its close events and may refuse them.
class CountingWindow : public QWidget {
public:
    explicit CountingWindow(int& closed, QWidget* parent = nullptr)
        : QWidget(parent, Qt::Window)
        , m_closed(closed)
    {
    }

    bool refuses = false;

private:
    void closeEvent(QCloseEvent* event) override
    {
        ++m_closed;
        event->setAccepted(!refuses);
    }

    int& m_closed;
};

class WindowRegistryTest : public testing::Test {
protected:
    WindowRegistryTest()
    {
        m_registry.add(kTool, [this] {
            ++m_made;
            return m_window = new CountingWindow(m_closed);
        });
    }
    ~WindowRegistryTest() override
    {
        m_registry.unload(kTool);
        m_registry.deleteForgotten();
        deletePosted();
        platform::resetClosing();
    }

    static void deletePosted()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    core::WindowRegistry m_registry;
    QPointer<CountingWindow> m_window;
    int m_made = 0;
    int m_closed = 0;
};

} // namespace

TEST_F(WindowRegistryTest, MakesAWindowWhenItIsFirstAskedForAndOnlyOnce)
{
    EXPECT_EQ(m_registry.find(kTool), nullptr);
    QWidget* const loaded = m_registry.load(kTool);
    ASSERT_NE(loaded, nullptr);
    EXPECT_FALSE(loaded->isVisible());
    EXPECT_EQ(loaded->objectName(), "fastZoom");
    EXPECT_EQ(m_registry.show(kTool), loaded);
    EXPECT_TRUE(loaded->isVisible());
    EXPECT_EQ(m_made, 1);
}

TEST_F(WindowRegistryTest, DoesNothingForAWindowWithoutAFactory)
{
    const Window other = Window::frmAbout;
    EXPECT_FALSE(m_registry.hasFactory(other));
    EXPECT_EQ(m_registry.load(other), nullptr);
    EXPECT_EQ(m_registry.show(other), nullptr);
    EXPECT_EQ(m_registry.show(other, core::ShowMode::Modal), nullptr);
    m_registry.hide(other);
    m_registry.unload(other);
    EXPECT_FALSE(m_registry.isLoaded(other));
}

TEST_F(WindowRegistryTest, TakesAFactoryThatMakesNothingForNone)
{
    m_registry.add(kTool, [] { return nullptr; });
    EXPECT_EQ(m_registry.show(kTool, core::ShowMode::Modal), nullptr);
    EXPECT_FALSE(m_registry.isLoaded(kTool));
}

TEST_F(WindowRegistryTest, HidingKeepsAWindow)
{
    m_registry.show(kTool);
    m_registry.hide(kTool);
    EXPECT_TRUE(m_registry.isLoaded(kTool));
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_EQ(m_closed, 0);
}

TEST_F(WindowRegistryTest, UnloadingRunsTheCloseHandlerForgetsAndDeletesLater)
{
    m_registry.show(kTool);
    const QPointer<CountingWindow> first = m_window;
    m_registry.unload(kTool);
    EXPECT_EQ(m_closed, 1);
    EXPECT_FALSE(m_registry.isLoaded(kTool));
    ASSERT_NE(first, nullptr) << "deleted while its handler may be on the stack";
    EXPECT_FALSE(first->isVisible());
    deletePosted();
    EXPECT_EQ(first, nullptr);

    EXPECT_NE(m_registry.show(kTool), nullptr);
    EXPECT_EQ(m_made, 2);
}

TEST_F(WindowRegistryTest, UnloadsAHiddenWindowTheSameWay)
{
    m_registry.load(kTool);
    m_registry.unload(kTool);
    EXPECT_EQ(m_closed, 1);
    deletePosted();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, ForgetsAWindowThatTheUserCloses)
{
    m_registry.show(kTool);
    m_window->close();
    EXPECT_EQ(m_closed, 1);
    EXPECT_FALSE(m_registry.isLoaded(kTool));
    deletePosted();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, KeepsAWindowThatRefusesTheUserButNotTheProgram)
{
    m_registry.show(kTool);
    m_window->refuses = true;
    m_window->close();
    EXPECT_EQ(m_closed, 1);
    EXPECT_TRUE(m_registry.isLoaded(kTool));
    EXPECT_TRUE(m_window->isVisible());

    m_registry.unload(kTool);
    EXPECT_EQ(m_closed, 2);
    EXPECT_FALSE(m_registry.isLoaded(kTool));
    deletePosted();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, AWindowMayUnloadItselfInItsOwnHandler)
{
    m_registry.show(kTool);
    auto* const button = new QPushButton(m_window);
    bool aliveInHandler = false;
    QObject::connect(button, &QPushButton::clicked, button, [&] {
        m_registry.unload(kTool);
        QCoreApplication::processEvents();
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
        aliveInHandler = m_window != nullptr;
    });
    QTimer::singleShot(0, button, &QPushButton::click);
    QCoreApplication::processEvents();
    EXPECT_TRUE(aliveInHandler);
    deletePosted();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, UnloadsSomeInTheOrderToldAndAllInTheirOwn)
{
    int ignored = 0;
    std::vector<Window> order;
    m_registry.onUnload([&](Window window) { order.push_back(window); });
    for (const Window window : {Window::Form1, Window::Form4}) {
        m_registry.add(window, [&] { return new CountingWindow(ignored); });
    }
    const std::vector<Window> all{kTool, Window::Form4, Window::Form1};
    EXPECT_EQ(m_registry.withFactory(), all);

    for (const Window window : all) {
        m_registry.show(window);
    }
    const std::vector<Window> told{Window::Form1, Window::frmAbout, kTool};
    m_registry.unload(told);
    EXPECT_EQ(order, (std::vector<Window>{Window::Form1, kTool}));

    order.clear();
    for (const Window window : all) {
        m_registry.show(window);
    }
    m_registry.unloadAll();
    EXPECT_EQ(order, all);
}

TEST_F(WindowRegistryTest, AModalWindowKeepsItsCallerWaitingUntilItCloses)
{
    bool modal = false;
    QTimer::singleShot(0, &m_registry, [&] {
        modal = m_window->isModal();
        m_window->close();
    });
    const QWidget* const shown = m_registry.show(kTool, core::ShowMode::Modal);
    EXPECT_TRUE(modal);
    EXPECT_EQ(m_closed, 1);
    EXPECT_FALSE(m_registry.isLoaded(kTool));
    EXPECT_TRUE(shown == nullptr || !shown->isVisible());
}

TEST_F(WindowRegistryTest, AModalWindowThatHidesItselfStaysLoaded)
{
    QTimer::singleShot(0, &m_registry, [this] { m_window->hide(); });
    EXPECT_EQ(m_registry.show(kTool, core::ShowMode::Modal), m_window);
    EXPECT_TRUE(m_registry.isLoaded(kTool));
}

TEST_F(WindowRegistryTest, AModalWindowThatIsDeletedEndsTheWaitWithNothing)
{
    QTimer::singleShot(0, &m_registry, [this] { delete m_window.data(); });
    EXPECT_EQ(m_registry.show(kTool, core::ShowMode::Modal), nullptr);
    EXPECT_FALSE(m_registry.isLoaded(kTool));
}

TEST_F(WindowRegistryTest, TheEndOfTheProgramEndsEveryWait)
{
    QTimer::singleShot(0, &m_registry, [this] {
        platform::beginClosing();
        m_registry.unloadAll();
    });
    m_registry.show(kTool, core::ShowMode::Modal);
    EXPECT_FALSE(m_registry.isLoaded(kTool));
}

TEST_F(WindowRegistryTest, AClosingProgramKeepsItsWindowsUntilTheStackIsUnwound)
{
    m_registry.show(kTool);
    platform::beginClosing();
    m_registry.unload(kTool);
    deletePosted();
    ASSERT_NE(m_window, nullptr);
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_EQ(m_registry.load(kTool), nullptr) << "nothing is made any more";
    m_registry.deleteForgotten();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, AnOwnerMayTakeItsWindowsAlong)
{
    m_registry.show(kTool);
    QPointer<CountingWindow> owned;
    m_registry.add(Window::Form4, [&] { return owned = new CountingWindow(m_closed, m_window); });
    m_registry.show(Window::Form4);
    platform::beginClosing();
    m_registry.unloadAll();
    m_registry.deleteForgotten();
    EXPECT_EQ(m_window, nullptr);
    EXPECT_EQ(owned, nullptr);
}
