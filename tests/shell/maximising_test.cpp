#include "shell/kept_maximised.h"
#include "shell/running_program.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <QWindowStateChangeEvent>
#include <gtest/gtest.h>

namespace {

constexpr int kRounds = 300; // of the event loop; an answer takes one or two

// Keeps a widget from being told of a state that is set from code.
class Silence : public QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        return event->type() == QEvent::WindowStateChange && !event->spontaneous();
    }
};

// A desktop that answers later, as the real ones do: the window seems maximised until then.
class LateDesktop : public support::FakeDesktop {
public:
    int asked = 0;
    bool answersTwice = false;

    bool maximise(QWidget& window) override
    {
        ++asked;
        window.overrideWindowState(Qt::WindowMaximized);
        for (int answer = 0; answer < (answersTwice ? 2 : 1); ++answer) {
            QTimer::singleShot(0, &window, [&window] { tell(window, Qt::WindowNoState); });
        }
        return false;
    }

    // The desktop changes the state by itself, or tells it once more.
    static void tell(QWidget& window, Qt::WindowStates state)
    {
        const Qt::WindowStates before = window.windowState();
        if (before != state) {
            Silence silence;
            window.installEventFilter(&silence);
            window.overrideWindowState(state);
            QWindowStateChangeEvent event(before);
            QSpontaneKeyEvent::setSpontaneous(&event);
            qApp->notify(&window, &event); // which keeps the mark
        }
    }
};

// A desktop whose first answers get lost: the window seems maximised and isn't.
class SilentDesktop : public support::FakeDesktop {
public:
    explicit SilentDesktop(int lost)
        : m_lost(lost)
    {
    }

    int asked = 0;
    bool answered = false;

    bool maximise(QWidget& window) override
    {
        ++asked;
        window.overrideWindowState(Qt::WindowMaximized);
        if (asked > m_lost) {
            QTimer::singleShot(0, window.windowHandle(), [this, handle = window.windowHandle()] {
                answered = true;
                handle->setWindowStates(Qt::WindowMaximized);
                QWindowStateChangeEvent event(Qt::WindowNoState);
                QApplication::sendEvent(handle, &event);
            });
        }
        return false;
    }

private:
    const int m_lost;
};

class MaximisingTest : public testing::Test {
protected:
    static void letAnswersCome()
    {
        for (int round = 0; round < kRounds; ++round) {
            QApplication::processEvents();
        }
    }

    RunningProgram program;
    LateDesktop desktop; // in place of the program's own
};

} // namespace

TEST_F(MaximisingTest, AsksADesktopThatRefusesOnce)
{
    for (const bool twice : {false, true}) {
        desktop.asked = 0;
        desktop.answersTwice = twice;
        program.run([this](Form1& form) {
            letAnswersCome();
            EXPECT_EQ(desktop.asked, 1);
            EXPECT_FALSE(form.isMaximized());
            for (const QSize& given : {QSize(900, 700), QSize(1100, 650)}) {
                form.resize(given);
                letAnswersCome();
                EXPECT_EQ(form.size(), given);
                const auto* bar = form.findChild<QWidget*>(QStringLiteral("StateBar"));
                EXPECT_EQ(bar->mapTo(&form, bar->rect().bottomRight()), form.rect().bottomRight());
            }
            EXPECT_EQ(desktop.asked, 1);
        });
    }
}

TEST_F(MaximisingTest, AsksOnceMoreForTheNextChangeToNormal)
{
    program.run([this](Form1& form) {
        letAnswersCome();
        ASSERT_EQ(desktop.asked, 1);
        for (int change = 0; change < 3; ++change) {
            LateDesktop::tell(form, Qt::WindowMinimized);
            LateDesktop::tell(form, Qt::WindowNoState);
            letAnswersCome();
            EXPECT_EQ(desktop.asked, 2 + change);
        }
    });
}

TEST(KeptMaximised, AsksADesktopAgainThatStaysSilent)
{
    constexpr int kLost = 6;
    SilentDesktop desktop(0);
    QWidget window;
    shell::KeptMaximised kept(window, 1);
    window.show();
    kept.keep();
    ASSERT_TRUE(QTest::qWaitFor(
        [&window] { return window.windowHandle()->windowStates() == Qt::WindowMaximized; }));
    ASSERT_EQ(desktop.asked, 1);

    SilentDesktop silent(kLost);
    LateDesktop::tell(window, Qt::WindowNoState);
    EXPECT_TRUE(QTest::qWaitFor([&silent] { return silent.answered; }));
    EXPECT_EQ(silent.asked, 1 + kLost);
}
