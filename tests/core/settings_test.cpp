#include "core/settings.h"

#include "core/services.h"
#include "support/memory_config_store.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

class SettingsTest : public testing::Test {
protected:
    QString& text(const char* name) { return m_config.values[QString::fromLatin1(name)]; }

    support::MemoryConfigStore m_config;
};

struct SwitchCase {
    core::SwitchKey key;
    const char* on;
    const char* off;
    bool missing; // what it is where there is no key
};

constexpr SwitchCase kSwitches[] = {
    {core::kBrowseMode, "1", "0", false},     {core::kBestFit, "1", "0", false},
    {core::kPanView, "0", "1", true},         {core::kScrollBars, "0", "1", true},
    {core::kZoomTool, "0", "1", true},        {core::kAskToImport, "1", "0", false},
    {core::kOwnLook, "True", "False", false}, {core::kClassic, "1", "0", false},
};

constexpr core::NumberKey kNumber{"k"};
constexpr core::ChoiceKey kChoice{"k", 6};
constexpr core::ColourKey kColour{"k"};
constexpr core::FolderKey kFolder{"k"};

} // namespace

TEST(SettingNames, AreAllDifferentWhateverTheirCase)
{
    std::set<std::string> names;
    for (const char* const name : core::kSettingNames) {
        EXPECT_TRUE(names.insert(QString::fromLatin1(name).toLower().toStdString()).second) << name;
    }
}

TEST_F(SettingsTest, SwitchesKeepTheTextThatMeansOn)
{
    for (const SwitchCase& row : kSwitches) {
        core::store(row.key, true);
        EXPECT_EQ(text(row.key.name), row.on) << row.key.name;
        EXPECT_TRUE(core::setting(row.key)) << row.key.name;
        core::store(row.key, false);
        EXPECT_EQ(text(row.key.name), row.off) << row.key.name;
        EXPECT_FALSE(core::setting(row.key)) << row.key.name;
    }
}

TEST_F(SettingsTest, ColoursInWordsReadAsNone)
{
    core::store(kColour, base::rgb(82, 109, 220));
    core::storeInWords(kColour, base::rgb(82, 109, 220));
    EXPECT_EQ(text(kColour.name), "RGB(82, 109, 220)");
    EXPECT_EQ(core::setting(kColour), std::nullopt);
}

TEST_F(SettingsTest, SwitchesThatAreMissingAreOnWhereZeroMeansOn)
{
    for (const SwitchCase& row : kSwitches) {
        EXPECT_EQ(core::setting(row.key), row.missing) << row.key.name;
    }
    core::services().config = nullptr;
    for (const SwitchCase& row : kSwitches) {
        EXPECT_EQ(core::setting(row.key), row.missing) << row.key.name;
    }
}

TEST_F(SettingsTest, SwitchesTakeNumbersByTheirLeadingDigits)
{
    text(core::kBestFit.name) = "2 or so";
    EXPECT_TRUE(core::setting(core::kBestFit));
    text(core::kPanView.name) = "x";
    EXPECT_TRUE(core::setting(core::kPanView));
    text(core::kPanView.name) = "2";
    EXPECT_FALSE(core::setting(core::kPanView));
    text(core::kAskToImport.name) = "2";
    EXPECT_FALSE(core::setting(core::kAskToImport)) << "one alone asks";
}

TEST_F(SettingsTest, TheLookIsOnForTrueOrANumberButZero)
{
    for (const char* yes : {"true", "True", "-1", "1", "2"}) {
        text(core::kOwnLook.name) = yes;
        EXPECT_TRUE(core::setting(core::kOwnLook)) << yes;
    }
    for (const char* no : {"False", "0", "yes", ""}) {
        text(core::kOwnLook.name) = no;
        EXPECT_FALSE(core::setting(core::kOwnLook)) << no;
    }
}

TEST_F(SettingsTest, ReadsNumbersByLeadingDigits)
{
    EXPECT_EQ(core::setting(kNumber), 0);
    text("k") = "60 pixels";
    EXPECT_EQ(core::setting(kNumber), 60);
    core::store(kNumber, -1000000000000);
    EXPECT_EQ(text("k"), "-1000000000000");
}

TEST_F(SettingsTest, ReadsChoicesByTheirOneDigit)
{
    EXPECT_EQ(core::setting(kChoice), 0);
    core::store(kChoice, 5);
    EXPECT_EQ(text("k"), "5");
    EXPECT_EQ(core::setting(kChoice), 5);
    for (const char* other : {"6", "05", "5 ", "-1", "x", "/", ""}) {
        text("k") = other;
        EXPECT_EQ(core::setting(kChoice), 0) << other;
    }
}

TEST_F(SettingsTest, ReadsColoursStrictly)
{
    EXPECT_EQ(core::setting(kColour), std::nullopt);
    text("k") = "12 and more";
    EXPECT_EQ(core::setting(kColour), std::nullopt);
    text("k") = "14445906";
    EXPECT_EQ(core::setting(kColour), base::Colour(14445906));
    core::store(kColour, base::Colour(0x8000000F));
    EXPECT_EQ(text("k"), "-2147483633");
    EXPECT_EQ(core::setting(kColour), base::Colour(0x8000000F));
}

TEST_F(SettingsTest, ReadsAFolderAsItStandsAndAMissingOneAsNone)
{
    EXPECT_EQ(core::setting(kFolder), "");
    core::store(kFolder, "/home/me/Pictures ");
    EXPECT_EQ(text("k"), "/home/me/Pictures ");
    EXPECT_EQ(core::setting(kFolder), "/home/me/Pictures ");
}

TEST(Settings, StoreNothingWithoutAStore)
{
    core::store(core::kBestFit, true);
    EXPECT_FALSE(core::setting(core::kBestFit));
}
