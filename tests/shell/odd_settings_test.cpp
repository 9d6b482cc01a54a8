#include "core/settings.h"
#include "core/state.h"
#include "platform/desktop/pointer.h"
#include "shell/menus.h"
#include "shell/running_program.h"
#include "viewer/picture_viewer.h"

#include <QAction>
#include <QFile>
#include <gtest/gtest.h>

namespace {

struct Nonsense {
    const char* what;
    std::string value;
};

const std::vector<Nonsense>& nonsense()
{
    static const std::vector<Nonsense> values{
        {"text", "abc"},
        {"nothing", ""},
        {"blanks", "   "},
        {"negative", "-1"},
        {"lowest integer", "-2147483648"},
        {"beyond 32 bits", "4294967297"},
        {"beyond 64 bits", "99999999999999999999999999"},
        {"huge exponent", "1e308"},
        {"infinite", "1e999"},
        {"no number", "nan"},
        {"fraction", "0.5"},
        {"number and text", "30 pixels"},
        {"NULs", std::string("1\0002\0003", 5)},
        {"broken UTF-8", "\xff\xfe\xc3"},
        {"section", "[QUILLPOST]"},
        {"equals", "=1=2="},
        {"quotes", "\"1\""},
        {"percent", "%s%n%99999d"},
        {"path", "/../../../../dev/zero"},
        {"long line", std::string(10240, '7')},
        {"long text", std::string(10240, 'x')},
    };
    return values;
}

class OddSettingsTest : public testing::Test {
protected:
    // What a user does first: looks at pictures, and switches everything there is to switch.
    static void use(RunningProgram& program, Form1& form)
    {
        if (!core::state().BrowserShown) {
            form.OCbrowse();
        }
        form.setXiala(program.picture("b.bmp"));
        form.clickXiala();
        EXPECT_EQ(form.cpvPicScroll1().PictureWidth(), 50);
        for (int twice = 0; twice < 2; ++twice) {
            for (const auto& [array, index] : {std::pair("optView", 3),
                                               {"optView", 11},
                                               {"optView", 12},
                                               {"optView", 13},
                                               {"optView", 15},
                                               {"optTools", 3},
                                               {"optTools", 4},
                                               {"optTools", 5}}) {
                RunningProgram::trigger(form, array, index);
            }
        }
        RunningProgram::trigger(form, "MnuThumbsize", 5);
        RunningProgram::trigger(form, "ThumbnailColorPreset", 2);
        EXPECT_EQ(program.stored("BrowserSize"), QStringLiteral("60"));
        EXPECT_EQ(program.stored("BrowserColor"), QStringLiteral("2"));
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    }
};

} // namespace

TEST_F(OddSettingsTest, StartsWithNonsenseInEveryKey)
{
    for (const Nonsense& odd : nonsense()) {
        SCOPED_TRACE(odd.what);
        RunningProgram program;
        program.config.clear();
        std::string file = "[QUILLPOST]\n";
        for (const char* const key : core::kSettingNames) {
            file += std::string(key) + "=" + odd.value + "\n";
        }
        program.tree.add({"app/config.ini", file});
        program.run([&](Form1& form) { use(program, form); });
        EXPECT_TRUE(program.dialogs.boxes.empty());
    }
}

TEST_F(OddSettingsTest, StartsWithAFileThatIsNoSettingsFile)
{
    std::string noise;
    for (int i = 0; i < 100000; ++i) {
        noise.push_back(static_cast<char>(i * 7919 >> 3));
    }
    for (const std::string& file :
         {std::string(), std::string("\0\0\0\0", 4), std::string("\n\n\n"), std::string("[["),
          std::string("[QUILLPOST"), std::string("\xEF\xBB\xBF[QUILLPOST]\r\nBestFit=1"), noise}) {
        SCOPED_TRACE(file.substr(0, 12));
        RunningProgram program;
        program.config.clear();
        program.tree.add({"app/config.ini", file});
        program.run([&](Form1& form) { use(program, form); });
        EXPECT_TRUE(program.dialogs.boxes.empty());
    }
}

TEST_F(OddSettingsTest, StartsWithNonsenseInItsListFiles)
{
    for (const Nonsense& odd : nonsense()) {
        SCOPED_TRACE(odd.what);
        RunningProgram program;
        program.config[QStringLiteral("No")] = QStringLiteral("30000");
        program.config[QStringLiteral("Xno")] = QStringLiteral("30000");
        program.config[QStringLiteral("Sno")] = QStringLiteral("30000");
        for (const char* const name :
             {"app/testfile.txt", "app/SwitchName.txt", "app/xialafile.txt"}) {
            program.tree.add({name, odd.value + "#" + odd.value + ";;##;" + odd.value});
        }
        program.run([&](Form1& form) {
            use(program, form);
            for (const auto& [array, index] :
                 {std::pair("mnuFav", 1), {"mnuFav", 2}, {"Dip", 4}, {"Dip", 5}}) {
                if (QAction* entry = form.menus().entry(QString::fromLatin1(array), index)) {
                    entry->trigger();
                }
            }
            EXPECT_EQ(form.cpvPicScroll1().PictureWidth(), 50);
        });
        EXPECT_TRUE(program.dialogs.boxes.empty());
    }
}

TEST_F(OddSettingsTest, WorksWithoutItsPictures)
{
    RunningProgram program;
    program.tree.remove("app/Images");
    program.run([&](Form1& form) {
        use(program, form);
        form.viewer().setPicture(form.viewer().Picture());
        for (const int entry : {2, 3, 4, 5}) {
            RunningProgram::trigger(form, "optImage", entry);
        }
        RunningProgram::trigger(form, "CmdAbout", -1);
        RunningProgram::trigger(form, "OptFav", 1);
        EXPECT_EQ(form.cpvPicScroll1().PictureWidth(), 50);
    });
    EXPECT_TRUE(program.dialogs.boxes.empty());
}
