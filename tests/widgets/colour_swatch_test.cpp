#include "widgets/colour_swatch.h"

#include "support/fake_dialogs.h"

#include <QSignalSpy>
#include <QTest>
#include <cstdlib>
#include <gtest/gtest.h>
#include <utility>

TEST(ColourSwatch, StartsWhiteAndShowsItsColour)
{
    AASelectColor swatch;
    swatch.resize(40, 20);
    EXPECT_EQ(swatch.Color(), 0xFFFFFFU);
    swatch.setColor(base::rgb(82, 109, 220));
    EXPECT_EQ(swatch.grab().toImage().pixelColor(20, 10), QColor(82, 109, 220));
    EXPECT_EQ(swatch.findChild<QWidget*>("picColor")->size(), QSize(40, 20));
}

TEST(ColourSwatch, StandsOutFromAWindowOfItsColour)
{
    for (const auto& [window, text] : {std::pair(0x202428U, 0xF0F0F0U), {0xF0F0F0U, 0x202428U}}) {
        AASelectColor swatch;
        swatch.resize(40, 20);
        QPalette palette;
        palette.setColor(QPalette::Window, QRgb(0xFF000000U | window));
        palette.setColor(QPalette::Mid, QRgb(0xFF000000U | window)); // as dark schemes have it
        palette.setColor(QPalette::WindowText, QRgb(0xFF000000U | text));
        swatch.setPalette(palette);
        swatch.setColor(window);
        const QImage shown = swatch.grab().toImage();
        const int inside = shown.pixelColor(20, 10).lightness();
        EXPECT_GT(std::abs(shown.pixelColor(20, 0).lightness() - inside), 40);
        EXPECT_GT(std::abs(shown.pixelColor(0, 10).lightness() - inside), 40);
    }
}

TEST(ColourSwatch, PalesWhereItCantBeChosen)
{
    AASelectColor swatch;
    swatch.resize(40, 20);
    swatch.setColor(0);
    swatch.setEnabled(false);
    EXPECT_GT(swatch.grab().toImage().pixelColor(20, 10).lightness(), 100);
}

TEST(ColourSwatch, TakesTheColourChosen)
{
    support::FakeDialogs dialogs;
    AASelectColor swatch;
    swatch.setColor(0x112233);
    const QSignalSpy changes(&swatch, &AASelectColor::Changed);
    EXPECT_EQ(changes.count(), 0);

    dialogs.colourAnswers = {0x445566};
    QTest::mouseClick(&swatch, Qt::LeftButton);
    EXPECT_EQ(dialogs.colourRequests, std::vector<base::Colour>{0x112233});
    EXPECT_EQ(swatch.Color(), 0x445566U);
    EXPECT_EQ(changes.count(), 1);

    dialogs.colourAnswers = {std::nullopt};
    QTest::keyClick(&swatch, Qt::Key_Space);
    EXPECT_EQ(swatch.Color(), 0x445566U);
    EXPECT_EQ(changes.count(), 1);
}

TEST(ColourSwatch, StoresItsColour)
{
    AASelectColor swatch;
    swatch.setColor(0x123456);
    AASelectColor other;
    other.ReadProperties(swatch.WriteProperties());
    EXPECT_EQ(other.Color(), 0x123456U);
    other.ReadProperties({});
    EXPECT_EQ(other.Color(), 0xFFFFFFU);
}
