#include "platform/dialogs.h"

#include "platform/fake_dialogs.h"
#include "platform/file_filters.h"
#include "platform/pump.h"
#include "platform/qt_dialogs.h"
#include "support/temp_tree.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

using platform::BoxIcon;
using platform::FileRequest;
using platform::QtDialogs;
using support::TempTree;

namespace {

// Runs an action on the dialog once it is open, from its own event loop.
template<typename Dialog, typename Action> void whenOpen(Action action)
{
    QTimer::singleShot(0, qApp, [action] {
        auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        action(*dialog);
    });
}

// Lets events run until something holds, for at most ten seconds.
template<typename Condition> bool waitUntil(Condition condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < 10000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return condition();
}

void typeName(QFileDialog& dialog, const QString& name)
{
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
    static_cast<QDialog&>(dialog).accept();
}

// The names that a file dialog lists, once it has read the folder.
QStringList listedNames(QFileDialog& dialog, int expected)
{
    auto* const view = dialog.findChild<QListView*>("listView");
    const QAbstractItemModel* const model = view->model();
    waitUntil([&] { return model->rowCount(view->rootIndex()) == expected; });
    QStringList names;
    for (int row = 0; row < model->rowCount(view->rootIndex()); ++row) {
        names.append(model->index(row, 0, view->rootIndex()).data().toString());
    }
    names.sort();
    return names;
}

} // namespace

TEST(FileFilters, ArePairsOfTextAndPatterns)
{
    const auto filters =
        platform::parseFileFilters("BMP (*.BMP)|*.bmp|All Formats (*.*)|*.lbm; *.TGA|"
                                   "Every|*.*");
    ASSERT_EQ(filters.size(), 3U);
    EXPECT_EQ(filters[0].text, "BMP (*.BMP)");
    EXPECT_EQ(filters[0].patterns, QStringList({"*.bmp"}));
    EXPECT_EQ(filters[1].patterns, QStringList({"*.lbm", "*.TGA"}));
    EXPECT_EQ(filters[2].patterns, QStringList({"*"}));
    EXPECT_TRUE(platform::parseFileFilters("").empty());
    EXPECT_TRUE(platform::parseFileFilters("alone").empty());
}

TEST(MessageBox, ShowsItsWordsAsTheyAre)
{
    QtDialogs dialogs;
    bool wasShown = false;
    whenOpen<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.text(), "<b>No picture to process.</b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "");
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        wasShown = true;
        box.button(QMessageBox::Ok)->click();
    });
    dialogs.showMessage("<b>No picture to process.</b>", "", BoxIcon::Information);
    EXPECT_TRUE(wasShown);
}

TEST(MessageBox, HasAnIconForEachKind)
{
    QtDialogs dialogs;
    const std::pair<BoxIcon, QMessageBox::Icon> icons[] = {
        {BoxIcon::None, QMessageBox::NoIcon},
        {BoxIcon::Exclamation, QMessageBox::Warning},
        {BoxIcon::Critical, QMessageBox::Critical},
        {BoxIcon::Question, QMessageBox::Question},
    };
    for (const auto& [asked, shown] : icons) {
        whenOpen<QMessageBox>([expected = shown](QMessageBox& box) {
            EXPECT_EQ(box.icon(), expected);
            EXPECT_EQ(box.windowTitle(), "Title");
            box.accept();
        });
        dialogs.showMessage("Text", "Title", asked);
    }
}

TEST(YesNoBox, IsYesForYesOnly)
{
    QtDialogs dialogs;
    whenOpen<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    EXPECT_TRUE(dialogs.askYesNo("Delete?", "Vistara"));
    whenOpen<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    EXPECT_FALSE(dialogs.askYesNo("Delete?", "Vistara"));
    whenOpen<QMessageBox>([](QMessageBox& box) { box.close(); });
    EXPECT_FALSE(dialogs.askYesNo("Delete?", "Vistara"));
}

TEST(Dialogs, EndWhenTheProgramCloses)
{
    QtDialogs dialogs;
    const auto closeProgram = [] { QTimer::singleShot(0, qApp, [] { platform::beginClosing(); }); };
    closeProgram();
    EXPECT_FALSE(dialogs.askYesNo("Delete?", ""));
    platform::resetClosing();
    closeProgram();
    EXPECT_TRUE(dialogs.openFiles({}).isEmpty());
    platform::resetClosing();
    closeProgram();
    EXPECT_FALSE(dialogs.chooseColour(0));
    platform::resetClosing();
    closeProgram();
    EXPECT_FALSE(dialogs.askText("Name: ", "", "x"));

    // From now on none is shown at all.
    dialogs.showMessage("Late", "", BoxIcon::None);
    EXPECT_FALSE(dialogs.saveFile({}));
    platform::resetClosing();
}

TEST(Dialogs, EndWithTheirMenusWhenTheProgramCloses)
{
    QtDialogs dialogs;
    bool menuEnded = false;
    whenOpen<QMessageBox>([&menuEnded](QMessageBox& box) {
        QMenu menu(&box);
        menu.addAction("Copy");
        QTimer::singleShot(0, qApp, [] {
            EXPECT_NE(QApplication::activePopupWidget(), nullptr);
            platform::beginClosing();
        });
        menu.exec();
        menuEnded = true;
    });
    EXPECT_FALSE(dialogs.askYesNo("Delete?", ""));
    EXPECT_TRUE(menuEnded);
    platform::resetClosing();
}

TEST(Dialogs, EndWithTheWindowThatTheyLieOver)
{
    QtDialogs dialogs;
    auto* const window = new QWidget;
    window->show();
    window->activateWindow();
    ASSERT_TRUE(waitUntil([&] { return QApplication::activeWindow() == window; }));
    whenOpen<QMessageBox>([window](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), window);
        delete window;
    });
    EXPECT_FALSE(dialogs.askYesNo("Delete?", ""));
}

TEST(OpenDialog, ListsFilesWithoutRegardToCase)
{
    const TempTree tree({{"p/a.BMP", ""}, {"p/b.bmp", ""}, {"p/c.txt", ""}, {"p/noext", ""}});
    QtDialogs dialogs;
    FileRequest request;
    request.title = "Select File";
    request.folder = tree.path("p");
    request.filter = "BMP (*.BMP)|*.bmp|All|*.*";
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Select File");
        EXPECT_EQ(listedNames(dialog, 2), QStringList({"a.BMP", "b.bmp"}));
        auto* const kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
        EXPECT_EQ(kinds->itemText(0), "BMP (*.BMP)");
        EXPECT_EQ(kinds->itemText(1), "All");
        dialog.selectNameFilter(dialog.nameFilters().at(1));
        EXPECT_EQ(listedNames(dialog, 4), QStringList({"a.BMP", "b.bmp", "c.txt", "noext"}));
        typeName(dialog, "noext");
    });
    EXPECT_EQ(dialogs.openFiles(request), QStringList({tree.path("p/noext")}));
}

TEST(OpenDialog, GivesSeveralFilesOrNone)
{
    const TempTree tree({{"p/a.bmp", ""}, {"p/b.bmp", ""}});
    QtDialogs dialogs;
    FileRequest request;
    request.folder = tree.path("p");
    request.severalFiles = true;
    whenOpen<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "\"a.bmp\" \"b.bmp\""); });
    EXPECT_EQ(dialogs.openFiles(request),
              QStringList({tree.path("p/a.bmp"), tree.path("p/b.bmp")}));
    whenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_TRUE(dialogs.openFiles(request).isEmpty());
}

TEST(OpenDialog, BeginsWhereTheLastOneEnded)
{
    const TempTree tree({{"p/a.bmp", ""}, {"home/Pictures/", ""}});
    QtDialogs dialogs;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), tree.path("home/Pictures"));
        typeName(dialog, tree.path("p/a.bmp"));
    });
    EXPECT_EQ(dialogs.openFiles({}).size(), 1);
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), tree.path("p"));
        dialog.reject();
    });
    EXPECT_TRUE(dialogs.openFiles({}).isEmpty());
}

TEST(SaveDialog, AddsNoExtensionAndTellsTheFilter)
{
    const TempTree tree({{"p/", ""}});
    QtDialogs dialogs;
    FileRequest request;
    request.folder = tree.path("p");
    request.fileName = "proposed";
    request.filter = "BMP (*.BMP)|*.bmp|GIF (*.Gif)|*.gif|JPG (*.JPG)|*.jpg";
    whenOpen<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "proposed");
        dialog.selectNameFilter(dialog.nameFilters().at(1));
        typeName(dialog, "picture");
    });
    const auto choice = dialogs.saveFile(request);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->path, tree.path("p/picture"));
    EXPECT_EQ(choice->filterIndex, 2);
}

TEST(SaveDialog, ReplacesWithoutAQuestionUnlessItIsAskedFor)
{
    const TempTree tree({{"p/a.bmp", "old"}});
    QtDialogs dialogs;
    FileRequest request;
    request.folder = tree.path("p");
    request.filter = "BMP (*.BMP)|*.bmp";
    whenOpen<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "a.bmp"); });
    const auto choice = dialogs.saveFile(request);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->path, tree.path("p/a.bmp"));
    EXPECT_EQ(choice->filterIndex, 1);

    request.askBeforeReplacing = true;
    bool wasAsked = false;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        whenOpen<QMessageBox>([&](QMessageBox& box) {
            wasAsked = true;
            box.button(QMessageBox::No)->click();
        });
        typeName(dialog, "a.bmp");
        dialog.reject();
    });
    EXPECT_FALSE(dialogs.saveFile(request));
    EXPECT_TRUE(wasAsked);
}

TEST(ColourDialog, GivesAndTakesColourNumbers)
{
    QtDialogs dialogs;
    whenOpen<QColorDialog>([](QColorDialog& dialog) {
        EXPECT_EQ(dialog.currentColor(), QColor(10, 20, 30));
        dialog.setCurrentColor(QColor(82, 109, 220));
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(dialogs.chooseColour(base::rgb(10, 20, 30)), base::rgb(82, 109, 220));
    whenOpen<QColorDialog>([](QColorDialog& dialog) {
        EXPECT_EQ(dialog.currentColor(), QColor(0xC0, 0xC0, 0xC0));
        dialog.reject();
    });
    EXPECT_FALSE(dialogs.chooseColour(base::systemColour(15)));
}

TEST(TextDialog, ProposesAndReturnsAText)
{
    QtDialogs dialogs;
    whenOpen<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Renname Favortie");
        EXPECT_EQ(dialog.labelText(), "Name: ");
        EXPECT_EQ(dialog.textValue(), "old");
        dialog.setTextValue("new");
        dialog.accept();
    });
    EXPECT_EQ(dialogs.askText("Name: ", "Renname Favortie", "old"), QString("new"));
    whenOpen<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
    EXPECT_FALSE(dialogs.askText("Name: ", "", ""));
}

TEST(FakeDialogs, RecordAndAnswerFromTheirScript)
{
    platform::FakeDialogs fake;
    {
        const platform::ScopedDialogs scope(fake);
        fake.yesNoAnswers = {true};
        fake.saveAnswers = {platform::SaveChoice{"/a", 3}, std::nullopt};
        int timesOpen = 0;
        fake.whileOpen = [&] { ++timesOpen; };
        platform::dialogs().showMessage("Text", "Title", BoxIcon::Exclamation);
        EXPECT_TRUE(platform::dialogs().askYesNo("Sure?", ""));
        EXPECT_FALSE(platform::dialogs().askYesNo("Sure?", ""));
        EXPECT_EQ(platform::dialogs().saveFile({})->filterIndex, 3);
        EXPECT_FALSE(platform::dialogs().saveFile({}));
        EXPECT_FALSE(platform::dialogs().chooseColour(7));
        EXPECT_EQ(timesOpen, 6);
    }
    EXPECT_EQ(fake.boxTexts(), QStringList({"Text", "Sure?", "Sure?"}));
    EXPECT_EQ(fake.boxes[0], (platform::FakeDialogs::Box{"Text", "Title", BoxIcon::Exclamation}));
    EXPECT_EQ(fake.colourRequests, std::vector<base::Colour>({7}));
    EXPECT_NE(&platform::dialogs(), &fake);
}
