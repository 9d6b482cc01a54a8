#include "core/config_store.h"

#include <gtest/gtest.h>

namespace {

class OneValue : public core::ConfigStore {
public:
    [[nodiscard]] QString read(const QString& /*key*/) const override { return value; }
    void write(const QString& /*key*/, const QString& text) override { value = text; }

    QString value = QStringLiteral("ERROR");
};

} // namespace

TEST(ConfigStore, ReadsNumbersByLeadingDigits)
{
    OneValue store;
    EXPECT_EQ(store.readNumber("k"), 0);
    store.value = "60 pixels";
    EXPECT_EQ(store.readNumber("k"), 60);
}

TEST(ConfigStore, ReadsColoursStrictly)
{
    OneValue store;
    EXPECT_EQ(store.readColour("k"), std::nullopt);
    store.value = "12 and more";
    EXPECT_EQ(store.readColour("k"), std::nullopt);
    store.value = "14445906";
    EXPECT_EQ(store.readColour("k"), base::Colour(14445906));
    store.value = core::colourText(base::Colour(0x8000000F));
    EXPECT_EQ(store.value, "-2147483633");
    EXPECT_EQ(store.readColour("k"), base::Colour(0x8000000F));
}

TEST(ConfigStore, TakesForTrueWhatIsTrueOrANumberButZero)
{
    OneValue store;
    EXPECT_FALSE(store.readBoolean("k"));
    for (const char* text : {"true", "True", "-1", "1", "2"}) {
        store.value = text;
        EXPECT_TRUE(store.readBoolean("k")) << text;
    }
    for (const char* text : {"False", "0", "yes", ""}) {
        store.value = text;
        EXPECT_FALSE(store.readBoolean("k")) << text;
    }
}
