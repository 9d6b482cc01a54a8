#include "editing/switch_window.h"

#include "editing/edit_fixture.h"
#include "files/text_list.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {

class SwitchWindow : public EditTest {
protected:
    SwitchWindow()
    {
        tree.add({"home/tools/paint"});
        tree.add({"home/tools/old/draw"});
        m_window = qobject_cast<FrmSwitch*>(core::windows().load(core::Window::FrmSwitch));
    }

    template<typename Control> Control* control(const char* name) const
    {
        return m_window->findChild<Control*>(name);
    }
    void type(const char* field, const QString& text) const
    {
        control<QLineEdit>(field)->setText(text);
    }
    void press() const { control<QPushButton>("Command1")->click(); }

    static QStringList entries(const QListWidget& list)
    {
        QStringList texts;
        for (int i = 0; i < list.count(); ++i) {
            texts.append(list.item(i)->text());
        }
        return texts;
    }

    static void select(QListWidget& list, const QString& text)
    {
        const auto items = list.findItems(text, Qt::MatchExactly);
        ASSERT_EQ(items.size(), 1);
        list.setCurrentItem(items.front());
    }

    // As Return or a double click does.
    void enter(const QString& folder) const
    {
        auto* folders = control<QListWidget>("Dir1");
        select(*folders, folder);
        emit folders->itemActivated(folders->currentItem());
    }

    FrmSwitch* m_window = nullptr;
};

} // namespace

TEST_F(SwitchWindow, FillsThePathFromTheLists)
{
    control<QComboBox>("Drive1")->setCurrentText(tree.path("home"));
    EXPECT_EQ(entries(*control<QListWidget>("Dir1")), QStringList({"..", "tools"}));
    enter("tools");
    EXPECT_EQ(entries(*control<QListWidget>("Dir1")), QStringList({"..", "old"}));
    EXPECT_EQ(entries(*control<QListWidget>("Filelist")), QStringList({"paint"}));
    EXPECT_EQ(control<QLineEdit>("Text1")->text(), "");
    select(*control<QListWidget>("Filelist"), "paint");
    EXPECT_EQ(control<QLineEdit>("Text1")->text(), tree.path("home/tools/paint"));
    enter("old");
    select(*control<QListWidget>("Filelist"), "draw");
    EXPECT_EQ(control<QLineEdit>("Text1")->text(), tree.path("home/tools/old/draw"));
    enter("..");
    EXPECT_EQ(entries(*control<QListWidget>("Filelist")), QStringList({"paint"}));
}

TEST_F(SwitchWindow, OpensAFolderByReturnAndAddsNothing)
{
    control<QComboBox>("Drive1")->setCurrentText(tree.path("home"));
    type("Text1", "/usr/bin/paint");
    type("SwitchName", "Paint");
    auto* folders = control<QListWidget>("Dir1");
    select(*folders, "tools");
    QTest::keyClick(folders, Qt::Key_Return);
    EXPECT_EQ(entries(*folders), QStringList({"..", "old"}));
    EXPECT_TRUE(core::windows().isLoaded(core::Window::FrmSwitch));
    EXPECT_TRUE(config.values.empty());
}

TEST_F(SwitchWindow, AddsByReturnInItsFieldsAndItsFileList)
{
    control<QComboBox>("Drive1")->setCurrentText(tree.path("home"));
    enter("tools");
    auto* list = control<QListWidget>("Filelist");
    select(*list, "paint");
    QTest::keyClick(control<QLineEdit>("SwitchName"), Qt::Key_Return);
    EXPECT_TRUE(core::windows().isLoaded(core::Window::FrmSwitch));
    type("SwitchName", "Paint");
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(core::windows().isLoaded(core::Window::FrmSwitch));
    EXPECT_EQ(tree.content("app/SwitchName.txt"),
              ("Paint#" + tree.path("home/tools/paint") + ";").toStdString());
}

TEST_F(SwitchWindow, StaysInAFolderWhenTheNextOneCantBeRead)
{
    control<QComboBox>("Drive1")->setCurrentText(tree.path("home"));
    tree.remove("home/tools");
    enter("tools");
    EXPECT_EQ(entries(*control<QListWidget>("Dir1")), QStringList({"..", "tools"}));
}

TEST_F(SwitchWindow, LeavesTheTopOnlyDownwards)
{
    auto* drives = control<QComboBox>("Drive1");
    drives->setCurrentText(tree.path("home"));
    drives->setCurrentText("/");
    EXPECT_FALSE(entries(*control<QListWidget>("Dir1")).contains(".."));
}

TEST_F(SwitchWindow, NeedsBothTexts)
{
    press();
    type("Text1", "/usr/bin/paint");
    press();
    type("Text1", "");
    type("SwitchName", "Paint");
    press();
    EXPECT_FALSE(exists("SwitchName.txt"));
    EXPECT_TRUE(config.values.empty());
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_TRUE(core::windows().isLoaded(core::Window::FrmSwitch));
}

TEST_F(SwitchWindow, AppendsTheProgramAndRebuildsTheMenu)
{
    files::addNamed(files::kEditors, {"Draw", "/usr/bin/draw"});
    type("Text1", "/usr/bin/paint");
    type("SwitchName", "Paint");
    press();
    EXPECT_EQ(tree.content("app/SwitchName.txt"), "Draw#/usr/bin/draw;Paint#/usr/bin/paint;");
    EXPECT_EQ(config.values["Sno"], "2");
    EXPECT_EQ(form.log, QStringList({"refillListMenus"}));
    EXPECT_FALSE(core::windows().isLoaded(core::Window::FrmSwitch));
}
