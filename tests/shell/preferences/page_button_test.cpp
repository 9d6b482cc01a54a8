#include "shell/preferences/page_button.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

QRgb groundOf(QWidget& button)
{
    return button.grab().toImage().pixel(button.width() / 2, 3);
}

} // namespace

TEST(PageButton, IsMarkedWhileItIsChecked)
{
    preferences::PageButton button(QStringLiteral("&Editor"));
    button.resize(button.sizeHint());
    const QRgb plain = groundOf(button);
    button.setChecked(true);
    EXPECT_EQ(groundOf(button), button.palette().color(QPalette::Highlight).rgb());
    EXPECT_NE(plain, groundOf(button));
}

TEST(PageButton, HasRoomForItsText)
{
    const preferences::PageButton shortOne(QStringLiteral("&A"));
    const preferences::PageButton longOne(QStringLiteral("&A longer text"));
    EXPECT_GT(longOne.sizeHint().width(), shortOne.sizeHint().width());
    EXPECT_GT(shortOne.sizeHint().width(), shortOne.fontMetrics().horizontalAdvance(u'A'));
    EXPECT_GE(shortOne.sizeHint().height(), shortOne.fontMetrics().height());
}
