#include "core/interfaces.h"
#include "core/services.h"
#include "core/state.h"
#include "platform/pointer.h"
#include "platform/profile.h"
#include "platform/registry.h"
#include "shell/file_name_field.h"
#include "shell/menus.h"
#include "shell/running_program.h"
#include "shell/toolbars.h"
#include "viewer/display_pipeline.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

const QString kNoPicture = QStringLiteral("No picture to process.");

class CommandsTest : public testing::Test {
protected:
    static void pressKey(QWidget* target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                         const QString& text = {})
    {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
        QApplication::sendEvent(target, &release);
    }

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
        for (const shell::ButtonRow& row : shell::buttonRows()) {
            if (row.need == shell::Need::Picture) {
                program.dialogs.boxes.clear();
                form.toolbars().button(row.index)->click();
                EXPECT_EQ(program.dialogs.boxes.size(), 1U) << row.index;
            }
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
            EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
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

TEST_F(CommandsTest, ActOnKeysOnlyInTheViewer)
{
    program.run([this](Form1& form) {
        showPicture(form, program.picture("a.bmp"));
        form.cpvPicScroll1().giveFocus();
        pressKey(form.findChild<QWidget*>(QStringLiteral("iDst")), Qt::Key_A, Qt::NoModifier,
                 QStringLiteral("a"));
        EXPECT_EQ(form.cpvPicScroll1().ZoomFactor(), 2);
        pressKey(form.findChild<QWidget*>(QStringLiteral("iDst")), Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(form.cpvPicScroll1().ZoomFactor(), 3);
        pressKey(form.findChild<QWidget*>(QStringLiteral("iDst")), Qt::Key_S, Qt::ShiftModifier,
                 QStringLiteral("S"));
        EXPECT_EQ(form.cpvPicScroll1().ZoomFactor(), 2);
        pressKey(form.findChild<QWidget*>(QStringLiteral("iDst")), Qt::Key_D, Qt::NoModifier,
                 QStringLiteral("d"));
        EXPECT_EQ(form.cpvPicScroll1().ZoomFactor(), 1);
        auto* field = form.findChild<QWidget*>(QStringLiteral("Xiala"));
        field->setFocus();
        pressKey(field, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
        EXPECT_EQ(form.cpvPicScroll1().ZoomFactor(), 1);
    });
}

TEST_F(CommandsTest, SwitchModesByKeys)
{
    program.run([](Form1& form) {
        QWidget* viewer = form.findChild<QWidget*>(QStringLiteral("iDst"));
        const struct {
            int key;
            int entry;
        } switches[] = {{Qt::Key_F2, 11}, {Qt::Key_F3, 12}, {Qt::Key_F4, 13}, {Qt::Key_F5, 15}};
        for (const auto& change : switches) {
            const bool before = RunningProgram::entry(form, "optView", change.entry).isChecked();
            pressKey(viewer, change.key);
            EXPECT_NE(RunningProgram::entry(form, "optView", change.entry).isChecked(), before)
                << change.entry;
        }
        pressKey(viewer, Qt::Key_Escape);
        EXPECT_FALSE(core::state().BrowserShown);
        const int interval = form.pipeline().intervalMs();
        pressKey(viewer, Qt::Key_Plus, Qt::KeypadModifier, QStringLiteral("+"));
        EXPECT_EQ(form.pipeline().intervalMs(), interval - 1000);
        pressKey(viewer, Qt::Key_Minus, Qt::KeypadModifier, QStringLiteral("-"));
        EXPECT_EQ(form.pipeline().intervalMs(), interval);
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
        EXPECT_TRUE(core::windows().isLoaded(QStringLiteral("frmAbout")));
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
        for (const platform::FakeDialogs::Box& box : program.dialogs.boxes) {
            EXPECT_TRUE(box.text.contains(program.picture("a.bmp")));
        }
    });
}

TEST_F(CommandsTest, AskOnceForAnImportThenOpenTheMenu)
{
    program.config[QStringLiteral("WinState")] = QStringLiteral("1");
    program.run([this](Form1& form) {
        emit form.cpvPicScroll1().MouseDown(2, 0, 0, 0);
        QWidget* question = core::windows().find(QStringLiteral("frmMsg"));
        ASSERT_NE(question, nullptr);
        EXPECT_EQ(question->windowTitle(), QStringLiteral("Import..."));
        EXPECT_EQ(question->findChild<QLabel*>(QStringLiteral("Label1"))->text(),
                  QStringLiteral("Now Import to Vistara?"));
        question->findChild<QPushButton*>(QStringLiteral("Cancel"))->click();
        EXPECT_EQ(program.stored("WinState"), QStringLiteral("0"));
        EXPECT_FALSE(core::windows().isLoaded(QStringLiteral("frmMsg")));
        emit form.cpvPicScroll1().MouseDown(2, 0, 0, 0);
        EXPECT_TRUE(form.menus().menu(QStringLiteral("CmdRm"))->isVisible());
        form.menus().menu(QStringLiteral("CmdRm"))->close();
    });
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

TEST_F(CommandsTest, LoadAFavouriteIntoTheViewerAndNothingElse)
{
    program.tree.add({"app/testfile.txt", "Blue#" + program.tree.native("pics/c.bmp") + ";Dir#" +
                                              program.tree.native("pics") + ";"});
    program.config[QStringLiteral("No")] = QStringLiteral("2");
    program.run([this](Form1& form) {
        EXPECT_EQ(RunningProgram::entry(form, "mnuFav", 1).text(), QStringLiteral("Blue"));
        RunningProgram::trigger(form, "mnuFav", 1);
        EXPECT_EQ(shownWidth(form), 60);
        RunningProgram::trigger(form, "mnuFav", 2);
        EXPECT_EQ(shownWidth(form), 60);
        EXPECT_EQ(form.Xiala(), program.tree.path("pics"));
        ASSERT_TRUE(platform::writeFileWhole(program.tree.path("app/testfile.txt"), "One#/1;"));
        ASSERT_TRUE(platform::writeProfile(program.tree.path("app/config.ini"),
                                           QStringLiteral("QUILLPOST"), QStringLiteral("No"),
                                           QStringLiteral("1")));
        form.refillListMenus();
        EXPECT_EQ(form.menus().entry(QStringLiteral("mnuFav"), 2), nullptr);
    });
}
