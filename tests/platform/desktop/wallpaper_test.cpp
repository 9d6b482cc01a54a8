#include "platform/desktop/wallpaper.h"

#include "platform/desktop/qt_desktop.h"
#include "support/temp_tree.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <vector>

using platform::showWallpaper;
using platform::WallpaperStyle;

namespace {

// A session without a bus, whose search path holds nothing but the stand-ins for the desktop's
// programs. Each of them writes how it was called to a file.
class WallpaperPrograms : public testing::Test {
protected:
    WallpaperPrograms()
    {
        for (const char* const variable :
             {"XDG_CURRENT_DESKTOP", "XDG_SESSION_DESKTOP", "DESKTOP_SESSION"}) {
            tree.setVariable(variable, "");
        }
        tree.setVariable("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        tree.setVariable("PATH", tree.native("bin"));
    }

    void addProgram(const std::string& name, const std::string& then = "") const
    {
        const std::string script = "#!/bin/sh\nprintf '%s|' " + name + " \"$@\" >> " +
                                   tree.native("calls") + "\necho >> " + tree.native("calls") +
                                   "\n" + then + "\n";
        tree.add({"bin/" + name, script});
        ::chmod(tree.native("bin/" + name).c_str(), 0755);
    }

    // Shows the picture on a desktop of this name; what was called for it.
    std::string callsOn(const std::string& desktop,
                        std::optional<WallpaperStyle> style = WallpaperStyle::Center)
    {
        tree.setVariable("XDG_CURRENT_DESKTOP", desktop);
        tree.remove("calls");
        shown = showWallpaper({tree.path("my picture's.bmp"), style});
        return tree.content("calls");
    }

    [[nodiscard]] std::string address() const
    {
        return "file://" + tree.native("my%20picture%27s.bmp");
    }

    support::TempTree tree{{"my picture's.bmp", "pixels"}, {"bin/"}};
    bool shown = false;
};

std::string gsettings(const std::string& schema, const std::string& key, const std::string& value)
{
    return "gsettings|set|" + schema + "|" + key + "|'" + value + "'|\n";
}

std::string gnomeCalls(const std::string& style, const std::string& address)
{
    const std::string schema = "org.gnome.desktop.background";
    return gsettings(schema, "picture-uri", "") + gsettings(schema, "picture-uri-dark", "") +
           gsettings(schema, "picture-options", style) + gsettings(schema, "picture-uri", address) +
           gsettings(schema, "picture-uri-dark", address);
}

struct Styled {
    WallpaperStyle style;
    const char* gsettings;
    const char* fileManager;
};

constexpr Styled kStyled[] = {{WallpaperStyle::Center, "centered", "center"},
                              {WallpaperStyle::Tile, "wallpaper", "tile"},
                              {WallpaperStyle::Stretch, "stretched", "stretch"}};

} // namespace

TEST_F(WallpaperPrograms, GivesGnomeNothingThenThePictureForBothLooks)
{
    addProgram("gsettings");
    for (const Styled& row : kStyled) {
        EXPECT_EQ(callsOn("GNOME", row.style), gnomeCalls(row.gsettings, address()));
        EXPECT_TRUE(shown);
    }
}

TEST_F(WallpaperPrograms, GivesMateAPathAndCinnamonAnAddress)
{
    addProgram("gsettings");
    for (const Styled& row : kStyled) {
        const std::string mate = "org.mate.background";
        EXPECT_EQ(callsOn("MATE", row.style),
                  gsettings(mate, "picture-filename", "") +
                      gsettings(mate, "picture-options", row.gsettings) +
                      gsettings(mate, "picture-filename", tree.native("my picture\\'s.bmp")));
        EXPECT_TRUE(shown);
        const std::string cinnamon = "org.cinnamon.desktop.background";
        EXPECT_EQ(callsOn("X-Cinnamon", row.style),
                  gsettings(cinnamon, "picture-uri", "") +
                      gsettings(cinnamon, "picture-options", row.gsettings) +
                      gsettings(cinnamon, "picture-uri", address()));
        EXPECT_TRUE(shown);
    }
}

TEST_F(WallpaperPrograms, AsksTheFileManagerThatDrawsTheBackground)
{
    addProgram("pcmanfm-qt");
    addProgram("pcmanfm");
    for (const Styled& row : kStyled) {
        for (const auto& [desktop, program] :
             {std::pair("LXQt", "pcmanfm-qt"), std::pair("LXDE", "pcmanfm")}) {
            EXPECT_EQ(callsOn(desktop, row.style),
                      std::string(program) + "|--wallpaper-mode=color|\n" + program +
                          "|--set-wallpaper=" + tree.native("my picture's.bmp") +
                          "|--wallpaper-mode=" + row.fileManager + "|\n");
            EXPECT_TRUE(shown);
        }
    }
}

TEST_F(WallpaperPrograms, KeepsTheStyleThatTheDesktopHas)
{
    addProgram("gsettings");
    addProgram("pcmanfm-qt");
    EXPECT_EQ(callsOn("GNOME", std::nullopt).find("picture-options"), std::string::npos);
    EXPECT_TRUE(shown);
    EXPECT_EQ(callsOn("LXQt", std::nullopt),
              "pcmanfm-qt|--set-wallpaper=" + tree.native("my picture's.bmp") + "|\n");
}

TEST_F(WallpaperPrograms, KnowsTheDesktopByAnyOfItsNames)
{
    addProgram("gsettings");
    addProgram("pcmanfm-qt");
    for (const char* const gnome :
         {"gnome", "ubuntu:GNOME", "Budgie:GNOME", "GNOME-Flashback:GNOME", "pop:GNOME", "Pantheon",
          "Unity:Unity7:ubuntu", "GNOME-Classic"}) {
        EXPECT_EQ(callsOn(gnome), gnomeCalls("centered", address())) << gnome;
    }
    EXPECT_NE(callsOn("Unheard:LXQt"), "");
    EXPECT_NE(callsOn("Cinnamon"), "");
}

TEST_F(WallpaperPrograms, KnowsOlderSessionsByTheirFile)
{
    addProgram("gsettings");
    tree.setVariable("DESKTOP_SESSION", "/usr/share/xsessions/mate");
    EXPECT_NE(callsOn("").find("org.mate.background"), std::string::npos);
    tree.setVariable("XDG_SESSION_DESKTOP", "gnome-xorg");
    EXPECT_EQ(callsOn(""), gnomeCalls("centered", address()));
}

TEST_F(WallpaperPrograms, LeavesDesktopsThatItDoesNotKnow)
{
    addProgram("gsettings");
    addProgram("pcmanfm-qt");
    for (const char* const unknown : {"", "Unheard", ":", "i3", "-", "gnomeish"}) {
        EXPECT_EQ(callsOn(unknown), "") << unknown;
        EXPECT_FALSE(shown);
    }
}

TEST_F(WallpaperPrograms, DoesWithoutTheProgram)
{
    for (const char* const desktop : {"GNOME", "MATE", "X-Cinnamon", "LXQt", "XFCE", "KDE"}) {
        EXPECT_EQ(callsOn(desktop), "");
        EXPECT_FALSE(shown) << desktop;
    }
}

TEST_F(WallpaperPrograms, PassesOverKeysThatTheDesktopDoesNotHave)
{
    addProgram("gsettings", "test \"$3\" != picture-uri-dark");
    EXPECT_EQ(callsOn("GNOME"), gnomeCalls("centered", address()));
    EXPECT_TRUE(shown);
    addProgram("gsettings", "exit 1");
    EXPECT_EQ(callsOn("GNOME"), gnomeCalls("centered", address()));
    EXPECT_FALSE(shown);
}

TEST_F(WallpaperPrograms, LeavesAProgramThatHangs)
{
    addProgram("gsettings", "exec /bin/sleep 1000");
    EXPECT_EQ(callsOn("GNOME"), gsettings("org.gnome.desktop.background", "picture-uri", ""));
    EXPECT_FALSE(shown);
    addProgram("pcmanfm-qt", "exec /bin/sleep 1000");
    EXPECT_EQ(callsOn("LXQt"), "pcmanfm-qt|--wallpaper-mode=color|\n");
    EXPECT_FALSE(shown);
}

TEST_F(WallpaperPrograms, DoesNotMindWhatAProgramSays)
{
    addProgram("gsettings", "echo said; echo said >&2; test -t 0 || read line || true");
    EXPECT_EQ(callsOn("GNOME"), gnomeCalls("centered", address()));
    EXPECT_TRUE(shown);
}

TEST_F(WallpaperPrograms, AsksNobodyToShowWhatIsNoFile)
{
    addProgram("gsettings");
    tree.setVariable("XDG_CURRENT_DESKTOP", "GNOME");
    for (const char* const name : {"none.bmp", "bin"}) {
        EXPECT_FALSE(showWallpaper({tree.path(name), WallpaperStyle::Tile}));
    }
    EXPECT_FALSE(tree.exists("calls"));
}

TEST_F(WallpaperPrograms, IsWhatTheDesktopIsAskedFor)
{
    addProgram("gsettings");
    tree.setVariable("XDG_CURRENT_DESKTOP", "GNOME");
    platform::QtDesktop desktop;
    EXPECT_TRUE(desktop.setWallpaper(tree.path("my picture's.bmp"), WallpaperStyle::Stretch));
    EXPECT_EQ(tree.content("calls"), gnomeCalls("stretched", address()));
}
