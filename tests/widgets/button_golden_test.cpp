#include "widgets/button_face.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <array>
#include <gtest/gtest.h>

// Every type in its five looks, compared with the images in the folder golden. The environment
// variable VISTARA_WRITE_GOLDEN writes these images anew; the test then fails, so that a run that
// writes is never taken for one that compares.

using widgets::ButtonFace;
using widgets::ButtonState;

namespace {

constexpr QSize kButton(36, 24);
constexpr int kGap = 4;

QImage disc(int edge, int ratio)
{
    QImage image(edge * ratio, edge * ratio, QImage::Format_RGB32);
    image.fill(QColor(0xC0, 0xC0, 0xC0));
    const int whole = image.width();
    for (int y = 0; y < whole; ++y) {
        for (int x = 0; x < whole; ++x) {
            const int across = 2 * x + 1 - whole;
            const int down = 2 * y + 1 - whole;
            if (across * across + down * down < whole * whole) {
                image.setPixelColor(x, y, y < x ? QColor(40, 120, 220) : QColor(250, 160, 40));
            }
        }
    }
    image.setDevicePixelRatio(ratio);
    return image;
}

ButtonFace faceOf(int type)
{
    widgets::PaletteSource source;
    source.scalesBlue = type == widgets::kGradientType;
    ButtonFace face;
    face.type = type;
    face.size = kButton;
    face.palette = widgets::derivePalette(source);
    face.picture = disc(10, 1);
    face.picture.addVariant(disc(10, 2));
    return face;
}

// Normal, under the pointer, pressed, disabled, focused.
std::array<ButtonFace, 5> looksOf(int type)
{
    std::array<ButtonFace, 5> looks;
    looks.fill(faceOf(type));
    looks[1].isOver = true;
    looks[2].isOver = true;
    looks[2].state = ButtonState::Pressed;
    looks[3].state = ButtonState::Disabled;
    looks[4].isChosen = true;
    looks[4].showsFocusBox = true;
    return looks;
}

QImage sheetOf(int type, int ratio)
{
    const auto looks = looksOf(type);
    const QSize size(kGap + static_cast<int>(looks.size()) * (kButton.width() + kGap),
                     kButton.height() + 2 * kGap);
    QImage sheet(size * ratio, QImage::Format_RGB32);
    sheet.setDevicePixelRatio(ratio);
    sheet.fill(QColor(0xF4, 0xF0, 0xE4));
    QPainter painter(&sheet);
    int left = kGap;
    for (const ButtonFace& face : looks) {
        painter.save();
        painter.translate(left, kGap);
        widgets::paintButton(painter, face);
        painter.restore();
        left += kButton.width() + kGap;
    }
    return sheet;
}

class GoldenButtons : public testing::TestWithParam<int> {};

} // namespace

TEST_P(GoldenButtons, LookAsTheyAlwaysDid)
{
    for (const int ratio : {1, 2}) {
        const QImage sheet = sheetOf(GetParam(), ratio);
        const QString path = QStringLiteral(GOLDEN_FOLDER "/button_%1@%2x.png")
                                 .arg(GetParam(), 2, 10, QChar('0'))
                                 .arg(ratio);
        if (qEnvironmentVariableIsSet("VISTARA_WRITE_GOLDEN")) {
            ASSERT_TRUE(sheet.save(path));
            ADD_FAILURE() << "written: " << path.toStdString();
            continue;
        }
        QImage golden(path);
        ASSERT_FALSE(golden.isNull()) << path.toStdString();
        golden = golden.convertToFormat(QImage::Format_RGB32);
        golden.setDevicePixelRatio(ratio);
        EXPECT_TRUE(golden == sheet) << path.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(AllTypes, GoldenButtons,
                         testing::Range(widgets::kFirstButtonType, widgets::kLastButtonType + 1));
