#include "shell/config_store.h"

#include "core/services.h"
#include "core/settings.h"
#include "support/temp_tree.h"

#include <gtest/gtest.h>

namespace {

class ConfigStoreTest : public testing::Test {
protected:
    ConfigStoreTest() { core::services().config = &config; }
    ~ConfigStoreTest() override { core::services().config = nullptr; }

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

} // namespace

TEST_F(ConfigStoreTest, ReadsErrorWithoutAFileAndMakesItOnWriting)
{
    EXPECT_EQ(config.read(kBestFit), QStringLiteral("ERROR"));
    EXPECT_FALSE(core::setting(core::kBestFit));
    config.write(kBestFit, QStringLiteral("1"));
    EXPECT_EQ(config.read(QStringLiteral("bestFIT")), QStringLiteral("1"));
    EXPECT_TRUE(file().contains("[QUILLPOST]"));
}

TEST_F(ConfigStoreTest, SeesWhatAnotherProcessWroteMeanwhile)
{
    put("BrowserSize=1\n");
    EXPECT_EQ(core::setting(core::kThumbnailSize), 1);
    put("BrowserSize=2\n");
    EXPECT_EQ(core::setting(core::kThumbnailSize), 2);
}

TEST_F(ConfigStoreTest, ComparesNumbersByTheirLeadingDigits)
{
    for (const char* zero : {"abc", "", "0.0", "0"}) {
        put(QByteArray("BestFit=") + zero + "\n");
        EXPECT_FALSE(core::setting(core::kBestFit)) << zero;
    }
}

TEST_F(ConfigStoreTest, ReadsTheLookAsABoolean)
{
    for (const char* yes : {"True", "true", "1", "-1", "2"}) {
        put(QByteArray("InterfaceB=") + yes + "\n");
        EXPECT_TRUE(core::setting(core::kOwnLook)) << yes;
    }
    for (const char* no : {"False", "0", "ERROR", "x"}) {
        put(QByteArray("InterfaceB=") + no + "\n");
        EXPECT_FALSE(core::setting(core::kOwnLook)) << no;
    }
}

TEST_F(ConfigStoreTest, TakesOnlyWholeNumbersForColours)
{
    put("EditorColor=14445906\n");
    EXPECT_EQ(core::setting(core::kViewerColour), 14445906U);
    put("EditorColor=RGB(82, 109, 220)\n");
    EXPECT_EQ(config.read("EditorColor"), QStringLiteral("RGB(82, 109, 220)"));
    EXPECT_FALSE(core::setting(core::kViewerColour));
    put("EditorColor=-2147483633\n");
    EXPECT_EQ(core::setting(core::kViewerColour), 0x8000000FU);
}

TEST_F(ConfigStoreTest, LeavesEveryOtherLineAlone)
{
    put("; a comment\nOther = kept \nnonsense\n\nBestFit=0\n[Else]\nBestFit=9\n");
    config.write(kBestFit, QStringLiteral("1"));
    EXPECT_EQ(file(), "[QUILLPOST]\n; a comment\nOther = kept \nnonsense\n\nBestFit=1\n[Else]\n"
                      "BestFit=9\n");
}
