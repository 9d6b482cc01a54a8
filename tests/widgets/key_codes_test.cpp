#include "widgets/key_codes.h"

#include <QKeyEvent>
#include <gtest/gtest.h>

namespace {

int codeOf(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return widgets::virtualKey(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

TEST(KeyCodes, AreTheNumbersThatCommandsKnow)
{
    struct Row {
        int key;
        int code;
    };
    constexpr Row kRows[] = {
        {Qt::Key_Escape, 27}, {Qt::Key_F2, 113}, {Qt::Key_F3, 114},  {Qt::Key_F4, 115},
        {Qt::Key_F5, 116},    {Qt::Key_F6, 117}, {Qt::Key_F10, 121}, {Qt::Key_F12, 123},
        {Qt::Key_A, 65},      {Qt::Key_S, 83},   {Qt::Key_D, 68},    {Qt::Key_V, 86},
        {Qt::Key_H, 72},      {Qt::Key_C, 67},   {Qt::Key_E, 69},    {Qt::Key_O, 79},
        {Qt::Key_P, 80},      {Qt::Key_Z, 90},   {Qt::Key_Left, 37}, {Qt::Key_Control, 17},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(codeOf(row.key), row.code) << row.key;
    }
}

TEST(KeyCodes, TellTheKeypadFromTheOtherKeys)
{
    EXPECT_EQ(codeOf(Qt::Key_Plus, Qt::KeypadModifier), 107);
    EXPECT_EQ(codeOf(Qt::Key_Minus, Qt::KeypadModifier), 109);
    EXPECT_EQ(codeOf(Qt::Key_5, Qt::KeypadModifier), 101);
    EXPECT_NE(codeOf(Qt::Key_Plus), 107);
    EXPECT_NE(codeOf(Qt::Key_Minus), 109);
    EXPECT_EQ(codeOf(Qt::Key_5), 53);
}

TEST(KeyCodes, KeepALettersNumberUnderAnotherScript)
{
    constexpr int kCyrillicEf = 0x0424; // stands where a Latin keyboard has A
    constexpr quint32 kPlaceOfA = 38;
    const QKeyEvent event(QEvent::KeyPress, kCyrillicEf, Qt::NoModifier, kPlaceOfA, 0, 0);
    EXPECT_EQ(widgets::virtualKey(event), 65);
}

TEST(KeyCodes, AreZeroForAKeyWithoutOne)
{
    EXPECT_EQ(codeOf(Qt::Key_VolumeUp), 0);
    EXPECT_EQ(codeOf(0x0424), 0);
}

TEST(KeyCodes, SumShiftAndButtons)
{
    EXPECT_EQ(widgets::shiftState(Qt::NoModifier), 0);
    EXPECT_EQ(widgets::shiftState(Qt::ShiftModifier | Qt::AltModifier), 5);
    EXPECT_EQ(widgets::shiftState(Qt::ControlModifier), 2);
    EXPECT_EQ(widgets::buttonNumbers(Qt::LeftButton), 1);
    EXPECT_EQ(widgets::buttonNumbers(Qt::RightButton | Qt::MiddleButton), 6);
}

} // namespace
