#include "shell/config_store.h"

#include "support/temp_tree.h"

#include <gtest/gtest.h>

namespace {

class ConfigStoreTest : public testing::Test {
protected:
    void put(const QByteArray& text) const
    {
        ASSERT_TRUE(platform::writeFileWhole(tree.path("app/config.ini"), "[QUILLPOST]\n" + text));
    }
    [[nodiscard]] QByteArray file() const
    {
        return platform::readFile(tree.path("app/config.ini")).value_or("missing");
    }

    support::TempTree tree;
    shell::FileConfigStore config;
};

const QString kBestFit = QStringLiteral("BestFit");
const QString kLook = QStringLiteral("InterfaceB");
const QString kColour = QStringLiteral("EditorColor");

} // namespace

TEST_F(ConfigStoreTest, ReadsErrorWithoutAFileAndMakesItOnWriting)
{
    EXPECT_EQ(config.read(kBestFit), QStringLiteral("ERROR"));
    EXPECT_EQ(config.readNumber(kBestFit), 0);
    config.write(kBestFit, QStringLiteral("1"));
    EXPECT_EQ(config.read(QStringLiteral("bestFIT")), QStringLiteral("1"));
    EXPECT_TRUE(file().contains("[QUILLPOST]"));
}

TEST_F(ConfigStoreTest, SeesWhatAnotherProcessWroteMeanwhile)
{
    put("BestFit=1\n");
    EXPECT_EQ(config.readNumber(kBestFit), 1);
    put("BestFit=2\n");
    EXPECT_EQ(config.readNumber(kBestFit), 2);
}

TEST_F(ConfigStoreTest, ComparesNumbersByTheirLeadingDigits)
{
    for (const char* zero : {"abc", "", "0.0", "0"}) {
        put(QByteArray("BestFit=") + zero + "\n");
        EXPECT_EQ(config.readNumber(kBestFit), 0) << zero;
    }
}

TEST_F(ConfigStoreTest, ReadsTheLookAsABoolean)
{
    for (const char* yes : {"True", "true", "1", "-1", "2"}) {
        put(QByteArray("InterfaceB=") + yes + "\n");
        EXPECT_TRUE(config.readBoolean(kLook)) << yes;
    }
    for (const char* no : {"False", "0", "ERROR", "x"}) {
        put(QByteArray("InterfaceB=") + no + "\n");
        EXPECT_FALSE(config.readBoolean(kLook)) << no;
    }
}

TEST_F(ConfigStoreTest, TakesOnlyWholeNumbersForColours)
{
    put("EditorColor=14445906\n");
    EXPECT_EQ(config.readColour(kColour), 14445906U);
    put("EditorColor=RGB(82, 109, 220)\n");
    EXPECT_EQ(config.read(kColour), QStringLiteral("RGB(82, 109, 220)"));
    EXPECT_FALSE(config.readColour(kColour));
    put("EditorColor=-2147483633\n");
    EXPECT_EQ(config.readColour(kColour), 0x8000000FU);
}

TEST_F(ConfigStoreTest, LeavesEveryOtherLineAlone)
{
    put("; a comment\nOther = kept \nnonsense\n\nBestFit=0\n[Else]\nBestFit=9\n");
    config.write(kBestFit, QStringLiteral("1"));
    EXPECT_EQ(file(), "[QUILLPOST]\n; a comment\nOther = kept \nnonsense\n\nBestFit=1\n[Else]\n"
                      "BestFit=9\n");
}
