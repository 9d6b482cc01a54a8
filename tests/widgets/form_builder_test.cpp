#include "widgets/form_builder.h"

#include "widgets/colour_swatch.h"
#include "widgets/strip_window.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using widgets::FormBuilder;
using widgets::PressedBy;

class FormBuilderTest : public testing::Test {
protected:
    widgets::FormButton button(const char* name, PressedBy keys)
    {
        return {name, "&Press", [this, name] { m_pressed.append(name); }, keys};
    }

    // The names of the stops from the first on, by Tab.
    [[nodiscard]] QStringList stops(int count)
    {
        QStringList names;
        for (int k = 0; k < count; ++k) {
            names.append(m_window.focusWidget()->objectName());
            QTest::keyClick(m_window.focusWidget(), Qt::Key_Tab);
        }
        return names;
    }

    widgets::StripWindow m_window{"Caption"};
    FormBuilder m_form{m_window};
    QStringList m_pressed;
};

} // namespace

TEST_F(FormBuilderTest, NamesItsParts)
{
    auto* option = m_form.add(new QRadioButton("Under its &path:"), "Option1");
    EXPECT_EQ(option->objectName(), "Option1");
    EXPECT_EQ(option->accessibleName(), "Under its path:");
    auto* list = m_form.own(new QListWidget, "List1", "Entries");
    EXPECT_EQ(list->parentWidget(), &m_window);
    EXPECT_EQ(list->accessibleName(), "Entries");
    EXPECT_EQ(list->verticalScrollBar()->accessibleName(), "Scroll up and down");
    auto* number = m_form.add(new QSpinBox, "spnCopies", "Copies");
    EXPECT_EQ(number->findChild<QLineEdit*>()->accessibleName(), "Copies");
}

TEST_F(FormBuilderTest, KeepsTheNameOfAButtonWithoutCaption)
{
    const auto* swatch = m_form.add(new AASelectColor, "AASelectColor1", "Colour of the viewer");
    EXPECT_EQ(swatch->accessibleName(), "Colour of the viewer");
}

TEST_F(FormBuilderTest, PutsPartsOnThePagesOfAStack)
{
    auto* stack = m_form.add(new QStackedWidget, "pages");
    FormBuilder first = m_form.addPage(*stack, "first", "First");
    FormBuilder second = m_form.addPage(*stack, "second", "Second");
    first.addHeading("Heading");
    first.addNote("a note that takes more lines than one", 60);
    const QWidget* above = first.addField("above", "Above");
    const QWidget* hidden = second.addField("hidden", "Hidden");
    m_window.show();
    EXPECT_EQ(stack->widget(0)->objectName(), "first");
    EXPECT_EQ(stack->widget(1)->accessibleName(), "Second");
    EXPECT_TRUE(stack->widget(0)->isAncestorOf(above));
    EXPECT_FALSE(hidden->isVisible());
    const auto labels = stack->widget(0)->findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_TRUE(labels[0]->font().bold() || labels[0]->font().weight() == QFont::DemiBold);
    EXPECT_EQ(labels[1]->width(), 60);
    EXPECT_GE(labels[1]->height(), 3 * labels[1]->fontMetrics().height());
    EXPECT_GT(above->y(), labels[1]->geometry().bottom());
}

TEST_F(FormBuilderTest, LetsTabGoThroughThePartsAsTheyCame)
{
    m_form.addField("first", "First");
    FormBuilder row = m_form.addRow();
    row.addColumn().addField("second", "Second");
    row.addField("third", "Third");
    m_form.addCaptioned(new QLabel("Four&th:"), new QLineEdit, "fourth");
    m_form.addButtons({button("ok", PressedBy::Return)});
    m_window.show();
    EXPECT_EQ(stops(5), QStringList({"first", "second", "third", "fourth", "ok"}));
}

TEST_F(FormBuilderTest, PlacesPartsBelowAndBesideEachOther)
{
    const QWidget* top = m_form.addField("top", "Top");
    FormBuilder row = m_form.addRow();
    const QWidget* left = row.addField("left", "Left");
    const QWidget* right = row.addField("right", "Right");
    m_window.show();
    EXPECT_GT(left->y(), top->geometry().bottom());
    EXPECT_EQ(left->y(), right->y());
    EXPECT_GT(right->x(), left->geometry().right());
}

TEST_F(FormBuilderTest, KeepsCaptionedPartsInOneTable)
{
    auto* caption = new QLabel("&Width:");
    const QWidget* width = m_form.addCaptioned(caption, new QLineEdit, "width");
    const QWidget* height =
        m_form.addCaptioned(new QLabel("A longer caption:"), new QLineEdit, "height");
    m_window.show();
    EXPECT_EQ(caption->buddy(), width);
    EXPECT_EQ(width->x(), height->x());
    EXPECT_GT(height->y(), width->geometry().bottom());
}

TEST_F(FormBuilderTest, BeginsAnotherTableBehindAStretch)
{
    const QWidget* above = m_form.addCaptioned(new QLabel("&Width:"), new QLineEdit, "width");
    m_form.addStretch();
    const QWidget* below =
        m_form.addCaptioned(new QLabel("A longer caption:"), new QLineEdit, "height");
    m_window.resize(300, 400);
    m_window.show();
    EXPECT_LT(above->x(), below->x());
    EXPECT_GT(below->y() - above->geometry().bottom(), above->height());
}

TEST_F(FormBuilderTest, GivesReturnAndEscapeTheirButtons)
{
    m_form.addField("field", "Field");
    const QPushButton* accept =
        m_form.addButtons({button("other", PressedBy::HandAlone), button("ok", PressedBy::Return),
                           button("cancel", PressedBy::Escape)});
    m_window.show();
    EXPECT_EQ(accept->objectName(), "ok");
    QTest::keyClick(m_window.focusWidget(), Qt::Key_Return);
    QTest::keyClick(m_window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(m_pressed, QStringList({"ok", "cancel"}));
    m_window.findChild<QPushButton*>("other")->click();
    EXPECT_EQ(m_pressed.last(), "other");
}

TEST_F(FormBuilderTest, LetsOneButtonTakeBothKeys)
{
    m_form.addField("field", "Field");
    m_form.addButtons({button("close", PressedBy::ReturnAndEscape)});
    m_window.show();
    QTest::keyClick(m_window.focusWidget(), Qt::Key_Return);
    QTest::keyClick(m_window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(m_pressed, QStringList({"close", "close"}));
}

TEST_F(FormBuilderTest, ClosesByEscapeWhereNoButtonTakesIt)
{
    m_form.addField("field", "Field");
    EXPECT_EQ(m_form.addButtons({button("other", PressedBy::HandAlone)}), nullptr);
    m_window.show();
    QTest::keyClick(m_window.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_TRUE(m_pressed.isEmpty());
}
