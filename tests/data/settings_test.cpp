#include "platform/os/profile.h"

#include <QString>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace {

QString delivered(const char* key)
{
    return platform::readProfile(QStringLiteral(DELIVERED_SETTINGS), QStringLiteral("QUILLPOST"),
                                 QString::fromLatin1(key), QStringLiteral("ERROR"));
}

TEST(DeliveredSettings, StartWithTheBrowserAndFittedPictures)
{
    EXPECT_EQ(delivered("ObcBrowse"), "1");
    EXPECT_EQ(delivered("BestFit"), "1");
}

TEST(DeliveredSettings, KeepPanViewAndZoomToolAwayAndScrollBarsAutomatic)
{
    EXPECT_EQ(delivered("Panview"), "1");
    EXPECT_EQ(delivered("fastZoomshow"), "1");
    EXPECT_EQ(delivered("Scrollshow"), "0");
}

TEST(DeliveredSettings, AreInTheRangeThatTheirReadersTake)
{
    const int size = delivered("BrowserSize").toInt();
    EXPECT_EQ(size % 10, 0);
    EXPECT_TRUE(size >= 10 && size <= 300) << size;
    const int preset = delivered("BrowserColor").toInt();
    EXPECT_TRUE(preset >= 0 && preset <= 5) << preset;
    for (const char* const key : {"EditorColor", "InterfaceColor"}) {
        bool number = false;
        const int colour = delivered(key).toInt(&number);
        EXPECT_TRUE(number && colour >= 0 && colour <= 0xFFFFFF) << key;
    }
}

TEST(DeliveredSettings, AreAtHomeInNoUsersFolderAndListNothing)
{
    EXPECT_EQ(delivered("InterfaceB"), "True");
    EXPECT_EQ(delivered("SpeciFolder"), "");
    for (const char* const key : {"WinState", "No", "Sno", "Xno"}) {
        EXPECT_EQ(delivered(key), "0") << key;
    }
}

class CopyOnce : public testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directories(folder); }
    void TearDown() override { std::filesystem::remove_all(folder); }

    int copy() const
    {
        const std::string command = std::string(CMAKE_PROGRAM) + " -D SOURCE=" DELIVERED_SETTINGS +
                                    " -D TARGET=" + target.string() + " -P " COPY_ONCE_SCRIPT;
        return std::system(command.c_str());
    }

    std::string content() const
    {
        std::ostringstream text;
        text << std::ifstream(target).rdbuf();
        return text.str();
    }

    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("copy_once_" + std::to_string(getpid()));
    std::filesystem::path target = folder / "config.ini";
};

TEST_F(CopyOnce, BringsTheSettingsToAFolderWithoutThem)
{
    ASSERT_EQ(copy(), 0);
    EXPECT_NE(content().find("[QUILLPOST]"), std::string::npos);
}

TEST_F(CopyOnce, LeavesTheUsersSettingsAlone)
{
    std::ofstream(target) << "[QUILLPOST]\nBrowserSize=200\n";
    ASSERT_EQ(copy(), 0);
    EXPECT_EQ(content(), "[QUILLPOST]\nBrowserSize=200\n");
}

} // namespace
