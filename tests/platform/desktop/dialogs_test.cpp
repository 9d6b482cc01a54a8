#include "platform/desktop/dialogs.h"

#include "platform/desktop/file_filters.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/desktop/qt_dialogs.h"
#include "support/fake_dialogs.h"
#include "support/temp_tree.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <gtest/gtest.h>

using platform::BoxIcon;
using platform::FileRequest;
using platform::MessageBox;
using platform::QtDialogs;
using support::TempTree;

namespace {

// Runs an action on the dialog once it is open, from its own event loop.
template<typename Dialog, typename Action> void whenOpen(Action action)
{
    QTimer::singleShot(0, qApp, [action] {
        auto* const dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        action(*dialog);
    });
}

QAbstractButton* button(const QDialog& dialog, const QString& caption)
{
    for (QAbstractButton* candidate : dialog.findChildren<QAbstractButton*>()) {
        if (QString(candidate->text()).remove('&') == caption) {
            return candidate;
        }
    }
    return nullptr;
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
    whenOpen<MessageBox>([&](MessageBox& box) {
        auto* const words = box.findChild<QLabel*>("text");
        EXPECT_EQ(words->text(), "<b>No picture to process.</b>");
        EXPECT_EQ(words->textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "");
        ASSERT_EQ(box.findChildren<QPushButton*>().size(), 1);
        wasShown = true;
        button(box, "OK")->click();
    });
    dialogs.showMessage("<b>No picture to process.</b>", "", BoxIcon::Information);
    EXPECT_TRUE(wasShown);
}

TEST(MessageBox, HasAnIconForEachKind)
{
    QtDialogs dialogs;
    const std::pair<BoxIcon, QStyle::StandardPixmap> icons[] = {
        {BoxIcon::Information, QStyle::SP_MessageBoxInformation},
        {BoxIcon::Exclamation, QStyle::SP_MessageBoxWarning},
        {BoxIcon::Critical, QStyle::SP_MessageBoxCritical},
        {BoxIcon::Question, QStyle::SP_MessageBoxQuestion},
    };
    for (const auto& [asked, shown] : icons) {
        whenOpen<MessageBox>([expected = shown](MessageBox& box) {
            const QPixmap picture = box.findChild<QLabel*>("icon")->pixmap(Qt::ReturnByValue);
            const QImage icon =
                box.style()->standardIcon(expected).pixmap(picture.size()).toImage();
            EXPECT_FALSE(icon.isNull());
            EXPECT_EQ(picture.toImage(), icon);
            EXPECT_EQ(box.windowTitle(), "Title");
            box.accept();
        });
        dialogs.showMessage("Text", "Title", asked);
    }
}

TEST(MessageBox, LeavesNoRoomForAnIconThatItHasNot)
{
    QtDialogs dialogs;
    whenOpen<MessageBox>([](MessageBox& box) {
        const QWidget& words = *box.findChild<QLabel*>("text");
        EXPECT_EQ(words.mapTo(&box, QPoint(0, 0)).x(), box.layout()->contentsMargins().left());
        EXPECT_EQ(box.findChildren<QLabel*>().size(), 1);
        box.accept();
    });
    dialogs.showMessage("Text", "", BoxIcon::None);
}

TEST(MessageBox, IsWideEnoughForItsTitle)
{
    QtDialogs dialogs;
    const QString longTitle = "A title that is a good deal longer than the words of its box";
    for (const QString& title : {QString("Vistara"), longTitle}) {
        whenOpen<MessageBox>([](MessageBox& box) {
            EXPECT_GE(box.width(), 320);
            EXPECT_GE(box.width(), box.fontMetrics().horizontalAdvance(box.windowTitle()) + 100);
            box.accept();
        });
        dialogs.showMessage("Text", title, BoxIcon::Information);
    }
    whenOpen<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_GE(dialog.width(), 320);
        dialog.reject();
    });
    EXPECT_FALSE(dialogs.askText("Name: ", "Renname Favortie", "old"));
}

// No blank to wrap at, and a length that no screen is wide enough for.
TEST(MessageBox, KeepsALongPathOnTheScreen)
{
    const QString path = "/" + QString("folder_").repeated(580) + "end.jpg";
    QtDialogs dialogs;
    whenOpen<MessageBox>([&](MessageBox& box) {
        const QSize screen = box.screen()->availableSize();
        EXPECT_LE(box.width(), screen.width());
        EXPECT_LE(box.height(), screen.height());
        auto* const words = box.findChild<QLabel*>("text");
        EXPECT_EQ(words->text(), path);
        // Every line is painted: ink reaches into the last one.
        const QImage image = words->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRect lastLine(0, image.height() - words->fontMetrics().height(), image.width(),
                             words->fontMetrics().height());
        const QImage foot = image.copy(lastLine);
        QImage blank = foot;
        blank.fill(foot.pixel(foot.width() - 1, foot.height() - 1));
        EXPECT_NE(foot, blank);
        box.accept();
    });
    dialogs.showMessage(path, "", BoxIcon::None);
}

TEST(MessageBox, ShortensWhatWouldFillTheScreen)
{
    QtDialogs dialogs;
    whenOpen<MessageBox>([](MessageBox& box) {
        EXPECT_LE(box.height(), box.screen()->availableSize().height());
        box.accept();
    });
    dialogs.showMessage(QString("x").repeated(100000), "", BoxIcon::Information);
}

TEST(YesNoBox, IsYesForYesOnly)
{
    QtDialogs dialogs;
    whenOpen<MessageBox>([](MessageBox& box) { button(box, "Yes")->click(); });
    EXPECT_TRUE(dialogs.askYesNo("Delete?", "Vistara", {}));
    whenOpen<MessageBox>([](MessageBox& box) { button(box, "No")->click(); });
    EXPECT_FALSE(dialogs.askYesNo("Delete?", "Vistara", {}));
    whenOpen<MessageBox>([](MessageBox& box) { box.close(); });
    EXPECT_FALSE(dialogs.askYesNo("Delete?", "Vistara", {}));
}

TEST(YesNoBox, AnswersReturnWithItsPreset)
{
    QtDialogs dialogs;
    const auto pressReturn = [](MessageBox& box) {
        QWidget* const focus = box.focusWidget();
        ASSERT_NE(focus, nullptr);
        QTest::keyClick(focus, Qt::Key_Return);
    };
    whenOpen<MessageBox>(pressReturn);
    EXPECT_TRUE(dialogs.askYesNo("Sure?", "Vistara", {}));
    platform::Subject subject;
    subject.preset = platform::Answer::No;
    whenOpen<MessageBox>(pressReturn);
    EXPECT_FALSE(dialogs.askYesNo("Sure?", "Vistara", subject));
}

TEST(YesNoBox, ShowsWhatItIsAbout)
{
    QtDialogs dialogs;
    platform::Subject subject;
    subject.picture = QImage(60, 40, QImage::Format_RGB32);
    subject.picture.fill(Qt::red);
    subject.facts = "3 files";
    whenOpen<MessageBox>([](MessageBox& box) {
        EXPECT_EQ(box.findChild<QLabel*>("facts")->text(), "3 files");
        const QImage shown = box.grab().toImage();
        int red = 0;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                red += shown.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
            }
        }
        EXPECT_EQ(red, 60 * 40);
        box.reject();
    });
    EXPECT_FALSE(dialogs.askYesNo("Delete?", "Delete", subject));
}

TEST(Dialogs, HaveAFrameThatOnlyCloses)
{
    QtDialogs dialogs;
    const auto inspect = [](QDialog& dialog) {
        const Qt::WindowFlags flags = dialog.windowFlags();
        EXPECT_FALSE(flags & Qt::WindowMinMaxButtonsHint);
        EXPECT_TRUE(flags & Qt::WindowTitleHint);
        EXPECT_TRUE(flags & Qt::WindowCloseButtonHint);
        for (const auto* box : dialog.findChildren<QDialogButtonBox*>()) {
            for (const QAbstractButton* answer : box->buttons()) {
                EXPECT_TRUE(answer->icon().isNull()) << answer->text().toStdString();
            }
        }
        dialog.reject();
    };
    whenOpen<QDialog>(inspect);
    dialogs.showMessage("Text", "", BoxIcon::Information);
    whenOpen<QDialog>(inspect);
    EXPECT_FALSE(dialogs.askYesNo("Sure?", "", {}));
    whenOpen<QDialog>(inspect);
    EXPECT_FALSE(dialogs.askText("Name: ", "", ""));
    whenOpen<QDialog>(inspect);
    EXPECT_FALSE(dialogs.saveFile({}));
    whenOpen<QDialog>(inspect);
    EXPECT_FALSE(dialogs.chooseColour(0));
}

TEST(Dialogs, StandUnderTheDefaultPointer)
{
    QtDialogs dialogs;
    const platform::PointerGuard hourglass;
    const auto inspect = [](QDialog& dialog) {
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        dialog.reject();
    };
    whenOpen<QDialog>(inspect);
    dialogs.showMessage("Text", "", BoxIcon::Information);
    EXPECT_EQ(platform::pointer(), platform::Pointer::HourGlass);
    whenOpen<QDialog>(inspect);
    EXPECT_TRUE(dialogs.openFiles({}).isEmpty());
    EXPECT_EQ(platform::pointer(), platform::Pointer::HourGlass);
}

TEST(Dialogs, EndWhenTheProgramCloses)
{
    QtDialogs dialogs;
    const auto closeProgram = [] { QTimer::singleShot(0, qApp, [] { platform::beginClosing(); }); };
    closeProgram();
    EXPECT_FALSE(dialogs.askYesNo("Delete?", "", {}));
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
    whenOpen<MessageBox>([&menuEnded](MessageBox& box) {
        QMenu menu(&box);
        menu.addAction("Copy");
        QTimer::singleShot(0, qApp, [] {
            EXPECT_NE(QApplication::activePopupWidget(), nullptr);
            platform::beginClosing();
        });
        menu.exec();
        menuEnded = true;
    });
    EXPECT_FALSE(dialogs.askYesNo("Delete?", "", {}));
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
    whenOpen<MessageBox>([window](MessageBox& box) {
        EXPECT_EQ(box.parentWidget(), window);
        delete window;
    });
    EXPECT_FALSE(dialogs.askYesNo("Delete?", "", {}));
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

TEST(SaveDialog, GivesTheProposedNameTheExtensionOfTheFilter)
{
    const TempTree tree({{"p/", ""}});
    QtDialogs dialogs;
    FileRequest request;
    request.folder = tree.path("p");
    request.fileName = "Birch wood.bmp";
    request.filter = "BMP (*.BMP)|*.bmp|GIF (*.Gif)|*.gif|JPG (*.JPG)|*.jpg";
    whenOpen<QFileDialog>([](QFileDialog& dialog) {
        auto* const name = dialog.findChild<QLineEdit*>("fileNameEdit");
        EXPECT_EQ(name->text(), "Birch wood.bmp");
        auto* const kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
        kinds->setCurrentIndex(2);
        emit kinds->activated(2);
        EXPECT_EQ(name->text(), "Birch wood.jpg");
        static_cast<QDialog&>(dialog).accept();
    });
    const auto choice = dialogs.saveFile(request);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->path, tree.path("p/Birch wood.jpg"));
    EXPECT_EQ(choice->filterIndex, 3);
}

TEST(FileDialogs, ShowNamesInFull)
{
    const QString name = "A summer evening by the lake, 2019.bmp";
    const TempTree tree({{"p/" + name.toStdString(), ""}});
    QtDialogs dialogs;
    FileRequest request;
    request.folder = tree.path("p");
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        dialog.setViewMode(QFileDialog::Detail);
        EXPECT_EQ(listedNames(dialog, 1), QStringList({name}));
        auto* const list = dialog.findChild<QTreeView*>("treeView");
        const QModelIndex row = list->model()->index(0, 0, list->rootIndex());
        const int icon = list->iconSize().width() > 0 ? list->iconSize().width() : 16;
        EXPECT_GE(list->visualRect(row).width(),
                  list->fontMetrics().horizontalAdvance(name) + icon + 8);
        EXPECT_TRUE(
            list->viewport()->rect().contains(list->visualRect(row.siblingAtColumn(3)).center()));
        dialog.reject();
    });
    EXPECT_FALSE(dialogs.saveFile(request));
}

TEST(ColourDialog, GivesAndTakesColourNumbers)
{
    QtDialogs dialogs;
    whenOpen<QColorDialog>([](QColorDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Select Color");
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

TEST(PasswordDialog, HidesWhatIsTyped)
{
    QtDialogs dialogs;
    whenOpen<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Mail");
        EXPECT_EQ(dialog.labelText(), "Password:");
        EXPECT_EQ(dialog.textEchoMode(), QLineEdit::Password);
        EXPECT_EQ(dialog.textValue(), "");
        dialog.setTextValue(" secret ");
        dialog.accept();
    });
    EXPECT_EQ(dialogs.askPassword("Password:", "Mail"), QString(" secret "));
    whenOpen<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
    EXPECT_FALSE(dialogs.askPassword("Password:", ""));
}

TEST(FontDialog, ProposesAndReturnsAFont)
{
    QtDialogs dialogs;
    QFont font = QApplication::font();
    font.setPointSize(17);
    whenOpen<QFontDialog>([](QFontDialog& dialog) {
        EXPECT_EQ(dialog.currentFont().pointSize(), 17);
        dialog.setCurrentFont(QFont(QStringLiteral("DejaVu Sans"), 17, QFont::Bold));
        static_cast<QDialog&>(dialog).accept();
    });
    const std::optional<QFont> chosen = dialogs.chooseFont(font);
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(chosen->bold());
    EXPECT_EQ(chosen->pointSize(), 17);
    whenOpen<QFontDialog>([](QFontDialog& dialog) { dialog.reject(); });
    EXPECT_FALSE(dialogs.chooseFont(font));
}

TEST(MessageBox, ShowsTheIconOfItsSubjectWithAQuestion)
{
    QtDialogs dialogs;
    whenOpen<MessageBox>([](MessageBox& box) {
        const QPixmap picture = box.findChild<QLabel*>("icon")->pixmap(Qt::ReturnByValue);
        const QIcon icon = box.style()->standardIcon(QStyle::SP_MessageBoxInformation);
        EXPECT_EQ(picture.toImage(), icon.pixmap(picture.size()).toImage());
        box.accept();
    });
    platform::Subject told;
    told.icon = BoxIcon::Information;
    EXPECT_TRUE(dialogs.askYesNo("Sure?", "", told));
}

TEST(FakeDialogs, RecordAndAnswerFromTheirScript)
{
    const platform::Dialogs* const before = &platform::dialogs();
    auto inPlace = std::make_unique<support::FakeDialogs>();
    support::FakeDialogs& fake = *inPlace;
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
    EXPECT_EQ(fake.boxTexts(), QStringList({"Text", "Sure?", "Sure?"}));
    EXPECT_EQ(fake.boxes[0], (support::FakeDialogs::Box{"Text", "Title", BoxIcon::Exclamation}));
    EXPECT_EQ(fake.colourRequests, std::vector<base::Colour>({7}));
    inPlace.reset();
    EXPECT_EQ(&platform::dialogs(), before);
}
