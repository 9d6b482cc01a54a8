#include "core/file_field.h"
#include "core/services.h"
#include "core/settings.h"
#include "core/state.h"
#include "core/status_bar.h"
#include "files/display_pipeline.h"
#include "formats/hooks.h"
#include "platform/desktop/clipboard.h"
#include "platform/desktop/pointer.h"
#include "platform/os/file_list.h"
#include "platform/os/paths.h"
#include "platform/os/profile.h"
#include "platform/os/registry.h"
#include "platform/pictures/picture_loader.h"
#include "shell/file_name_field.h"
#include "shell/menus.h"
#include "shell/running_program.h"
#include "shell/toolbars.h"
#include "thumbs/thumbnail_list.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QThread>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <vector>

namespace {

const QString kNoPicture = QStringLiteral("No picture to process.");

// A modal window that stays until it is told to go, as one does whose user thinks.
class StandingWindow : public QDialog {
public:
    StandingWindow()
    {
        setObjectName(QStringLiteral("standing"));
        setModal(true);
        show();
    }

private:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

class CommandsTest : public testing::Test {
protected:
    static void showPicture(Form1& form, const QString& path)
    {
        form.setXiala(path);
        form.clickXiala();
    }

    static int shownWidth(Form1& form) { return form.cpvPicScroll1().PictureWidth(); }

    // Entries whose windows would be dialogs of the desktop, or that end the program.
    static bool leavesTheProgram(const shell::MenuRow& row)
    {
        const QString array = QString::fromLatin1(row.array);
        return array == QStringLiteral("optFile") && row.index == 14;
    }

    RunningProgram program;
};

} // namespace

TEST_F(CommandsTest, SayOnceThatThereIsNoPicture)
{
    program.run([this](Form1& form) {
        for (const shell::MenuRow& row : shell::menuRows()) {
            if (row.run == nullptr || row.need != shell::Need::Picture) {
                continue;
            }
            program.dialogs.boxes.clear();
            form.menus().entry(QString::fromLatin1(row.array), row.index)->trigger();
            ASSERT_EQ(program.dialogs.boxes.size(), 1U) << row.array << ' ' << row.index;
            EXPECT_EQ(program.dialogs.boxes[0].text, kNoPicture);
            EXPECT_EQ(program.dialogs.boxes[0].icon, platform::BoxIcon::Information);
            EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        }
        for (const int index : {1, 2, 3, 4}) {
            program.dialogs.boxes.clear();
            form.toolbars().button(index)->click();
            EXPECT_EQ(program.dialogs.boxTexts(), QStringList{kNoPicture}) << index;
        }
        for (const int index : {0, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}) {
            program.dialogs.boxes.clear();
            form.toolbars().button(index)->click();
            EXPECT_TRUE(program.dialogs.boxes.empty()) << index;
        }
    });
}

TEST_F(CommandsTest, EndQuietlyWhereTheyNeedNothing)
{
    program.run([this](Form1& form) {
        for (const shell::MenuRow& row : shell::menuRows()) {
            const QString array = QString::fromLatin1(row.array);
            const bool edits = array == QStringLiteral("optImage") ||
                               array == QStringLiteral("optFilter") ||
                               array == QStringLiteral("optColor") ||
                               (array == QStringLiteral("CmdRightEdit") && row.index == 4);
            const bool openDialog = array == QStringLiteral("optFile") && row.index == 0;
            if (row.run == nullptr || row.need == shell::Need::Picture || edits || openDialog ||
                leavesTheProgram(row)) {
                continue;
            }
            program.dialogs.boxes.clear();
            if (array == QStringLiteral("optEdit") || array == QStringLiteral("CmdRightEdit")) {
                program.dialogs.yesNoAnswers.push_back(false); // delete asks
            }
            form.menus().entry(array, row.index)->trigger();
            EXPECT_FALSE(program.dialogs.boxTexts().contains(kNoPicture))
                << row.array << ' ' << row.index;
            // The screen is captured once the window has had the time to leave.
            EXPECT_TRUE(QTest::qWaitFor([] {
                return platform::pointer() == platform::Pointer::Default;
            })) << row.array
                << ' ' << row.index;
            program.dialogs.yesNoAnswers.clear();
        }
    });
}

TEST_F(CommandsTest, EditsSayThatThereIsNoPictureOnceAndNeverTheOtherText)
{
    program.run([this](Form1& form) {
        for (const int index : {2, 3, 4, 5, 7}) {
            program.dialogs.boxes.clear();
            RunningProgram::trigger(form, "optImage", index);
            EXPECT_EQ(program.dialogs.boxTexts(), QStringList{kNoPicture}) << index;
        }
        program.dialogs.boxes.clear();
        RunningProgram::trigger(form, "CmdRightEdit", 4);
        EXPECT_EQ(program.dialogs.boxTexts(), QStringList{kNoPicture});
    });
}

TEST_F(CommandsTest, SaveThePictureShownWhenToldThoughTheSlideShowGoesOn)
{
    const QString saved = program.tree.path("saved.bmp");
    int ticks = 0;
    program.run([&](Form1& form) {
        form.setXiala(program.picture("b.bmp"));
        RunningProgram::trigger(form, "optTools", 0);
        ASSERT_EQ(shownWidth(form), 50);
        program.dialogs.whileOpen = [&] {
            const StandingWindow window;
            for (ticks = 0; ticks < 4; ++ticks) {
                form.pipeline().tick();
                QApplication::processEvents();
                EXPECT_EQ(shownWidth(form), 50);
                EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
            }
        };
        program.dialogs.saveAnswers.push_back(platform::SaveChoice{saved, 1});
        RunningProgram::trigger(form, "optFile", 2);
        program.dialogs.whileOpen = {};
        EXPECT_EQ(core::state().SlideIndex, 0);
        EXPECT_TRUE(form.pipeline().isRunning());
        form.pipeline().tick();
        EXPECT_EQ(shownWidth(form), 40);
    });
    EXPECT_EQ(ticks, 4);
    const auto picture = platform::loadPicture(saved);
    ASSERT_TRUE(picture.has_value());
    EXPECT_EQ(picture->width(), 50);
    EXPECT_EQ(picture->image().pixelColor(0, 0), QColor(Qt::green));
}

TEST_F(CommandsTest, ReadNoOtherFileThoughTheSlideShowGoesOn)
{
    // Three raw planes; the reader misses a fourth and says so while it reads.
    const std::string header("8BPS\0\1\0\0\0\0\0\0\0\3\0\0\0\1\0\0\0\2\0\10\0\3", 26);
    const std::string rest("\0\0\0\0\0\0\0\0\0\0\0\0\0\0\377\377\0\0\0\0", 20);
    program.tree.add({"pics/b.psd", header + rest});
    program.run([&](Form1& form) {
        const QString path = program.tree.path("pics/b.psd");
        for (const auto& show : std::vector<std::function<void()>>{[&] { form.display_pic(); },
                                                                   [&] { form.goEnter(); },
                                                                   [&] { form.clickXiala(); }}) {
            RunningProgram::trigger(form, "optTools", 0);
            form.setXiala(path);
            program.dialogs.boxes.clear();
            program.dialogs.whileOpen = [&] {
                const StandingWindow window;
                if (program.dialogs.boxes.size() < 5) {
                    form.pipeline().tick();
                }
            };
            show();
            program.dialogs.whileOpen = {};
            EXPECT_EQ(program.dialogs.boxes.size(), 1U);
            EXPECT_EQ(core::state().SlideIndex, 0);
            EXPECT_EQ(shownWidth(form), 2);
            EXPECT_EQ(form.viewer().Picture().image().pixelColor(1, 0), QColor(Qt::red));
            RunningProgram::trigger(form, "optTools", 1);
        }
    });
}

TEST_F(CommandsTest, StepAndShowByMenuAndToolbar)
{
    program.run([this](Form1& form) {
        form.toolbars().button(5)->click();
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
        form.toolbars().button(5)->click();
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
        EXPECT_EQ(shownWidth(form), 50);
        form.toolbars().button(6)->click();
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
        RunningProgram::trigger(form, "optView", 5);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
        RunningProgram::trigger(form, "optView", 6);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
    });
}

TEST_F(CommandsTest, AskForAPictureFromThreeKeysOfTheSecondToolbar)
{
    const std::set<std::string_view> needPicture{"zoomin", "zoomout", "fullsize"};
    program.run([&](Form1& form) {
        form.setXiala(QString());
        for (const shell::KeyButtonRow& row : shell::keyButtonRows()) {
            form.stop_slideshow();
            program.dialogs.boxes.clear();
            form.viewer().Clear();
            const bool exists = form.viewer().PictureExists();
            form.toolbars().keyButton(QString::fromLatin1(row.key))->click();
            const bool asks = needPicture.contains(row.key) && !exists;
            EXPECT_EQ(program.dialogs.boxTexts(), asks ? QStringList{kNoPicture} : QStringList{})
                << row.key;
        }
    });
}

TEST_F(CommandsTest, StepByTheSecondToolbarAndGoBackToTheFirst)
{
    program.run([this](Form1& form) {
        ASSERT_TRUE(RunningProgram::File1().setListIndex(0));
        form.toolbars().keyButton(QStringLiteral("forward"))->click();
        EXPECT_EQ(shownWidth(form), 50);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
        ASSERT_TRUE(RunningProgram::File1().setListIndex(2));
        form.toolbars().keyButton(QStringLiteral("back"))->click();
        EXPECT_EQ(shownWidth(form), 50);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
    });
}

TEST_F(CommandsTest, StartTheShowWithWhatTheFieldHolds)
{
    program.run([this](Form1& form) {
        for (const char* key : {"start", ""}) {
            form.setXiala(program.picture("c.bmp"));
            if (*key != '\0') {
                form.toolbars().keyButton(QString::fromLatin1(key))->click();
            } else {
                RunningProgram::trigger(form, "optTools", 0);
            }
            EXPECT_EQ(shownWidth(form), 60);
            EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
            EXPECT_TRUE(form.pipeline().isRunning());
            EXPECT_TRUE(form.pipeline().SlideToggle());
            EXPECT_TRUE(form.toolbars().button(7)->Value());
            RunningProgram::trigger(form, "optTools", 1);
            EXPECT_FALSE(form.pipeline().isRunning());
            EXPECT_FALSE(form.pipeline().SlideToggle());
            EXPECT_FALSE(form.toolbars().button(7)->Value());
        }
    });
}

TEST_F(CommandsTest, TellTheZoom)
{
    program.run([this](Form1& form) {
        showPicture(form, program.picture("a.bmp"));
        form.toolbars().button(2)->click();
        EXPECT_EQ(form.StateBar().panel(core::Panel::Zoom), QStringLiteral("      200%"));
        form.toolbars().button(4)->click();
        EXPECT_EQ(form.StateBar().panel(core::Panel::Zoom), QStringLiteral("      100%"));
    });
}

TEST_F(CommandsTest, StartTheSeparateEditorFromEachOfItsEntries)
{
    program.run([this](Form1& form) {
        showPicture(form, program.picture("a.bmp"));
        RunningProgram::trigger(form, "optEdit", 15);
        RunningProgram::trigger(form, "Dip", 3);
        RunningProgram::pressKey(form, Qt::Key_F10);
        ASSERT_EQ(program.desktop.started.size(), 3U);
        EXPECT_EQ(program.desktop.started[0], program.desktop.started[1]);
        EXPECT_EQ(program.desktop.started[0], program.desktop.started[2]);
        EXPECT_EQ(program.stored("Filter"), QStringLiteral("ERROR"));
    });
}

TEST_F(CommandsTest, MakeThePictureTheWallpaperInTheirStyles)
{
    program.run([this](Form1& form) {
        using enum platform::WallpaperStyle;
        const QString file = program.tree.path("data/vistara/Kestrin Wallpaper.bmp");
        showPicture(form, program.picture("a.bmp"));
        for (const char* const menu : {"CmdWall", "CmdWall2"}) {
            program.desktop.wallpapers.clear();
            for (const int index : {0, 1, 2}) {
                RunningProgram::trigger(form, menu, index);
            }
            EXPECT_EQ(program.desktop.wallpapers,
                      std::vector<support::FakeDesktop::Wallpaper>(
                          {{file, Center}, {file, Tile}, {file, Stretch}}))
                << menu;
        }
        EXPECT_EQ(platform::loadPicture(file)->width(), shownWidth(form));
        EXPECT_TRUE(program.dialogs.boxes.empty());
    });
}

TEST_F(CommandsTest, ChangeNoWallpaperWithoutAPicture)
{
    program.run([this](Form1& form) {
        for (const char* const menu : {"CmdWall", "CmdWall2"}) {
            for (const int index : {0, 1, 2}) {
                program.dialogs.boxes.clear();
                RunningProgram::trigger(form, menu, index);
                EXPECT_EQ(program.dialogs.boxTexts(), QStringList{kNoPicture}) << menu << index;
            }
        }
        EXPECT_TRUE(program.desktop.wallpapers.empty());
        EXPECT_FALSE(program.tree.exists("data/vistara/Kestrin Wallpaper.bmp"));
        for (const char* const name : {"WallpaperStyle", "TileWallpaper"}) {
            EXPECT_EQ(platform::registryValue("Control Panel\\Desktop", QLatin1String(name)),
                      std::nullopt)
                << name;
        }
        EXPECT_FALSE(core::state().WallCenter || core::state().WallTile ||
                     core::state().WallStretch);
    });
}

TEST_F(CommandsTest, OpenTheListsInTheirModes)
{
    program.run([this](Form1& form) {
        QStringList titles;
        program.onModal = [&titles](const QWidget& window) { titles.append(window.windowTitle()); };
        RunningProgram::trigger(form, "OptFav", 1);
        RunningProgram::trigger(form, "Dip", 1);
        RunningProgram::trigger(form, "OptFav", 1);
        EXPECT_EQ(titles, (QStringList{QString(), QStringLiteral("Modifty Switch"), QString()}));
    });
}

TEST_F(CommandsTest, AddThePictureToTheFavouritesByTheRightMenu)
{
    program.run([this](Form1& form) {
        showPicture(form, program.picture("a.bmp"));
        QString path;
        program.onModal = [&path](const QWidget& window) {
            path = window.findChild<QLineEdit*>(QStringLiteral("Newpath"))->text();
            window.findChild<QLineEdit*>(QStringLiteral("Newname"))->setText(QStringLiteral("A&B"));
            window.findChild<QPushButton*>(QStringLiteral("Addok"))->click();
        };
        RunningProgram::trigger(form, "CmdRight", 12);
        EXPECT_EQ(path, program.picture("a.bmp"));
        EXPECT_EQ(RunningProgram::entry(form, "mnuFav", 1).text(), QStringLiteral("A&&B"));
    });
}

TEST_F(CommandsTest, StepFromTheRightMenuAndGoBackToTheFirst)
{
    program.run([this](Form1& form) {
        form.nextpic();
        EXPECT_EQ(RunningProgram::File1().listIndex(), 0);
        RunningProgram::trigger(form, "CmdRight", 0);
        EXPECT_EQ(shownWidth(form), 50);
        EXPECT_EQ(form.Xiala(), program.picture("a.bmp"));
        EXPECT_EQ(RunningProgram::File1().listIndex(), 0);
    });
}

TEST_F(CommandsTest, OpenTheWindowsOfScalingAndFavourites)
{
    program.run([this](Form1& form) {
        showPicture(form, program.picture("a.bmp"));
        RunningProgram::trigger(form, "optImage", 7);
        RunningProgram::trigger(form, "OptFav", 0);
        RunningProgram::trigger(form, "OptFav", 1);
        RunningProgram::trigger(form, "Dip", 0);
        RunningProgram::trigger(form, "Dip", 1);
        EXPECT_EQ(program.modals, QStringList({"Form4", "Favorties", "FavortiesModi", "FrmSwitch",
                                               "FavortiesModi"}));
    });
}

TEST_F(CommandsTest, LeaveTheKeysToAMenuThatIsOpen)
{
    program.run([this](Form1& form) {
        showPicture(form, program.picture("a.bmp"));
        const int zoom = form.cpvPicScroll1().ZoomFactor();
        form.menus().bar()->setFocus();
        QTest::keyClick(form.menus().bar(), Qt::Key_A);
        EXPECT_EQ(form.cpvPicScroll1().ZoomFactor(), zoom);
        form.cpvPicScroll1().giveFocus();
        QTest::keyClick(&form.cpvPicScroll1(), Qt::Key_A);
        EXPECT_GT(form.cpvPicScroll1().ZoomFactor(), zoom);
    });
}

TEST_F(CommandsTest, EditByTheRightMenusCopyEntry)
{
    program.run([this](Form1& form) {
        QImage image(3, 2, QImage::Format_RGB32);
        image.fill(Qt::white);
        image.setPixelColor(0, 0, Qt::red);
        form.viewer().setPicture(platform::Picture(image));
        RunningProgram::trigger(form, "CmdRightEdit", 4);
        EXPECT_EQ(form.viewer().Picture().image().pixelColor(0, 1), QColor(Qt::red));
        RunningProgram::trigger(form, "optEdit", 0);
        EXPECT_EQ(form.viewer().Picture().image().pixelColor(0, 0), QColor(Qt::red));
        RunningProgram::trigger(form, "CmdRight", 13);
        EXPECT_EQ(form.viewer().Picture().image().pixelColor(0, 0), QColor(Qt::red));
    });
}

TEST_F(CommandsTest, KeepThePictureForUndoWhenTheColourMenuOpens)
{
    program.run([this](Form1& form) {
        QMenu* menu = form.menus().menu(QStringLiteral("optColor"));
        const QString undoFile = program.tree.path("app/Frametemp.bmp");
        menu->popup({});
        EXPECT_TRUE(program.dialogs.boxes.empty());
        menu->close();
        EXPECT_TRUE(RunningProgram::waitFor([&] { return !program.dialogs.boxes.empty(); }));
        EXPECT_EQ(program.dialogs.boxTexts(), QStringList{kNoPicture});
        EXPECT_FALSE(platform::isRegularFile(undoFile));

        showPicture(form, program.picture("a.bmp"));
        program.dialogs.boxes.clear();
        menu->popup({});
        EXPECT_TRUE(platform::isRegularFile(undoFile));
        menu->close();
        EXPECT_TRUE(program.dialogs.boxes.empty());
    });
}

TEST_F(CommandsTest, StartAListedEditorWithThePictureSaved)
{
    program.tree.add({"app/SwitchName.txt", "Paint#/bin/true;"});
    program.config[QStringLiteral("Sno")] = QStringLiteral("1");
    program.run([this](Form1& form) {
        EXPECT_EQ(RunningProgram::entry(form, "Dip", 4).text(), QStringLiteral("Paint"));
        RunningProgram::trigger(form, "Dip", 4);
        EXPECT_EQ(program.dialogs.boxTexts(), QStringList{kNoPicture});
        showPicture(form, program.picture("a.bmp"));
        RunningProgram::trigger(form, "Dip", 4);
        ASSERT_EQ(program.desktop.started.size(), 1U);
        EXPECT_EQ(program.desktop.started[0].path, QStringLiteral("/bin/true"));
        EXPECT_TRUE(platform::isRegularFile(program.tree.path("app/temp.bmp")));
    });
}

TEST_F(CommandsTest, SaveFromAllFourPlaces)
{
    program.run([this](Form1& form) {
        showPicture(form, program.picture("b.bmp"));
        const struct {
            const char* array;
            int index;
        } places[] = {{"optFile", 1}, {"optFile", 2}, {"CmdRightmdi", 0}};
        const QString target = program.tree.path("out.bmp");
        const auto saved = [&] {
            const bool there = platform::isRegularFile(target);
            platform::removeFile(target);
            return there;
        };
        for (const auto& place : places) {
            program.dialogs.saveAnswers.push_back(platform::SaveChoice{target, 1});
            RunningProgram::trigger(form, place.array, place.index);
            EXPECT_TRUE(saved()) << place.array << place.index;
        }
        program.dialogs.saveAnswers.push_back(platform::SaveChoice{target, 1});
        form.toolbars().button(1)->click();
        EXPECT_TRUE(saved());
        EXPECT_TRUE(platform::isRegularFile(program.tree.path("app/saveTemp.bmp")));
    });
}

TEST_F(CommandsTest, TellTheSizeAnewAfterUndo)
{
    program.run([this](Form1& form) {
        showPicture(form, program.picture("b.bmp"));
        RunningProgram::trigger(form, "optImage", 2);
        showPicture(form, program.picture("c.bmp"));
        RunningProgram::trigger(form, "optEdit", 0);
        EXPECT_EQ(shownWidth(form), 50);
        EXPECT_EQ(form.SizeText, QStringLiteral("Size: 50x30"));
    });
}

TEST_F(CommandsTest, CloseThePanViewForAFilterAndWriteItsNumber)
{
    program.config[QStringLiteral("Panview")] = QStringLiteral("0");
    program.run([this](Form1& form) {
        EXPECT_EQ(program.stored("Panview"), QStringLiteral("0"));
        RunningProgram::trigger(form, "optFilter", 3);
        EXPECT_EQ(program.stored("Filter"), QStringLiteral("2"));
        EXPECT_EQ(program.stored("Panview"), QStringLiteral("1"));
        EXPECT_EQ(program.dialogs.boxTexts(), QStringList{kNoPicture});
        EXPECT_TRUE(program.desktop.started.empty());
    });
}

TEST_F(CommandsTest, SetTheThumbnailsSizeAndKeepIt)
{
    program.run([this](Form1& form) {
        RunningProgram::trigger(form, "MnuThumbsize", 1);
        EXPECT_EQ(program.stored("BrowserSize"), QStringLiteral("20"));
        EXPECT_EQ(platform::getSetting(QStringLiteral("Thumbnail"), QStringLiteral("Size")),
                  QStringLiteral("20"));
        for (int i = 0; i < 30; ++i) {
            EXPECT_EQ(RunningProgram::entry(form, "MnuThumbsize", i).isChecked(), i == 1) << i;
        }
        const QRegularExpression told(
            QStringLiteral("^Pages [0-9]+  Thumbnails per page [1-9][0-9]*$"));
        EXPECT_TRUE(told.match(form.StateBar().panel(core::Panel::Message)).hasMatch());
        RunningProgram::trigger(form, "ThumbnailColorPreset", 3);
        EXPECT_EQ(program.stored("BrowserColor"), QStringLiteral("3"));
        EXPECT_EQ(platform::getSetting(QStringLiteral("Thumbnail"), QStringLiteral("Colorpreset")),
                  QStringLiteral("3"));
        EXPECT_TRUE(RunningProgram::entry(form, "ThumbnailColorPreset", 3).isChecked());
        form.ThumbNailSize(-1);
        form.ThumbNailSize(30);
        EXPECT_EQ(program.stored("BrowserSize"), QStringLiteral("20"));
    });
}

TEST_F(CommandsTest, GiveEveryEntryOfSizesAndColoursItsOwn)
{
    program.run([this](Form1& form) {
        const auto* tiles = form.findChild<ThumbNailList*>();
        for (int i = 0; i < 30; ++i) {
            RunningProgram::trigger(form, "MnuThumbsize", i);
            EXPECT_EQ(tiles->ThumbNailSize(), (i + 1) * 10);
            EXPECT_EQ(program.stored("BrowserSize"), QString::number((i + 1) * 10));
        }
        for (int i = 0; i < 6; ++i) {
            RunningProgram::trigger(form, "ThumbnailColorPreset", i);
            EXPECT_EQ(tiles->ThumbPageColorPresets(), i + 1);
            EXPECT_EQ(program.stored("BrowserColor"), QString::number(i));
        }
    });
}

TEST_F(CommandsTest, KeepTheThumbnailsSizeOfThePreferencesUnderCancel)
{
    program.config[QStringLiteral("BrowserSize")] = QStringLiteral("60");
    program.onModal = [](QWidget& window) {
        auto* size = window.findChild<QWidget*>(QStringLiteral("ThumSize"));
        ASSERT_NE(size, nullptr);
        QTest::keyClick(size, Qt::Key_Left);
        QTest::keyClick(size, Qt::Key_Escape);
        EXPECT_FALSE(core::windows().isLoaded(core::Window::OptionsForm));
    };
    program.run([this](Form1& form) {
        const auto* tiles = form.findChild<ThumbNailList*>();
        ASSERT_TRUE(RunningProgram::waitFor([tiles] { return tiles->tiles().size() == 3; }));
        const thumbs::TileGrid before = tiles->grid();
        RunningProgram::trigger(form, "optEdit", 17);
        EXPECT_EQ(program.modals, QStringList(QStringLiteral("OptionsForm")));
        EXPECT_TRUE(RunningProgram::waitFor(
            [this] { return program.stored("BrowserSize") == QStringLiteral("50"); }));
        EXPECT_TRUE(RunningProgram::entry(form, "MnuThumbsize", 4).isChecked());
        EXPECT_EQ(tiles->ThumbNailSize(), 50);
        EXPECT_EQ(tiles->tiles().size(), 3U);
        EXPECT_EQ(tiles->grid().cellWidth, before.cellWidth - 10);
        EXPECT_EQ(tiles->grid().cellHeight, before.cellHeight - 10);
    });
}

TEST_F(CommandsTest, ShowContactSheetsOfTheFolderInThePane)
{
    program.onModal = [](QWidget& window) {
        const auto* sheets = window.findChild<ThumbNailList*>(QStringLiteral("sheets"));
        ASSERT_NE(sheets, nullptr);
        EXPECT_EQ(sheets->path(), RunningProgram::File1().path());
        window.close();
    };
    program.run([this](Form1& form) {
        EXPECT_TRUE(RunningProgram::entry(form, "optContactSheets", -1).isVisible());
        RunningProgram::trigger(form, "optContactSheets", -1);
        EXPECT_EQ(program.modals, QStringList(QStringLiteral("ContactSheets")));
    });
}

TEST_F(CommandsTest, HideWhatCameLaterInClassicMode)
{
    program.config[QStringLiteral("Classic")] = QStringLiteral("1");
    program.run([](Form1& form) {
        EXPECT_FALSE(RunningProgram::entry(form, "optContactSheets", -1).isVisible());
        EXPECT_TRUE(RunningProgram::entry(form, "optFile", 6).isVisible());
    });
}

TEST_F(CommandsTest, SwitchTheirStateAsABlock)
{
    program.run([](Form1& form) {
        const std::map<QString, std::set<int>> block{
            {QStringLiteral("optView"), {0, 1, 12, 13, 15}},
            {QStringLiteral("optEdit"), {0, 2, 4, 5, 7, 8, 10}},
            {QStringLiteral("optTools"), {0, 1}}};
        for (const bool enabled : {false, true}) {
            form.setMenuState(enabled);
            for (const auto& [array, indexes] : block) {
                for (int i = 0; QAction* entry = form.menus().entry(array, i); ++i) {
                    if (!entry->isSeparator()) {
                        EXPECT_EQ(entry->isEnabled(), enabled || !indexes.contains(i))
                            << array.toStdString() << i;
                    }
                }
            }
            for (int i = 0; i < 17; ++i) {
                const bool inBlock = std::set<int>{5, 6, 7, 8, 10, 11}.contains(i);
                EXPECT_EQ(form.toolbars().button(i)->isEnabled(), enabled || !inBlock) << i;
            }
        }
    });
}

TEST_F(CommandsTest, OpenFilesFromAFolderOfTheirOwn)
{
    program.tree.add({"app/openTemp/old.bmp", "old"});
    program.run([this](Form1& form) {
        program.dialogs.openAnswers.push_back({program.picture("c.bmp"), program.picture("b.bmp")});
        RunningProgram::trigger(form, "optFile", 0);
        ASSERT_EQ(program.dialogs.fileRequests.size(), 1U);
        EXPECT_EQ(program.dialogs.fileRequests[0].title, QStringLiteral("Select File"));
        EXPECT_TRUE(program.dialogs.fileRequests[0].severalFiles);
        EXPECT_TRUE(program.dialogs.fileRequests[0].filter.startsWith(
            QStringLiteral("All Formats (*.*)|*.lbm;")));
        EXPECT_EQ(form.Xiala(), program.tree.path("app/openTemp/b.bmp"));
        EXPECT_EQ(shownWidth(form), 50);
        EXPECT_EQ(RunningProgram::File1().count(), 2);
        form.becameActive();
        EXPECT_EQ(core::state().CurrentFolder, program.tree.path("app/openTemp"));

        program.dialogs.openAnswers.push_back({program.picture("a.bmp")});
        form.toolbars().button(0)->click();
        EXPECT_EQ(form.Xiala(), program.tree.path("app/openTemp/a.bmp"));
        EXPECT_EQ(RunningProgram::File1().count(), 1);

        program.dialogs.openAnswers.push_back({});
        RunningProgram::trigger(form, "optFile", 0);
        EXPECT_EQ(shownWidth(form), 40);
        EXPECT_FALSE(platform::isRegularFile(program.tree.path("app/openTemp/a.bmp")));
    });
}

TEST_F(CommandsTest, EmptyTheFolderOfOpenedFilesBeforeTheyAsk)
{
    program.tree.add({"app/openTemp/old.bmp", "old"});
    program.run([this](Form1& form) {
        bool emptied = false;
        program.dialogs.whileOpen = [&] { emptied = !program.tree.exists("app/openTemp/old.bmp"); };
        form.setMenuState(false);
        program.dialogs.openAnswers.push_back({program.picture("c.bmp")});
        RunningProgram::pressKey(form, Qt::Key_O);
        EXPECT_TRUE(emptied);
        EXPECT_EQ(form.Xiala(), program.tree.path("app/openTemp/c.bmp"));
        EXPECT_TRUE(RunningProgram::entry(form, "optView", 0).isEnabled());
        EXPECT_TRUE(program.tree.exists("pics/c.bmp"));
    });
}

TEST_F(CommandsTest, ShowTheTilesOfWhatIsOpenedEachTime)
{
    program.run([this](Form1& form) {
        auto* tiles = form.findChild<ThumbNailList*>();
        for (const char* name : {"a.bmp", "b.bmp"}) {
            program.dialogs.openAnswers.push_back({program.picture(name)});
            form.toolbars().keyButton(QStringLiteral("open"))->click();
            ASSERT_NE(tiles->tile(0), nullptr);
            EXPECT_EQ(tiles->tile(0)->path, program.tree.path(std::string("app/openTemp/") + name));
        }
    });
}

TEST_F(CommandsTest, FileAnOpenedPictureInTheLibraryOnRequest)
{
    program.run([this](Form1& form) {
        form.LibImport = true;
        program.dialogs.openAnswers.push_back({program.picture("b.bmp")});
        RunningProgram::trigger(form, "optFile", 0);
        EXPECT_TRUE(platform::isRegularFile(program.tree.path("app/Lib/b.bmp")));
        EXPECT_TRUE(platform::isRegularFile(program.tree.path("app/Lib/pLib/b.bmp")));
        EXPECT_FALSE(form.LibImport);
    });
}

TEST_F(CommandsTest, OpenHelpAndPagesByTheDesktop)
{
    program.run([this](Form1& form) {
        RunningProgram::trigger(form, "CmdUsinghelp", -1);
        RunningProgram::trigger(form, "CmdOnlineUpdate", -1);
        RunningProgram::trigger(form, "CmdScenter", -1);
        ASSERT_EQ(program.desktop.opened.size(), 3);
        EXPECT_EQ(program.desktop.opened[0], program.tree.path("app/HelpDocuments.chm"));
        EXPECT_TRUE(program.desktop.opened[1].endsWith(QStringLiteral("download.htm")));
        EXPECT_TRUE(program.desktop.opened[2].endsWith(QStringLiteral("feedback.htm")));
        form.toolbars().button(12)->click();
        ASSERT_EQ(program.desktop.started.size(), 1U);
        EXPECT_EQ(program.desktop.started[0].path,
                  program.tree.path("app/LiveUpdate/LiveUpdate.exe"));
        RunningProgram::trigger(form, "CmdAbout", -1);
        EXPECT_TRUE(core::windows().isLoaded(core::Window::frmAbout));
    });
}

TEST_F(CommandsTest, DeleteNamesThePathAndObeysTheAnswer)
{
    program.run([this](Form1& form) {
        form.setXiala(program.picture("a.bmp"));
        program.dialogs.yesNoAnswers = {false, true};
        RunningProgram::trigger(form, "optEdit", 5);
        EXPECT_TRUE(program.desktop.trashed.isEmpty());
        RunningProgram::trigger(form, "optEdit", 5);
        EXPECT_EQ(program.desktop.trashed, QStringList{program.picture("a.bmp")});
        for (const support::FakeDialogs::Box& box : program.dialogs.boxes) {
            EXPECT_TRUE(box.text.contains(program.picture("a.bmp")));
        }
    });
}

TEST_F(CommandsTest, DeleteShowsThePictureAndPresetsNo)
{
    QImage image(300, 100, QImage::Format_RGB32);
    image.fill(QColor(200, 0, 0));
    ASSERT_TRUE(image.save(program.tree.path("pics/red.bmp")));
    program.tree.add({"albums/one/a.jpg", "x"});
    program.tree.add({"albums/b.jpg", "x"});
    program.tree.add({"albums/.hidden", "x"});
    program.run([&](Form1& form) {
        ASSERT_TRUE(QDir().mkpath(platform::appFile(QStringLiteral("Images/toolbar"))));
        ASSERT_TRUE(image.save(platform::appFile(QStringLiteral("Images/toolbar/folder@2x.png"))));
        form.setXiala(program.tree.path("pics/red.bmp"));
        RunningProgram::trigger(form, "optEdit", 5);
        form.setXiala(program.tree.path("albums"));
        RunningProgram::trigger(form, "optEdit", 5);
        form.setXiala(program.tree.path("pics/none.bmp"));
        RunningProgram::trigger(form, "optEdit", 5);
        ASSERT_EQ(program.dialogs.subjects.size(), 3U);
        const platform::Subject& picture = program.dialogs.subjects[0];
        ASSERT_FALSE(picture.picture.isNull());
        EXPECT_LE(picture.picture.deviceIndependentSize().width(), 128);
        EXPECT_NEAR(picture.picture.width(), picture.picture.height() * 3, 3);
        EXPECT_EQ(picture.picture.pixelColor(10, 10), QColor(200, 0, 0));
        const platform::Subject& folder = program.dialogs.subjects[1];
        EXPECT_FALSE(folder.picture.isNull());
        EXPECT_EQ(folder.facts, QStringLiteral("3 files"));
        EXPECT_TRUE(
            program.dialogs.boxes[1].text.contains("\"" + program.tree.path("albums") + "\""));
        EXPECT_TRUE(program.dialogs.subjects[2].picture.isNull());
        for (const platform::Subject& subject : program.dialogs.subjects) {
            EXPECT_EQ(subject.preset, platform::Answer::No);
        }
    });
}

TEST_F(CommandsTest, WaitForWindowsUnderTheDefaultPointerAndGoOnUnderTheHourglass)
{
    platform::Pointer during = platform::Pointer::HourGlass;
    program.onModal = [&](QWidget&) { during = platform::pointer(); };
    program.run([&](Form1& /*form*/) {
        const platform::PointerGuard hourglass;
        core::windows().show(core::Window::Favorties, core::ShowMode::Modal);
        EXPECT_EQ(during, platform::Pointer::Default);
        EXPECT_EQ(platform::pointer(), platform::Pointer::HourGlass);
    });
}

TEST_F(CommandsTest, AskOnceForAnImportThenOpenTheMenu)
{
    program.config[QStringLiteral("WinState")] = QStringLiteral("1");
    program.run([this](Form1& form) {
        emit form.cpvPicScroll1().MouseDown(2, 0, 0, 0);
        QWidget* question = core::windows().find(core::Window::frmMsg);
        ASSERT_NE(question, nullptr);
        EXPECT_EQ(question->windowTitle(), QStringLiteral("Import..."));
        EXPECT_EQ(question->findChild<QLabel*>(QStringLiteral("Label1"))->text(),
                  QStringLiteral("Now Import to Vistara?"));
        question->findChild<QPushButton*>(QStringLiteral("Cancel"))->click();
        EXPECT_EQ(program.stored("WinState"), QStringLiteral("0"));
        EXPECT_FALSE(form.viewer().PictureExists());
        EXPECT_FALSE(core::windows().isLoaded(core::Window::frmMsg));
        emit form.cpvPicScroll1().MouseDown(2, 0, 0, 0);
        EXPECT_TRUE(form.menus().menu(QStringLiteral("CmdRm"))->isVisible());
        form.menus().menu(QStringLiteral("CmdRm"))->close();
    });
}

TEST_F(CommandsTest, OpenTheMenuByARightPressAnywhereOnTheViewer)
{
    program.config[QStringLiteral("BestFit")] = QStringLiteral("0");
    program.run([](Form1& form) {
        QMenu* menu = form.menus().menu(QStringLiteral("CmdRm"));
        cpvPicViewer& viewer = form.cpvPicScroll1();
        const auto opensAt = [&](QPoint place) {
            QWidget* target = viewer.childAt(place);
            if (target == nullptr) {
                target = &viewer;
            }
            QTest::mousePress(target, Qt::RightButton, {}, target->mapFrom(&viewer, place));
            const bool opened = menu->isVisible();
            menu->close();
            QTest::mouseRelease(target, Qt::RightButton, {}, target->mapFrom(&viewer, place));
            return opened;
        };
        const QPoint middle = viewer.rect().center();
        EXPECT_TRUE(opensAt(middle)) << "empty";
        QImage image(60, 40, QImage::Format_RGB32);
        form.viewer().setPicture(platform::Picture(image));
        EXPECT_TRUE(opensAt(middle)) << "picture";
        EXPECT_TRUE(opensAt({10, 10})) << "background";
        form.viewer().setPicture(platform::Picture(QImage(4000, 3000, QImage::Format_RGB32)));
        const QRect inside = viewer.rect();
        EXPECT_TRUE(opensAt(inside.bottomRight() - QPoint(8, 8))) << "corner";
        EXPECT_TRUE(opensAt(inside.bottomLeft() + QPoint(100, -8))) << "bar";
        EXPECT_TRUE(opensAt(inside.topRight() + QPoint(-8, 100))) << "bar";
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    });
}

TEST_F(CommandsTest, ImportThePictureOfTheClipboardWhenTold)
{
    program.config[QStringLiteral("WinState")] = QStringLiteral("1");
    program.run([this](Form1& form) {
        QImage image(7, 5, QImage::Format_RGB32);
        image.fill(Qt::green);
        platform::setClipboardPicture(platform::Picture(image));
        emit form.cpvPicScroll1().MouseDown(2, 0, 0, 0);
        QWidget* question = core::windows().find(core::Window::frmMsg);
        ASSERT_NE(question, nullptr);
        question->findChild<QPushButton*>(QStringLiteral("Ok"))->click();
        EXPECT_EQ(program.stored("WinState"), QStringLiteral("0"));
        EXPECT_EQ(shownWidth(form), 7);
        EXPECT_EQ(form.Xiala(), program.tree.path("app/temp.bmp"));
        EXPECT_FALSE(core::windows().isLoaded(core::Window::frmMsg));
    });
}

TEST_F(CommandsTest, ShowAnOwnFormatAndWhatItsReaderTells)
{
    // Three raw planes of 2 by 1 pixels, red over green over blue.
    const std::string header("8BPS\0\1\0\0\0\0\0\0\0\3\0\0\0\1\0\0\0\2\0\10\0\3", 26);
    const std::string rest("\0\0\0\0\0\0\0\0\0\0\0\0\0\0\377\377\0\0\0\0", 20);
    program.tree.add({"pics/Two.PSD", header + rest});
    program.run([this](Form1& form) {
        program.dialogs.boxes.clear();
        form.setXiala(program.tree.path("pics/Two.PSD"));
        form.goEnter();
        EXPECT_EQ(program.dialogs.boxTexts(), QStringList{QStringLiteral("Error Open!")});
        EXPECT_EQ(form.viewer().Picture().image().pixelColor(1, 0), QColor(Qt::red));
        EXPECT_EQ(form.StateBar().panel(core::Panel::FileName), QStringLiteral("Two.PSD     "));
        EXPECT_EQ(form.StateBar().panel(core::Panel::FileSize), QStringLiteral("46 Bytes     "));
        EXPECT_EQ(form.StateBar().panel(core::Panel::Width), QStringLiteral("2      Pixel"));
        EXPECT_EQ(form.StateBar().panel(core::Panel::Height), QStringLiteral("1      Pixel"));
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    });
}

TEST_F(CommandsTest, FillTheGradientWithTheRowsThatAReaderTells)
{
    // Four raw planes of 1 by 2 pixels.
    const std::string header("8BPS\0\1\0\0\0\0\0\0\0\4\0\0\0\2\0\0\0\1\0\10\0\3", 26);
    program.tree.add({"pics/Two.PSD", header + std::string(14 + 8, '\0')});
    program.run([this](Form1& form) {
        auto* strip = form.findChild<QWidget*>(QStringLiteral("Gradient"));
        ASSERT_NE(strip, nullptr);
        const auto rightEnd = [strip] {
            const QImage image = strip->grab().toImage();
            return image.pixelColor(image.width() - 1, 0);
        };
        EXPECT_NE(rightEnd(), QColor(0xC0, 0xC0, 0xC0));
        form.setXiala(program.tree.path("pics/Two.PSD"));
        form.goEnter();
        EXPECT_EQ(rightEnd(), QColor(0xC0, 0xC0, 0xC0));
    });
}

TEST_F(CommandsTest, PaintTheGradientWhileTheRowsOfAReaderCome)
{
    // Four raw planes of 1 by 101 pixels.
    const std::string header("8BPS\0\1\0\0\0\0\0\0\0\4\0\0\0\145\0\0\0\1\0\10\0\3", 26);
    program.tree.add({"pics/Tall.PSD", header + std::string(14 + 404, '\0')});
    program.run([this](Form1& form) {
        auto* strip = form.findChild<QWidget*>(QStringLiteral("Gradient"));
        ASSERT_NE(strip, nullptr);
        EXPECT_TRUE(strip->isHidden());
        const auto isGrey = [&](int percent) {
            const QPoint place = strip->mapTo(&form, QPoint(strip->width() * percent / 100, 1));
            const QImage shot = form.screen()->grabWindow(form.winId()).toImage();
            return shot.pixelColor(place) == QColor(0xC0, 0xC0, 0xC0);
        };
        int looks = 0;
        const formats::Hooks told = formats::hooks();
        formats::setHooks({told.report, [&](double fraction) {
                               const bool half = fraction == 0.5;
                               if (half) {
                                   QThread::msleep(200); // longer than any frame of a screen
                               }
                               told.progress(fraction);
                               if (fraction < 1) {
                                   EXPECT_TRUE(strip->isVisible());
                               }
                               if (half) {
                                   ++looks;
                                   EXPECT_TRUE(isGrey(2));
                                   EXPECT_TRUE(isGrey(48));
                                   EXPECT_FALSE(isGrey(52));
                                   EXPECT_FALSE(isGrey(98));
                               }
                           }});
        form.setXiala(program.tree.path("pics/Tall.PSD"));
        form.goEnter();
        formats::setHooks(told);
        EXPECT_EQ(looks, 1);
        EXPECT_TRUE(strip->isHidden());
    });
}

TEST_F(CommandsTest, OpenTypedPathsWithoutRememberingThem)
{
    program.run([this](Form1& form) {
        form.setMenuState(false);
        form.setXiala(program.picture("b.bmp"));
        form.findChild<QPushButton*>(QStringLiteral("goEnter"))->click();
        EXPECT_EQ(shownWidth(form), 50);
        EXPECT_EQ(form.StateBar().panel(core::Panel::FileName), QStringLiteral("b.bmp     "));
        form.setXiala(program.tree.path("pics/none.bmp"));
        form.goEnter();
        EXPECT_EQ(shownWidth(form), 50);
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        EXPECT_EQ(program.stored("Xno"), QStringLiteral("ERROR"));
        EXPECT_FALSE(RunningProgram::entry(form, "optView", 0).isEnabled());
    });
    EXPECT_TRUE(program.dialogs.boxes.empty());
}

TEST_F(CommandsTest, GiveTheFocusBackToTheViewer)
{
    program.run([this](Form1& form) {
        form.activateWindow();
        form.findChild<QWidget*>(QStringLiteral("Xiala"))->setFocus();
        RunningProgram::trigger(form, "optView", 13);
        EXPECT_TRUE(form.cpvPicScroll1().isAncestorOf(form.focusWidget()) ||
                    form.focusWidget() == &form.cpvPicScroll1());
    });
}

TEST_F(CommandsTest, RememberRecentPathsInTheDropDown)
{
    program.run([this](Form1& form) {
        form.addRecentPath(program.picture("a.bmp"));
        form.addRecentPath(program.picture("a.bmp"));
        auto* field = form.findChild<shell::FileNameField*>(QStringLiteral("Xiala"));
        ASSERT_EQ(field->count(), 2);
        EXPECT_EQ(field->itemText(1), program.picture("a.bmp"));
        EXPECT_EQ(field->itemData(0).toString(), QStringLiteral("Signal0"));
        EXPECT_EQ(field->itemData(1).toString(), QStringLiteral("Signal1"));
        EXPECT_EQ(program.stored("Xno"), QStringLiteral("2"));
    });
}

TEST_F(CommandsTest, ReadTheRecentPathsAgainAfterTheirListHasChanged)
{
    program.run([this](Form1& form) {
        form.addRecentPath(program.picture("a.bmp"));
        form.setXiala(program.picture("b.bmp"));
        const auto* field = form.findChild<shell::FileNameField*>(QStringLiteral("Xiala"));
        ASSERT_EQ(field->count(), 1);
        core::store(core::kRecentPathCount, 0);
        core::services().field->refillRecentPaths();
        EXPECT_EQ(field->count(), 0);
        EXPECT_EQ(form.Xiala(), program.picture("b.bmp"));
    });
}

TEST_F(CommandsTest, LoadAFavouriteIntoTheViewerAndNothingElse)
{
    program.tree.add({"app/testfile.txt", "Blue#" + program.tree.native("pics/c.bmp") + ";Dir#" +
                                              program.tree.native("pics") + ";Own#" +
                                              program.tree.native("pics/d.psd") + ";"});
    program.tree.add({"pics/d.psd", "8BPS"});
    program.config[QStringLiteral("No")] = QStringLiteral("3");
    program.run([this](Form1& form) {
        EXPECT_EQ(RunningProgram::entry(form, "mnuFav", 1).text(), QStringLiteral("Blue"));
        RunningProgram::trigger(form, "mnuFav", 1);
        EXPECT_EQ(shownWidth(form), 60);
        for (const int nothing : {2, 3}) {
            RunningProgram::trigger(form, "mnuFav", nothing);
            EXPECT_EQ(shownWidth(form), 60);
            EXPECT_EQ(form.Xiala(), program.tree.path("pics"));
            EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        }
        EXPECT_EQ(program.stored("Xno"), QStringLiteral("ERROR"));
        ASSERT_TRUE(platform::writeFileWhole(program.tree.path("app/testfile.txt"), "One#/1;"));
        ASSERT_TRUE(platform::writeProfile(program.tree.path("app/config.ini"),
                                           QStringLiteral("QUILLPOST"), QStringLiteral("No"),
                                           QStringLiteral("1")));
        form.refillListMenus();
        EXPECT_EQ(form.menus().entry(QStringLiteral("mnuFav"), 2), nullptr);
    });
}
