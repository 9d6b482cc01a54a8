#include "widgets/strip_window.h"

#include "support/fake_main_window.h"
#include "widgets/title_strip.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <optional>

namespace {

class OpenedWindow : public widgets::StripWindow {
public:
    OpenedWindow()
        : StripWindow(QStringLiteral("Caption"))
        , field(new QLineEdit(this))
        , ok(new QPushButton(this))
        , cancel(new QPushButton(this))
    {
        content().addWidget(new QLabel(QStringLiteral("Text that takes no focus")));
        for (QWidget* part : {static_cast<QWidget*>(field), static_cast<QWidget*>(ok),
                              static_cast<QWidget*>(cancel)}) {
            content().addWidget(part);
        }
    }
    using StripWindow::setKeyButtons;
    using StripWindow::strip;

    QLineEdit* field;
    QPushButton* ok;
    QPushButton* cancel;
};

} // namespace

TEST(StripWindow, ShowsItsCaptionOnTheStripAndToTheDesktop)
{
    OpenedWindow window;
    EXPECT_EQ(window.strip().caption(), QStringLiteral("Caption"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Caption"));
    window.setCaption(QStringLiteral("Other"));
    EXPECT_EQ(window.strip().caption(), QStringLiteral("Other"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Other"));
}

TEST(StripWindow, ClosesByItsBoxAndByEscape)
{
    OpenedWindow window;
    window.show();
    window.strip().closeBox()->click();
    EXPECT_FALSE(window.isVisible());
    window.show();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST(StripWindow, PressesTheButtonsOfItsTwoKeys)
{
    OpenedWindow window;
    QStringList pressed;
    QObject::connect(window.ok, &QPushButton::clicked, [&] { pressed.append("ok"); });
    QObject::connect(window.cancel, &QPushButton::clicked, [&] { pressed.append("cancel"); });
    window.setKeyButtons(window.ok, window.cancel);
    window.show();
    QTest::keyClick(window.field, Qt::Key_Return);
    QTest::keyClick(window.field, Qt::Key_Enter);
    QTest::keyClick(window.field, Qt::Key_Escape);
    EXPECT_EQ(pressed, QStringList({"ok", "ok", "cancel"}));
    EXPECT_TRUE(window.isVisible());
}

TEST(StripWindow, StartsAtItsFirstControlAndReachesTheBoxLast)
{
    OpenedWindow window;
    window.show();
    EXPECT_EQ(window.focusWidget(), window.field);
    EXPECT_EQ(window.cancel->nextInFocusChain(), window.strip().closeBox());
}

TEST(StripWindow, StartsAtItsOnlyControl)
{
    OpenedWindow window;
    delete window.ok;
    delete window.cancel;
    window.show();
    EXPECT_EQ(window.focusWidget(), window.field);
}

TEST(StripWindow, StandsInTheMiddleOfTheMainWindowUnlessItWasMoved)
{
    support::FakeMainWindow main;
    QWidget area;
    area.setGeometry(100, 50, 600, 400);
    main.parentWindow = &area;
    area.show();
    OpenedWindow window;
    window.resize(200, 120);
    window.show();
    EXPECT_EQ(window.geometry().center(), area.geometry().center());

    OpenedWindow moved;
    moved.move(7, 9);
    moved.show();
    EXPECT_EQ(moved.pos(), QPoint(7, 9));
}

// Where a window stands when the desktop first hears of it.
class FirstPlace : public QObject {
public:
    std::optional<QRect> place;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::WinIdChange && !place) {
            place = static_cast<QWidget*>(watched)->geometry();
        }
        return false;
    }
};

TEST(StripWindow, HasItsPlaceBeforeTheDesktopTakesItOver)
{
    support::FakeMainWindow main;
    QWidget area;
    area.setGeometry(100, 50, 600, 400);
    main.parentWindow = &area;
    area.show();
    OpenedWindow window;
    FirstPlace first;
    window.installEventFilter(&first);
    window.show();
    EXPECT_EQ(first.place, window.geometry());
    EXPECT_EQ(window.geometry().center(), area.geometry().center());
}

TEST(StripWindow, PressesTheButtonThatHasTheFocusByReturn)
{
    OpenedWindow window;
    auto* other = new QPushButton(&window);
    window.layout()->addWidget(other);
    QStringList pressed;
    QObject::connect(window.ok, &QPushButton::clicked, [&] { pressed.append("ok"); });
    QObject::connect(other, &QPushButton::clicked, [&] { pressed.append("other"); });
    window.setKeyButtons(window.ok, window.cancel);
    window.show();
    QTest::keyClick(other, Qt::Key_Return);
    EXPECT_EQ(pressed, QStringList({"other"}));
    window.strip().closeBox()->setFocus();
    QTest::keyClick(window.strip().closeBox(), Qt::Key_Return);
    EXPECT_EQ(pressed, QStringList({"other"}));
    EXPECT_FALSE(window.isVisible());
}
