#include "widgets/button_face.h"

#include "widgets/button_surface.h"
#include "widgets/colour_conversion.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

using widgets::ButtonFace;
using widgets::ButtonState;
using widgets::ButtonSurface;

namespace {

const QColor kOutside(255, 0, 255);

QImage canvas(QSize size, int ratio = 1)
{
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(kOutside);
    return image;
}

QImage painted(const ButtonFace& face, int ratio = 1)
{
    QImage image = canvas(face.size, ratio);
    QPainter painter(&image);
    widgets::paintButton(painter, face);
    return image;
}

ButtonFace faceOf(int type, int scheme = 3)
{
    widgets::PaletteSource source;
    source.scheme = scheme;
    source.scalesBlue = type == widgets::kGradientType;
    ButtonFace face;
    face.type = type;
    face.size = {40, 24};
    face.palette = widgets::derivePalette(source);
    return face;
}

QImage plain(QSize size, QColor colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

base::Colour at(const QImage& image, int x, int y)
{
    return widgets::fromQColor(image.pixelColor(x, y));
}

int pixelsOf(const QImage& image, base::Colour colour)
{
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            pixels += at(image, x, y) == colour ? 1 : 0;
        }
    }
    return pixels;
}

} // namespace

TEST(ButtonSurface, DrawsItsPrimitivesToThePixel)
{
    QImage image = canvas({10, 8});
    QPainter painter(&image);
    const ButtonSurface surface(painter, {10, 8});
    surface.DrawBevel(1, 2, 3, 4, -1);
    EXPECT_EQ(at(image, 0, 0), 1U);
    EXPECT_EQ(at(image, 8, 0), 1U);
    EXPECT_EQ(at(image, 9, 0), 2U);
    EXPECT_EQ(at(image, 0, 7), 2U);
    EXPECT_EQ(at(image, 1, 1), 3U);
    EXPECT_EQ(at(image, 8, 6), 4U);
    EXPECT_EQ(image.pixelColor(2, 2), kOutside);
    surface.FillBox(3, 3, 4, 3, 5, true);
    EXPECT_EQ(at(image, 6, 5), 5U);
    EXPECT_EQ(image.pixelColor(4, 4), kOutside);
    surface.DrawLine(4, 4, 5, 4, 6);
    EXPECT_EQ(at(image, 5, 4), 6U);
    surface.SetDot(2, 2, 7);
    EXPECT_EQ(at(image, 2, 2), 7U);
}

TEST(ButtonFace, TouchesNoPixelOutsideItsShape)
{
    for (int type = widgets::kFirstButtonType; type <= widgets::kLastButtonType; ++type) {
        for (const ButtonState state :
             {ButtonState::Normal, ButtonState::Disabled, ButtonState::Pressed}) {
            for (const int ratio : {1, 2}) {
                ButtonFace face = faceOf(type);
                face.state = state;
                face.isOver = true;
                face.isChosen = true;
                face.showsFocusBox = true;
                face.caption = "Long caption over the edges";
                const QImage image = painted(face, ratio);
                const QRegion shape = widgets::shapeRegion(type, face.size);
                for (int y = 0; y < image.height(); ++y) {
                    for (int x = 0; x < image.width(); ++x) {
                        if (!shape.contains(QPoint(x / ratio, y / ratio))) {
                            ASSERT_EQ(image.pixelColor(x, y), kOutside)
                                << "type " << type << " at " << x << ", " << y;
                        }
                    }
                }
            }
        }
    }
}

TEST(ButtonFace, SurvivesSizesTooSmallForItsLines)
{
    for (int type = widgets::kFirstButtonType; type <= widgets::kLastButtonType; ++type) {
        for (const QSize size : {QSize(1, 1), QSize(2, 3), QSize(5, 1)}) {
            ButtonFace face = faceOf(type);
            face.size = size;
            face.caption = "x";
            EXPECT_EQ(painted(face).size(), size);
        }
    }
}

TEST(ButtonFace, RaisesAndSinksTheClassicBevel)
{
    ButtonFace face = faceOf(2);
    QImage image = painted(face);
    EXPECT_EQ(at(image, 0, 0), 0xFFFFFFU);
    EXPECT_EQ(at(image, 39, 23), 0x000000U);
    EXPECT_EQ(at(image, 1, 1), 0xDFDFDFU);
    EXPECT_EQ(at(image, 38, 22), 0x808080U);
    EXPECT_EQ(at(image, 20, 12), 0xC0C0C0U);

    face.isChosen = true;
    image = painted(face);
    EXPECT_EQ(at(image, 0, 0), 0x000000U);
    EXPECT_EQ(at(image, 1, 1), 0xFFFFFFU);

    face.state = ButtonState::Pressed;
    image = painted(face);
    EXPECT_EQ(at(image, 0, 0), 0x000000U);
    EXPECT_EQ(at(image, 1, 1), 0x808080U);
    EXPECT_EQ(at(image, 38, 22), 0x808080U);

    face.isChosen = false;
    image = painted(face);
    EXPECT_EQ(at(image, 0, 0), 0x000000U);
    EXPECT_EQ(at(image, 39, 23), 0xFFFFFFU);
    EXPECT_EQ(at(image, 1, 1), 0x808080U);
}

TEST(ButtonFace, ShadesTheGradientFromBelow)
{
    const ButtonFace face = faceOf(3);
    const QImage image = painted(face);
    EXPECT_EQ(at(image, 20, 0), 0x733C00U);
    EXPECT_EQ(at(image, 1, 1), 0x7B4D10U);
    EXPECT_EQ(at(image, 20, 22), ShiftColor(0xF0F0F0, -2 * 25 / 24));
    EXPECT_EQ(at(image, 20, 1), ShiftColor(0xF0F0F0, -23 * 25 / 24));

    ButtonFace pressed = face;
    pressed.state = ButtonState::Pressed;
    const QImage sunk = painted(pressed);
    EXPECT_EQ(at(sunk, 20, 22), 0xE0E0E0U);
    EXPECT_EQ(at(sunk, 20, 21), 0xDADADAU);
    EXPECT_EQ(at(sunk, 20, 1), 0xB0B0B0U);
    EXPECT_EQ(at(sunk, 20, 2), 0xB8B8B8U);
    EXPECT_EQ(at(sunk, 1, 12), 0xB0B0B0U);
    EXPECT_EQ(at(sunk, 2, 12), 0xBABABAU);
    EXPECT_EQ(at(sunk, 38, 12), 0xD5D5D5U);
    EXPECT_EQ(at(sunk, 37, 12), 0xD0D0D0U);
}

TEST(ButtonFace, TintsUnderThePointerOnlyWhereTheStyleSaysSo)
{
    ButtonFace face = faceOf(9);
    EXPECT_EQ(pixelsOf(painted(face), 0xC0C0C0), 40 * 24);
    face.isOver = true;
    const QImage over = painted(face);
    EXPECT_EQ(at(over, 0, 0), 0x800000U);
    EXPECT_EQ(at(over, 20, 12), 0xD1ADADU);
    face.state = ButtonState::Pressed;
    EXPECT_EQ(at(painted(face), 20, 12),
              widgets::mixed(ShiftColor(0xD1ADAD, -32), LightenColor(0x800000, 128)));
    face.state = ButtonState::Disabled;
    EXPECT_EQ(pixelsOf(painted(face), 0xC0C0C0), 40 * 24);
}

TEST(ButtonFace, LiesFlatUntilThePointerRaisesIt)
{
    for (const int type : {7, 8, 10, 12}) {
        ButtonFace face = faceOf(type);
        EXPECT_EQ(pixelsOf(painted(face), 0xC0C0C0), 40 * 24);
        face.isOver = true;
        const QImage over = painted(face);
        EXPECT_EQ(at(over, 0, 0), 0xFFFFFFU);
        EXPECT_EQ(at(over, 39, 23), 0x808080U);
    }
}

TEST(ButtonFace, LeavesTheBackgroundOfTheTransparentStyle)
{
    ButtonFace face = faceOf(widgets::kTransparentType);
    for (const ButtonState state :
         {ButtonState::Normal, ButtonState::Disabled, ButtonState::Pressed}) {
        face.state = state;
        EXPECT_EQ(pixelsOf(painted(face), widgets::fromQColor(kOutside)), 40 * 24);
    }
}

TEST(ButtonFace, TakesTheOverColourForTheFace)
{
    ButtonFace face = faceOf(7);
    face.palette.FaceOver = 0x112233;
    face.paintsFaceOver = true;
    EXPECT_EQ(at(painted(face), 20, 12), 0x112233U);
}

TEST(ButtonFace, EmbossesDisabledCaptions)
{
    ButtonFace face = faceOf(10);
    face.size = {80, 30};
    face.caption = "HHHH";
    face.palette.Text = 0x0000FF;
    EXPECT_EQ(pixelsOf(painted(face), 0xFFFFFF), 0);
    face.state = ButtonState::Disabled;
    const QImage disabled = painted(face);
    EXPECT_GT(pixelsOf(disabled, 0xFFFFFF), 0);
    EXPECT_GT(pixelsOf(disabled, 0x808080), 0);

    face.type = widgets::kRoundedFrameType;
    const QImage dark = painted(face);
    QImage inside = dark.copy(4, 4, 72, 22);
    EXPECT_EQ(pixelsOf(inside, 0xFFFFFF), 0);
    EXPECT_GT(pixelsOf(inside, 0x000000), 0);
}

TEST(ButtonFace, ShiftsThePressedCaption)
{
    ButtonFace face = faceOf(11);
    face.size = {80, 30};
    face.caption = "HHHH";
    const QImage normal = painted(face);
    face.state = ButtonState::Pressed;
    const QImage pressed = painted(face);
    EXPECT_NE(normal, pressed);
    EXPECT_EQ(pressed.copy(5, 5, 70, 20), normal.copy(4, 4, 70, 20));
}

TEST(ButtonFace, ShowsTheBackgroundThroughTheMask)
{
    ButtonFace face = faceOf(7);
    QImage picture = plain({4, 4}, QColor(10, 20, 30));
    picture.setPixelColor(0, 0, Qt::red);
    face.picture = picture;
    face.palette.Mask = base::rgb(255, 0, 0);
    EXPECT_EQ(at(painted(face), 18, 10), 0xC0C0C0U);
    EXPECT_EQ(at(painted(face), 19, 10), base::rgb(10, 20, 30));
    face.usesMask = false;
    EXPECT_EQ(at(painted(face), 18, 10), base::rgb(255, 0, 0));
}

TEST(ButtonFace, GreysPicturesWhenDisabledOrUntilThePointerComes)
{
    ButtonFace face = faceOf(11);
    face.picture = plain({4, 4}, Qt::red);
    EXPECT_EQ(at(painted(face), 19, 11), base::rgb(255, 0, 0));
    face.isGreyUntilOver = true;
    EXPECT_EQ(at(painted(face), 19, 11), base::rgb(76, 76, 76));
    face.isOver = true;
    EXPECT_EQ(at(painted(face), 19, 11), base::rgb(255, 0, 0));
    face.state = ButtonState::Disabled;
    EXPECT_EQ(at(painted(face), 19, 11), base::rgb(76, 76, 76));
}

TEST(ButtonFace, LaysAShadowBelowThePicture)
{
    ButtonFace face = faceOf(7);
    face.picture = plain({4, 4}, Qt::red);
    EXPECT_EQ(at(painted(face), 22, 14), 0xC0C0C0U);
    for (const int effect : {1, 2}) {
        face.specialEffect = effect;
        const QImage image = painted(face);
        EXPECT_LT(base::redOf(at(image, 22, 14)), 0xC0U);
        EXPECT_EQ(at(image, 18, 10), base::rgb(255, 0, 0));
    }
    face.specialEffect = 3;
    EXPECT_EQ(at(painted(face), 22, 14), 0xC0C0C0U);
}

TEST(ButtonFace, LiftsThePictureOfTheTintedStyle)
{
    ButtonFace face = faceOf(9);
    face.picture = plain({4, 4}, Qt::red);
    EXPECT_EQ(at(painted(face), 17, 9), 0xC0C0C0U);
    face.isOver = true;
    const QImage over = painted(face);
    EXPECT_EQ(at(over, 17, 9), base::rgb(255, 0, 0));
    EXPECT_LT(base::redOf(at(over, 22, 14)), base::redOf(0xD1ADAD));
}

TEST(ButtonFace, DotsTheFocusAroundTheCaptionOrInsideTheEdge)
{
    ButtonFace face = faceOf(7);
    face.showsFocusBox = true;
    const QImage bare = painted(face);
    EXPECT_EQ(at(bare, 4, 4), 0x000000U);
    EXPECT_EQ(at(bare, 5, 4), 0xC0C0C0U);
    EXPECT_EQ(at(bare, 6, 4), 0x000000U);

    face.size = {90, 40};
    face.caption = ".";
    const QImage withCaption = painted(face);
    EXPECT_EQ(at(withCaption, 4, 4), 0xC0C0C0U);
    EXPECT_GT(pixelsOf(withCaption, 0x000000), 4);
}

TEST(ButtonFace, TakesTheSharpVariantOnSharpScreens)
{
    ButtonFace face = faceOf(7);
    widgets::ScaledPicture picture(plain({4, 4}, Qt::red));
    QImage twice = plain({8, 8}, Qt::blue);
    twice.setDevicePixelRatio(2);
    picture.addVariant(twice);
    face.picture = picture;
    EXPECT_EQ(at(painted(face, 1), 19, 11), base::rgb(255, 0, 0));
    EXPECT_EQ(at(painted(face, 2), 38, 22), base::rgb(0, 0, 255));
}

TEST(ButtonFace, BreaksItsCaptionIntoLines)
{
    const QFont font;
    const QSize wide = widgets::captionSize("Save all pictures", font, 500);
    const QSize narrow = widgets::captionSize("Save all pictures", font, wide.width() / 2);
    EXPECT_LT(narrow.width(), wide.width());
    EXPECT_GT(narrow.height(), wide.height());
    EXPECT_TRUE(widgets::captionSize("", font, 100).isEmpty());
    EXPECT_EQ(widgets::captionSize("&Save", font, 100), widgets::captionSize("Save", font, 100));
}
