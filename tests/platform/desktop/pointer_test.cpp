#include "platform/desktop/pointer.h"

#include <QCursor>
#include <QGuiApplication>
#include <gtest/gtest.h>
#include <optional>

using platform::Pointer;

namespace {

std::optional<Qt::CursorShape> shown()
{
    const QCursor* const shape = QGuiApplication::overrideCursor();
    return shape == nullptr ? std::nullopt : std::optional(shape->shape());
}

} // namespace

TEST(Pointer, IsAsBeforeBehindAGuard)
{
    {
        const platform::PointerGuard outer;
        {
            const platform::PointerGuard inner(Pointer::ArrowHourGlass);
            EXPECT_EQ(shown(), Qt::BusyCursor);
        }
        EXPECT_EQ(shown(), Qt::WaitCursor);
        const platform::PointerPause pause;
        EXPECT_EQ(shown(), std::nullopt);
    }
    EXPECT_EQ(shown(), std::nullopt);
}

TEST(Pointer, IsTheHourglassWhileItIsWaitedForAndNothingElseIsSet)
{
    const platform::PointerWait wait;
    EXPECT_EQ(platform::pointer(), Pointer::HourGlass);
    platform::setPointer(Pointer::SizeNS);
    EXPECT_EQ(shown(), Qt::SizeVerCursor);
    platform::setPointer(Pointer::Default);
    EXPECT_EQ(shown(), Qt::WaitCursor);
}

TEST(Pointer, ForgetsAWaitThatEndsBelowAGuard)
{
    std::optional<platform::PointerWait> wait(std::in_place);
    {
        const platform::PointerGuard work(Pointer::ArrowHourGlass);
        wait.reset();
        EXPECT_EQ(shown(), Qt::BusyCursor);
    }
    EXPECT_EQ(shown(), std::nullopt);
    EXPECT_EQ(platform::pointer(), Pointer::Default);
}
