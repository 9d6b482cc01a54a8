#include "core/window_registry.h"
#include "files/explorer/folder_tree.h"
#include "shell/accessible_tree.h"
#include "shell/running_program.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAbstractButton>
#include <gtest/gtest.h>
#include <set>

namespace {

using accessible_tree::Part;

bool isIconOnly(const QAbstractButton& button)
{
    return button.text().isEmpty();
}

class AccessibilityTest : public testing::Test {
protected:
    // Runs the program with the pan view open and calls a function for each of its windows.
    void forEachWindow(const std::function<void(const QString&, QWidget&)>& look)
    {
        program.run([&](Form1& form) {
            form.viewer().setPicture(platform::Picture(QImage(40, 30, QImage::Format_RGB32)));
            form.Smallfrm();
            // Those of the start are open already.
            for (const core::Window which : core::windows().withFactory()) {
                QWidget* window = core::windows().load(which);
                if (window != nullptr) { // a factory of another test makes none
                    look(core::windowName(which), *window);
                }
            }
        });
    }

    RunningProgram program;
};

} // namespace

TEST_F(AccessibilityTest, NamesEverythingThatIsOperatedInEveryWindow)
{
    int looked = 0;
    std::set<QString> windows;
    forEachWindow([&](const QString& name, QWidget& window) {
        windows.insert(name);
        accessible_tree::walk(window, [&](const Part& part) {
            if (!accessible_tree::needsName(part)) {
                return;
            }
            ++looked;
            EXPECT_FALSE(part.name.trimmed().isEmpty()) << "no name: " << part.path.toStdString();
            EXPECT_FALSE(part.widget != nullptr && accessible_tree::isInternalName(part.name))
                << part.path.toStdString() << " is called " << part.name.toStdString();
        });
    });
    for (const char* known : {"Form1", "frmThumbnaillist", "fastZoom", "Favorties", "Form4"}) {
        EXPECT_TRUE(windows.contains(QString::fromLatin1(known))) << known;
    }
    EXPECT_GT(looked, 200);
}

TEST_F(AccessibilityTest, ReachesTheControlsOfTheMainWindow)
{
    program.run([](Form1& form) {
        form.Smallfrm();
        QSet<QString> met;
        accessible_tree::walk(form, [&](const Part& part) {
            if (part.widget != nullptr) {
                met.insert(part.widget->objectName());
            }
        });
        for (const char* name : {"cpvPicScroll1", "frmPanView", "frmThumbnaillist", "Xiala",
                                 "goEnter", "Tbmenu_0", "Tbmenub_8", "KeyButton_fullscreen",
                                 "ThumbNailList1", "Splitter", "p1", "FolderTree", "menuBar"}) {
            EXPECT_TRUE(met.contains(QString::fromLatin1(name))) << name;
        }
    });
}

TEST_F(AccessibilityTest, GivesTipsToButtonsThatShowOnlyAPicture)
{
    int buttons = 0;
    forEachWindow([&](const QString& name, QWidget& window) {
        for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
            if (isIconOnly(*button)) {
                ++buttons;
                EXPECT_FALSE(button->toolTip().isEmpty())
                    << name.toStdString() << '/' << button->objectName().toStdString();
            }
        }
    });
    EXPECT_GT(buttons, 30);
}
