#include "widgets/transparent_runs.h"

#include <gtest/gtest.h>

using widgets::findRuns;
using widgets::regionWithout;
using widgets::ScanDirection;
using widgets::TransparentRun;

namespace {

constexpr base::Colour kClear = base::rgb(255, 0, 255);

// A picture from rows of letters: "." is transparent, anything else isn't.
QImage pictureOf(const QStringList& rows)
{
    QImage image(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()),
                 QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixelColor(x, y, rows[y][x] == u'.' ? QColor(255, 0, 255) : QColor(1, 2, 3));
        }
    }
    return image;
}

void expectExactly(const QStringList& rows)
{
    const QImage image = pictureOf(rows);
    for (const ScanDirection direction : {ScanDirection::Rows, ScanDirection::Columns}) {
        const QRegion region =
            regionWithout(findRuns(image, kClear, direction), image.size(), direction);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                EXPECT_EQ(region.contains(QPoint(x, y)), rows[y][x] != u'.')
                    << x << ", " << y << " of " << rows.join('/').toStdString();
            }
        }
    }
}

} // namespace

TEST(TransparentRuns, RunAlongRowsOrColumns)
{
    const QImage image = pictureOf({"..x.", "x..."});
    const std::vector<TransparentRun> rows{{0, 0, 2}, {3, 0, 1}, {1, 1, 3}};
    EXPECT_EQ(findRuns(image, kClear, ScanDirection::Rows), rows);
    const std::vector<TransparentRun> columns{{0, 0, 1}, {0, 1, 2}, {1, 2, 1}, {0, 3, 2}};
    EXPECT_EQ(findRuns(image, kClear, ScanDirection::Columns), columns);
}

TEST(TransparentRuns, AreNoneWithoutTransparentPixels)
{
    const QImage image = pictureOf({"xxx", "xxx"});
    EXPECT_TRUE(findRuns(image, kClear, ScanDirection::Rows).empty());
    EXPECT_EQ(regionWithout({}, {3, 2}, ScanDirection::Rows), QRegion(0, 0, 3, 2));
}

TEST(TransparentRuns, AreOnePerLineOfAClearPicture)
{
    const QImage image = pictureOf({"...", "..."});
    EXPECT_EQ(findRuns(image, kClear, ScanDirection::Rows).size(), 2U);
    EXPECT_EQ(findRuns(image, kClear, ScanDirection::Columns).size(), 3U);
    EXPECT_TRUE(
        regionWithout(findRuns(image, kClear, ScanDirection::Rows), {3, 2}, ScanDirection::Rows)
            .isEmpty());
}

TEST(TransparentRuns, LeaveExactlyTheOtherPixels)
{
    expectExactly({"x.x.x", ".x.x.", "x.x.x"});
    expectExactly({"..xx..", ".xxxx.", "xxxxxx", ".x..x."});
    expectExactly({"x"});
    expectExactly({"."});
}
