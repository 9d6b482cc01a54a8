#include "files/text_list.h"
#include "support/full_disk.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"
#include "support/unruly_disk.h"

#include <gtest/gtest.h>

using files::NamedPath;

namespace {

class TextListTest : public testing::Test {
protected:
    [[nodiscard]] QByteArray bytesOf(const files::TextList& list) const
    {
        return platform::readFile(platform::appFile(list.fileName)).value_or("missing");
    }

    void store(const files::TextList& list, const QByteArray& bytes, const char* count)
    {
        ASSERT_TRUE(platform::writeFileWhole(platform::appFile(list.fileName), bytes));
        config.values[list.countKey.name] = QString::fromLatin1(count);
    }

    support::TempTree tree;
    support::MemoryConfigStore config;
};

const NamedPath kFirst{QStringLiteral("n1"), QStringLiteral("p1")};
const NamedPath kSecond{QStringLiteral("n2"), QStringLiteral("p2")};

} // namespace

TEST_F(TextListTest, AppendsRecordsInOneLine)
{
    addNamed(files::kFavourites, kFirst);
    addNamed(files::kFavourites, kSecond);
    EXPECT_EQ(bytesOf(files::kFavourites), "n1#p1;n2#p2;");
    EXPECT_EQ(config.read(QStringLiteral("No")), QStringLiteral("2"));
    EXPECT_EQ(readNamed(files::kFavourites), (std::vector{kFirst, kSecond}));
}

TEST_F(TextListTest, CountsOnFromTheLeadingDigits)
{
    config.values[QStringLiteral("Xno")] = QStringLiteral("3 items");
    addPath(files::kRecentPaths, QStringLiteral("/a"));
    EXPECT_EQ(config.read(QStringLiteral("Xno")), QStringLiteral("4"));
    config.values[QStringLiteral("Xno")] = QStringLiteral("x");
    addPath(files::kRecentPaths, QStringLiteral("/b"));
    EXPECT_EQ(config.read(QStringLiteral("Xno")), QStringLiteral("1"));
}

TEST_F(TextListTest, BelievesTheCountNotTheFile)
{
    store(files::kFavourites, "n1#p1;n2#p2;", "3");
    EXPECT_EQ(readNamed(files::kFavourites), (std::vector{kFirst, kSecond, NamedPath{}}));
    config.values[QStringLiteral("No")] = QStringLiteral("1");
    EXPECT_EQ(readNamed(files::kFavourites), (std::vector{kFirst}));
    config.values[QStringLiteral("No")] = QStringLiteral("0");
    EXPECT_TRUE(readNamed(files::kFavourites).empty());
    config.values[QStringLiteral("No")] = QStringLiteral("-4");
    EXPECT_TRUE(readNamed(files::kFavourites).empty());
}

TEST_F(TextListTest, ShowsNothingWithoutAFile)
{
    config.values[QStringLiteral("No")] = QStringLiteral("5");
    config.values[QStringLiteral("Xno")] = QStringLiteral("5");
    EXPECT_TRUE(readNamed(files::kFavourites).empty());
    EXPECT_TRUE(readPaths(files::kRecentPaths).isEmpty());
}

TEST_F(TextListTest, DeletesEveryCopyOfARecordButCountsOne)
{
    store(files::kFavourites, "n1#p1;n2#p2;n1#p1;", "3");
    deleteOne(files::kFavourites, kFirst);
    EXPECT_EQ(bytesOf(files::kFavourites), "n2#p2;");
    EXPECT_EQ(config.read(QStringLiteral("No")), QStringLiteral("2"));
    EXPECT_EQ(readNamed(files::kFavourites), (std::vector{kSecond, NamedPath{}}));
}

TEST_F(TextListTest, RenamesOneRecordAndNoOtherText)
{
    store(files::kFavourites, "a#/a/banana;banana#/x/a;", "2");
    renameEntry(files::kFavourites, {QStringLiteral("a"), QStringLiteral("/a/banana")},
                QStringLiteral("fruit"));
    EXPECT_EQ(bytesOf(files::kFavourites), "fruit#/a/banana;banana#/x/a;");
}

TEST_F(TextListTest, ReplacesAPathEverywhere)
{
    store(files::kFavourites, "a#/p/x.bmp;b#/p/x.bmp;", "2");
    replaceText(files::kFavourites, QStringLiteral("/p/x.bmp"), QStringLiteral("/p/y.bmp"));
    EXPECT_EQ(bytesOf(files::kFavourites), "a#/p/y.bmp;b#/p/y.bmp;");
    replaceText(files::kFavourites, QString(), QStringLiteral("z"));
    EXPECT_EQ(bytesOf(files::kFavourites), "a#/p/y.bmp;b#/p/y.bmp;");
}

TEST_F(TextListTest, KeepsTheOldestRecentPathFirstAndEveryRepeat)
{
    addPath(files::kRecentPaths, QStringLiteral("/a"));
    addPath(files::kRecentPaths, QStringLiteral("/b"));
    addPath(files::kRecentPaths, QStringLiteral("/a"));
    EXPECT_EQ(bytesOf(files::kRecentPaths), "/a;/b;/a;");
    EXPECT_EQ(readPaths(files::kRecentPaths),
              (QStringList{QStringLiteral("/a"), QStringLiteral("/b"), QStringLiteral("/a")}));
}

TEST_F(TextListTest, KeepsNamesOfEveryLanguageAndBytesThatAreNone)
{
    const QString name = QStringLiteral("Ärger 写真");
    const QString odd = platform::fromNative("/p/\xff\xfe.bmp");
    addNamed(files::kEditors, {name, odd});
    EXPECT_EQ(bytesOf(files::kEditors), QByteArray("Ärger 写真#/p/\xff\xfe.bmp;"));
    EXPECT_EQ(readNamed(files::kEditors), (std::vector{NamedPath{name, odd}}));
}

TEST_F(TextListTest, BreaksTheEntriesBehindANameOrPathThatHoldsAMark)
{
    store(files::kFavourites, "a#/p;q.bmp;b#/r;", "4");
    EXPECT_EQ(readNamed(files::kFavourites),
              (std::vector<NamedPath>{{QStringLiteral("a"), QStringLiteral("/p")},
                                      {QStringLiteral("q.bmp;b"), QString()},
                                      {QStringLiteral("b"), QStringLiteral("/r")},
                                      {}}));
    store(files::kFavourites, "n#1#/p;", "1");
    EXPECT_EQ(readNamed(files::kFavourites),
              (std::vector<NamedPath>{{QStringLiteral("n"), QStringLiteral("1#/p")}}));
}

TEST_F(TextListTest, ReadsDamagedFilesWithoutHarm)
{
    store(files::kFavourites, QByteArray("no marks at all\0###;;;", 22), "4");
    const auto entries = readNamed(files::kFavourites);
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[3], NamedPath{});
    store(files::kRecentPaths, QByteArray(100000, ';'), "1e9");
    EXPECT_EQ(readPaths(files::kRecentPaths).size(), 100000);
    store(files::kRecentPaths, "first;\nsecond;", "2");
    EXPECT_EQ(readPaths(files::kRecentPaths), (QStringList{QStringLiteral("first"), QString()}));
}

TEST_F(TextListTest, AddsAThousandEmptyEntriesAtTheMost)
{
    store(files::kFavourites, "a#/a;b#/b;", "1002");
    EXPECT_EQ(readNamed(files::kFavourites).size(), 1002U);
    for (const char* count : {"1003", "4294967297", "1e300"}) {
        store(files::kFavourites, "a#/a;b#/b;", count);
        const auto entries = readNamed(files::kFavourites);
        ASSERT_EQ(entries.size(), 1002U) << count;
        EXPECT_EQ(entries[1].path, QStringLiteral("/b"));
        EXPECT_EQ(entries[1001], NamedPath{});
        store(files::kRecentPaths, "/a;/b;", count);
        EXPECT_EQ(readPaths(files::kRecentPaths).size(), 1002) << count;
    }
}

TEST_F(TextListTest, KeepsTheNewestOfMoreThanAHundredThousandRecords)
{
    constexpr int kRecords = 100003;
    QByteArray named;
    QByteArray paths;
    for (int i = 1; i <= kRecords; ++i) {
        const QByteArray number = QByteArray::number(i);
        named += "n" + number + "#/p" + number + ";";
        paths += "/p" + number + ";";
    }
    for (const char* count : {"100003", "100004", "1e9"}) {
        store(files::kFavourites, named, count);
        const auto entries = readNamed(files::kFavourites);
        ASSERT_EQ(entries.size(), 100000U) << count;
        EXPECT_EQ(entries.front(), (NamedPath{QStringLiteral("n4"), QStringLiteral("/p4")}));
        EXPECT_EQ(entries.back(),
                  (NamedPath{QStringLiteral("n100003"), QStringLiteral("/p100003")}));
        store(files::kRecentPaths, paths, count);
        const QStringList recent = readPaths(files::kRecentPaths);
        ASSERT_EQ(recent.size(), 100000) << count;
        EXPECT_EQ(recent.first(), QStringLiteral("/p4"));
        EXPECT_EQ(recent.last(), QStringLiteral("/p100003"));
    }
    // What the count leaves out is no entry, however new.
    store(files::kRecentPaths, paths, "100002");
    const QStringList recent = readPaths(files::kRecentPaths);
    EXPECT_EQ(recent.first(), QStringLiteral("/p3"));
    EXPECT_EQ(recent.last(), QStringLiteral("/p100002"));
}

TEST_F(TextListTest, ShowsTheNameOfARecordWithoutItsEnd)
{
    store(files::kFavourites, "n1#p1;n2#/half/a/pa", "3");
    EXPECT_EQ(readNamed(files::kFavourites),
              (std::vector{kFirst, NamedPath{QStringLiteral("n2"), QString()}, NamedPath{}}));
    store(files::kFavourites, "n1#p1;n2", "2");
    EXPECT_EQ(readNamed(files::kFavourites), (std::vector{kFirst, NamedPath{}}));
    store(files::kFavourites, "n2#", "2");
    EXPECT_EQ(readNamed(files::kFavourites),
              (std::vector{NamedPath{QStringLiteral("n2"), QString()}, NamedPath{}}));
    store(files::kRecentPaths, "/a;/half/a/pa", "2");
    EXPECT_EQ(readPaths(files::kRecentPaths), (QStringList{QStringLiteral("/a"), QString()}));
}

TEST_F(TextListTest, ARecordWithoutItsEndDoesNotSwallowTheNext)
{
    store(files::kFavourites, "n1#p1;x#/half/a/pa", "2");
    addNamed(files::kFavourites, kSecond);
    EXPECT_EQ(readNamed(files::kFavourites),
              (std::vector{kFirst, NamedPath{QStringLiteral("x"), QStringLiteral("/half/a/pa")},
                           kSecond}));
    store(files::kRecentPaths, "/a;/half/a/pa", "2");
    addPath(files::kRecentPaths, QStringLiteral("/b"));
    EXPECT_EQ(
        readPaths(files::kRecentPaths),
        (QStringList{QStringLiteral("/a"), QStringLiteral("/half/a/pa"), QStringLiteral("/b")}));
}

TEST_F(TextListTest, CountsOnFromAnyNumber)
{
    store(files::kRecentPaths, "", "1e300");
    addPath(files::kRecentPaths, QStringLiteral("/a"));
    EXPECT_EQ(config.read(QStringLiteral("Xno")), QStringLiteral("1000000000000001"));
    store(files::kRecentPaths, "", "-1e999");
    EXPECT_TRUE(readPaths(files::kRecentPaths).isEmpty());
    addPath(files::kRecentPaths, QStringLiteral("/a"));
    EXPECT_EQ(config.read(QStringLiteral("Xno")), QStringLiteral("-999999999999999"));
}

TEST_F(TextListTest, EmptiesAListByWritingItAnew)
{
    store(files::kRecentPaths, "/a;", "1");
    rewrite(files::kRecentPaths, QString());
    EXPECT_EQ(bytesOf(files::kRecentPaths), "");
}

TEST_F(TextListTest, KeepsRecordsWholeOnAFullDisk)
{
    addNamed(files::kFavourites, kFirst);
    {
        const support::FullDisk disk(8);
        addNamed(files::kFavourites, kSecond);
    }
    EXPECT_EQ(bytesOf(files::kFavourites), "n1#p1;");
    EXPECT_EQ(config.read(QStringLiteral("No")), QStringLiteral("1"));
    addNamed(files::kFavourites, kSecond);
    EXPECT_EQ(readNamed(files::kFavourites), (std::vector{kFirst, kSecond}));
}

TEST_F(TextListTest, StaysOnADiskThatFailsLate)
{
    addNamed(files::kFavourites, kFirst);
    support::UnrulyDisk disk;
    disk.syncError = ENOSPC;
    renameEntry(files::kFavourites, kFirst, QStringLiteral("other"));
    EXPECT_EQ(bytesOf(files::kFavourites), "n1#p1;");
    disk.losesBytes = false;
    addNamed(files::kFavourites, kSecond);
    EXPECT_EQ(bytesOf(files::kFavourites), "n1#p1;");
    EXPECT_EQ(config.read(QStringLiteral("No")), QStringLiteral("1"));
}
