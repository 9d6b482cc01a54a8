#include "platform/os/desktop_menu.h"

#include "platform/os/desktop_entry.h"
#include "support/temp_tree.h"

#include <QDeadlineTimer>
#include <QThread>
#include <gtest/gtest.h>

using platform::DesktopEntry;
using support::TempTree;

namespace {

std::string settingsEntry(const std::string& rest)
{
    return "[Desktop Entry]\nType=Application\nCategories=X;Settings;\n" + rest;
}

QStringList settingsNames()
{
    QStringList names;
    for (const platform::MenuItem& item : platform::menuItemsOf(QStringLiteral("Settings"))) {
        names.append(item.name);
    }
    names.sort();
    return names;
}

class DesktopMenu : public testing::Test {
protected:
    DesktopMenu()
    {
        m_tree.setVariable("XDG_DATA_DIRS", m_tree.native("system"));
        m_tree.setVariable("XDG_CURRENT_DESKTOP", "Ours:Other");
        m_tree.setVariable("LC_ALL", "de_AT.UTF-8");
    }

    void system(const std::string& file, const std::string& text)
    {
        m_tree.add({"system/applications/" + file, text});
    }

    TempTree m_tree;
};

} // namespace

TEST(DesktopEntry, HasTheValuesOfItsOwnGroup)
{
    const DesktopEntry entry("# a comment\nStray=1\n[Desktop Entry]\r\nName = Sound\\sand\\\\more\n"
                             "#Name=No\nCategories=A;;B;\nHidden=true\n[Other]\nExec=no\n");
    EXPECT_EQ(entry.value("Name"), "Sound and\\more");
    EXPECT_EQ(entry.list("Categories"), QStringList({"A", "B"}));
    EXPECT_TRUE(entry.isTrue("Hidden"));
    EXPECT_EQ(entry.value("Exec"), "");
    EXPECT_EQ(entry.value("Stray"), "");
}

TEST(DesktopEntry, PrefersTheMostParticularLanguage)
{
    const DesktopEntry entry("[Desktop Entry]\nName=n\nName[de]=d\nName[de_AT]=a\nName[sr@x]=s\n");
    EXPECT_EQ(entry.localValue("Name", "de_AT.UTF-8"), "a");
    EXPECT_EQ(entry.localValue("Name", "de_DE.UTF-8"), "d");
    EXPECT_EQ(entry.localValue("Name", "sr_RS.UTF-8@x"), "s");
    EXPECT_EQ(entry.localValue("Name", "C"), "n");
    EXPECT_EQ(entry.localValue("Name", ""), "n");
}

TEST(DesktopEntry, TellsTheLineThatStartsItsProgram)
{
    const auto line = [](const QByteArray& exec) {
        const DesktopEntry entry("[Desktop Entry]\nName=N\nIcon=I\nExec=" + exec + "\n");
        return platform::launchLine(entry, "/f.desktop");
    };
    EXPECT_EQ(line("panel  sound --on"), QStringList({"panel", "sound", "--on"}));
    EXPECT_EQ(line(R"("/a b/panel" "" "x\\"y\\\\z" c"d e")"),
              QStringList({"/a b/panel", "", R"(x"y\z)", "cd e"}));
    EXPECT_EQ(line("p %U %f %i %c %k %m 100%% %"),
              QStringList({"p", "--icon", "I", "N", "/f.desktop", "100%", "%"}));
    EXPECT_EQ(line(""), QStringList());
    EXPECT_EQ(line("p \"open"), QStringList());
}

TEST_F(DesktopMenu, StartsAProgramByItsLine)
{
    m_tree.add(
        {"ran.desktop", settingsEntry("Exec=mkdir \"" + m_tree.native("made here") + "\"\n")});
    m_tree.add({"none.desktop", settingsEntry("Exec=no-such-program-here\n")});
    m_tree.add({"empty.desktop", settingsEntry("")});
    EXPECT_TRUE(platform::startMenuItem(m_tree.path("ran.desktop")));
    const QDeadlineTimer patience(20000);
    while (!m_tree.exists("made here") && !patience.hasExpired()) {
        QThread::msleep(5);
    }
    EXPECT_TRUE(m_tree.exists("made here"));
    for (const char* const name : {"none.desktop", "empty.desktop", "missing.desktop"}) {
        EXPECT_FALSE(platform::startMenuItem(m_tree.path(name))) << name;
    }
}

TEST_F(DesktopMenu, OffersWhatTheDesktopShows)
{
    system("a.desktop", settingsEntry("Name=Plain\nName[de]=Deutsch\n"));
    system("deep/b.desktop", settingsEntry("Name=Deep\n"));
    system("only.desktop", settingsEntry("Name=Only\nOnlyShowIn=Other;\n"));
    system("try.desktop", settingsEntry("Name=Try\nTryExec=sh\n"));
    system("c.desktop", settingsEntry("Name=Elsewhere\nOnlyShowIn=Third;\n"));
    system("d.desktop", settingsEntry("Name=NotHere\nNotShowIn=Ours;\n"));
    system("e.desktop", settingsEntry("Name=Unshown\nNoDisplay=true\n"));
    system("f.desktop", settingsEntry("Name=Hidden\nHidden=true\n"));
    system("g.desktop", settingsEntry("Name=Missing\nTryExec=no-such-program-here\n"));
    system("h.desktop", "[Desktop Entry]\nType=Application\nCategories=SettingsX;\nName=No\n");
    system("i.desktop", "[Desktop Entry]\nType=Link\nCategories=Settings;\nName=Link\n");
    system("k.txt", settingsEntry("Name=Text\n"));
    EXPECT_EQ(settingsNames(), QStringList({"Deep", "Deutsch", "Only", "Try"}));
}

TEST_F(DesktopMenu, LetsTheUsersFileStandForTheSystems)
{
    system("a.desktop", settingsEntry("Name=Theirs\n"));
    system("sub/b.desktop", settingsEntry("Name=Taken away\n"));
    m_tree.add({"data/applications/a.desktop", settingsEntry("Name=Mine\n")});
    m_tree.add({"data/applications/sub-b.desktop", settingsEntry("Name=B\nHidden=true\n")});
    EXPECT_EQ(settingsNames(), QStringList({"Mine"}));
}
