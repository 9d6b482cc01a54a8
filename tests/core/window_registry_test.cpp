#include "core/window_registry.h"

#include "platform/desktop/pump.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

const QString kName = QStringLiteral("fastZoom");

// A window that counts its close events and may refuse them.
class Window : public QWidget {
public:
    explicit Window(int& closed, QWidget* parent = nullptr)
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
        m_registry.add(kName, [this] {
            ++m_made;
            return m_window = new Window(m_closed);
        });
    }
    ~WindowRegistryTest() override
    {
        m_registry.unload(kName);
        m_registry.deleteForgotten();
        deletePosted();
        platform::resetClosing();
    }

    static void deletePosted()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    core::WindowRegistry m_registry;
    QPointer<Window> m_window;
    int m_made = 0;
    int m_closed = 0;
};

} // namespace

TEST_F(WindowRegistryTest, MakesAWindowWhenItIsFirstAskedForAndOnlyOnce)
{
    EXPECT_EQ(m_registry.find(kName), nullptr);
    QWidget* const loaded = m_registry.load(kName);
    ASSERT_NE(loaded, nullptr);
    EXPECT_FALSE(loaded->isVisible());
    EXPECT_EQ(loaded->objectName(), kName);
    EXPECT_EQ(m_registry.show(kName), loaded);
    EXPECT_TRUE(loaded->isVisible());
    EXPECT_EQ(m_made, 1);
}

TEST_F(WindowRegistryTest, DoesNothingForANameWithoutAFactory)
{
    const QString other = QStringLiteral("frmAbout");
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
    m_registry.add(kName, [] { return nullptr; });
    EXPECT_EQ(m_registry.show(kName, core::ShowMode::Modal), nullptr);
    EXPECT_FALSE(m_registry.isLoaded(kName));
}

TEST_F(WindowRegistryTest, HidingKeepsAWindow)
{
    m_registry.show(kName);
    m_registry.hide(kName);
    EXPECT_TRUE(m_registry.isLoaded(kName));
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_EQ(m_closed, 0);
}

TEST_F(WindowRegistryTest, UnloadingRunsTheCloseHandlerForgetsAndDeletesLater)
{
    m_registry.show(kName);
    const QPointer<Window> first = m_window;
    m_registry.unload(kName);
    EXPECT_EQ(m_closed, 1);
    EXPECT_FALSE(m_registry.isLoaded(kName));
    ASSERT_NE(first, nullptr) << "deleted while its handler may be on the stack";
    EXPECT_FALSE(first->isVisible());
    deletePosted();
    EXPECT_EQ(first, nullptr);

    EXPECT_NE(m_registry.show(kName), nullptr);
    EXPECT_EQ(m_made, 2);
}

TEST_F(WindowRegistryTest, UnloadsAHiddenWindowTheSameWay)
{
    m_registry.load(kName);
    m_registry.unload(kName);
    EXPECT_EQ(m_closed, 1);
    deletePosted();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, ForgetsAWindowThatTheUserCloses)
{
    m_registry.show(kName);
    m_window->close();
    EXPECT_EQ(m_closed, 1);
    EXPECT_FALSE(m_registry.isLoaded(kName));
    deletePosted();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, KeepsAWindowThatRefusesTheUserButNotTheProgram)
{
    m_registry.show(kName);
    m_window->refuses = true;
    m_window->close();
    EXPECT_EQ(m_closed, 1);
    EXPECT_TRUE(m_registry.isLoaded(kName));
    EXPECT_TRUE(m_window->isVisible());

    m_registry.unload(kName);
    EXPECT_EQ(m_closed, 2);
    EXPECT_FALSE(m_registry.isLoaded(kName));
    deletePosted();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, AWindowMayUnloadItselfInItsOwnHandler)
{
    m_registry.show(kName);
    auto* const button = new QPushButton(m_window);
    bool aliveInHandler = false;
    QObject::connect(button, &QPushButton::clicked, button, [&] {
        m_registry.unload(kName);
        aliveInHandler = m_window != nullptr;
    });
    button->click();
    EXPECT_TRUE(aliveInHandler);
    deletePosted();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, UnloadsInTheOrderTold)
{
    int ignored = 0;
    QStringList order;
    m_registry.onUnload([&](const QString& name) { order.append(name); });
    for (const char* name : {"FlashP", "Form4"}) {
        m_registry.add(name, [&] { return new Window(ignored); });
        m_registry.show(name);
    }
    m_registry.show(kName);
    m_registry.unloadAll({"Form4", "frmAbout", kName, "FlashP"});
    EXPECT_EQ(order, (QStringList{"Form4", kName, "FlashP"}));
}

TEST_F(WindowRegistryTest, AModalWindowKeepsItsCallerWaitingUntilItCloses)
{
    bool modal = false;
    QTimer::singleShot(0, &m_registry, [&] {
        modal = m_window->isModal();
        m_window->close();
    });
    const QWidget* const shown = m_registry.show(kName, core::ShowMode::Modal);
    EXPECT_TRUE(modal);
    EXPECT_EQ(m_closed, 1);
    EXPECT_FALSE(m_registry.isLoaded(kName));
    EXPECT_TRUE(shown == nullptr || !shown->isVisible());
}

TEST_F(WindowRegistryTest, AModalWindowThatHidesItselfStaysLoaded)
{
    QTimer::singleShot(0, &m_registry, [this] { m_window->hide(); });
    EXPECT_EQ(m_registry.show(kName, core::ShowMode::Modal), m_window);
    EXPECT_TRUE(m_registry.isLoaded(kName));
}

TEST_F(WindowRegistryTest, AModalWindowThatIsDeletedEndsTheWaitWithNothing)
{
    QTimer::singleShot(0, &m_registry, [this] { delete m_window.data(); });
    EXPECT_EQ(m_registry.show(kName, core::ShowMode::Modal), nullptr);
    EXPECT_FALSE(m_registry.isLoaded(kName));
}

TEST_F(WindowRegistryTest, TheEndOfTheProgramEndsEveryWait)
{
    QTimer::singleShot(0, &m_registry, [this] {
        platform::beginClosing();
        m_registry.unloadAll({kName});
    });
    m_registry.show(kName, core::ShowMode::Modal);
    EXPECT_FALSE(m_registry.isLoaded(kName));
}

TEST_F(WindowRegistryTest, AClosingProgramKeepsItsWindowsUntilTheStackIsUnwound)
{
    m_registry.show(kName);
    platform::beginClosing();
    m_registry.unload(kName);
    deletePosted();
    ASSERT_NE(m_window, nullptr);
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_EQ(m_registry.load(kName), nullptr) << "nothing is made any more";
    m_registry.deleteForgotten();
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(WindowRegistryTest, AnOwnerMayTakeItsWindowsAlong)
{
    m_registry.show(kName);
    QPointer<Window> owned;
    m_registry.add("Form4", [&] { return owned = new Window(m_closed, m_window); });
    m_registry.show("Form4");
    platform::beginClosing();
    m_registry.unloadAll({kName, "Form4"});
    m_registry.deleteForgotten();
    EXPECT_EQ(m_window, nullptr);
    EXPECT_EQ(owned, nullptr);
}
