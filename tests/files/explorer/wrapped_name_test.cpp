#include "files/explorer/wrapped_name.h"

#include <QFontMetrics>
#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr int kWidth = 100;

QStringList wrapped(const QString& name)
{
    return files::wrappedName(name, QFont(), kWidth, 2).split(QChar::LineSeparator);
}

int widest(const QStringList& lines)
{
    int width = 0;
    for (const QString& line : lines) {
        width = std::max(width, QFontMetrics(QFont()).horizontalAdvance(line.trimmed()));
    }
    return width;
}

} // namespace

TEST(WrappedName, LeavesAShortNameInOneLine)
{
    EXPECT_EQ(wrapped("a b.jpg"), QStringList("a b.jpg"));
    EXPECT_EQ(wrapped(""), QStringList(""));
}

TEST(WrappedName, BreaksAtBlanks)
{
    const QStringList lines = wrapped("Pictures of the summer");
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines.join(""), "Pictures of the summer");
    EXPECT_TRUE(lines[0].endsWith(' '));
    EXPECT_LE(widest(lines), kWidth);
}

TEST(WrappedName, LeavesOutWhatTheLastLineHasNoRoomFor)
{
    for (const QString& name : {QString("word ").repeated(50), QString(250, 'W')}) {
        const QStringList lines = wrapped(name);
        ASSERT_EQ(lines.size(), 2);
        EXPECT_TRUE(name.startsWith(lines[0]));
        EXPECT_TRUE(lines[1].endsWith(QChar(0x2026)));
        EXPECT_LE(widest(lines), kWidth);
    }
}

TEST(WrappedName, GivesAtLeastALetterALine)
{
    EXPECT_EQ(files::wrappedName("abc", QFont(), 0, 3), QString("a\u2028b\u2028c"));
}
