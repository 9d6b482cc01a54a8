#include "shell/file_name_field.h"

#include "support/temp_tree.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QSignalSpy>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

const QStringList kPaths{QStringLiteral("/p/a.bmp"), QStringLiteral("/p/B.bmp"),
                         QStringLiteral("/p/a.bmp")};

class FileNameFieldTest : public testing::Test {
protected:
    FileNameFieldTest() { field.setRecentPaths(kPaths); }

    void type(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&field, &event);
    }

    void leave()
    {
        QFocusEvent event(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&field, &event);
    }

    [[nodiscard]] bool takesTheWheel()
    {
        QWheelEvent event({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        event.ignore();
        QApplication::sendEvent(&field, &event);
        return event.isAccepted();
    }

    support::TempTree tree; // where the delivered pictures are looked for
    QWidget window;
    shell::FileNameField field{&window};
    QSignalSpy entered{&field, &shell::FileNameField::entered};
    QSignalSpy chosen{&field, &shell::FileNameField::chosen};
};

} // namespace

TEST_F(FileNameFieldTest, OpensNothingWhenItsTextIsSet)
{
    field.setEditText(kPaths[0]);
    field.setRecentPaths(kPaths);
    EXPECT_EQ(field.currentText(), kPaths[0]);
    EXPECT_EQ(entered.count() + chosen.count(), 0);
}

TEST_F(FileNameFieldTest, EntersOnceOnReturnWhateverTheListHolds)
{
    field.setEditText(kPaths[0]);
    type(Qt::Key_Return);
    type(Qt::Key_Enter);
    EXPECT_EQ(entered.count(), 2);
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(FileNameFieldTest, ChoosesNothingWhenItIsLeft)
{
    field.setEditText(QStringLiteral("/P/b.BMP")); // an entry but for the case
    leave();
    EXPECT_EQ(entered.count() + chosen.count(), 0);
    EXPECT_EQ(field.currentText(), QStringLiteral("/P/b.BMP"));
}

TEST_F(FileNameFieldTest, TellsOfAChoiceInItsList)
{
    type(Qt::Key_Down);
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(field.currentText(), kPaths[0]);
}

TEST_F(FileNameFieldTest, LeavesTheWheelToThePicturesUnlessItHasTheFocus)
{
    EXPECT_FALSE(takesTheWheel());
    EXPECT_EQ(chosen.count(), 0);
    window.show();
    window.activateWindow();
    field.setFocus();
    QApplication::processEvents();
    EXPECT_TRUE(takesTheWheel());
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(FileNameFieldTest, DropsDownAsWideAsItsPathsNeed)
{
    const QString longPath = "/home/somebody/Pictures/A long summer/Evenings by the lake/one.jpg";
    field.setRecentPaths({"/p/a.bmp", longPath});
    window.resize(600, 400);
    field.setGeometry(400, 10, 150, 26);
    window.show();
    field.showPopup();
    QApplication::processEvents();
    const QAbstractItemView& view = *field.view();
    EXPECT_GE(view.viewport()->width(), view.fontMetrics().horizontalAdvance(longPath));
    EXPECT_GE(view.visualRect(view.model()->index(1, 0)).width(),
              view.fontMetrics().horizontalAdvance(longPath));
    EXPECT_LE(view.window()->width(), field.screen()->availableGeometry().width());
    EXPECT_TRUE(field.screen()->availableGeometry().contains(view.window()->frameGeometry()));
    field.hidePopup();
}

TEST_F(FileNameFieldTest, DropsDownNoWiderThanTheScreen)
{
    field.setRecentPaths({"/" + QString("folder/").repeated(500) + "one.jpg"});
    window.resize(600, 400);
    field.setGeometry(400, 10, 150, 26);
    window.show();
    field.showPopup();
    QApplication::processEvents();
    EXPECT_TRUE(
        field.screen()->availableGeometry().contains(field.view()->window()->frameGeometry()));
    field.hidePopup();
}
