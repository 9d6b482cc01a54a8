#include "core/window_names.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

TEST(WindowNames, AreAllDifferent)
{
    EXPECT_EQ(std::set<std::string>(core::kWindowNames.begin(), core::kWindowNames.end()).size(),
              core::kWindowCount);
}

TEST(WindowNames, StandInTheOrderOfTheWindows)
{
    EXPECT_EQ(core::windowName(core::Window::frmThumbnaillist), "frmThumbnaillist");
    EXPECT_EQ(core::windowName(core::Window::Form4), "Form4");
    EXPECT_EQ(core::windowName(core::Window::frmCaputreN), "frmCaputreN");
    EXPECT_EQ(core::windowName(core::Window::frmSaveJPGc), "frmSaveJPGc");
    EXPECT_EQ(core::windowName(core::Window::frmWelcome), "frmWelcome");
    EXPECT_EQ(core::windowName(core::Window::FilePreivew), "FilePreivew");
    EXPECT_EQ(core::windowName(core::Window::Form1), "Form1");
}
