#include "widgets/focus_field.h"

#include <QApplication>
#include <QFocusEvent>
#include <gtest/gtest.h>

namespace {

void sendFocus(QWidget& field, QEvent::Type type, Qt::FocusReason reason = Qt::TabFocusReason)
{
    QFocusEvent event(type, reason);
    QApplication::sendEvent(&field, &event);
}

} // namespace

TEST(FocusField, MarksItsBackgroundWhileFocused)
{
    widgets::FocusField field;
    field.setText("120");
    const QColor before = field.palette().color(QPalette::Base);

    sendFocus(field, QEvent::FocusIn);
    EXPECT_EQ(field.palette().color(QPalette::Base), QColor(0xB5, 0xBE, 0xD6));
    EXPECT_EQ(field.selectedText(), "120");

    sendFocus(field, QEvent::FocusOut);
    EXPECT_EQ(field.palette().color(QPalette::Base), before);
}

TEST(FocusField, KeepsTheMarkUnderItsOwnMenu)
{
    widgets::FocusField field;
    sendFocus(field, QEvent::FocusIn);
    sendFocus(field, QEvent::FocusOut, Qt::PopupFocusReason);
    EXPECT_EQ(field.palette().color(QPalette::Base), QColor(0xB5, 0xBE, 0xD6));
}
