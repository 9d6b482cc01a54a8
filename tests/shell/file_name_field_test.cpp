#include "shell/file_name_field.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
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
