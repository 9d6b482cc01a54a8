#include "shell/preferences/folder_chooser_window.h"

#include "core/window_registry.h"
#include "files/explorer/ctl_explorer.h"
#include "platform/desktop/pointer.h"
#include "shell/preferences/options_window.h"
#include "shell/preferences/windows.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"
#include "widgets/title_strip.h"

#include <QAbstractButton>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <optional>

namespace {

class FolderChooser : public testing::Test {
protected:
    FolderChooser()
    {
        preferences::registerWindows();
        config.values["SpeciFolder"] = tree.path("pics/one");
        options = core::windows().show(core::Window::OptionsForm);
    }
    ~FolderChooser() override
    {
        core::windows().unload(core::Window::FilePreivew);
        core::windows().unload(core::Window::OptionsForm);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        platform::setPointer(platform::Pointer::Default);
    }

    [[nodiscard]] QLineEdit& field() const
    {
        return *options->findChild<QLineEdit*>("Specifolder");
    }
    // Presses Browse and acts in the chooser, which is to be closed by that.
    void browse(const std::function<void(FilePreivew&)>& act)
    {
        int shown = 0;
        QTimer::singleShot(0, qApp, [&] {
            auto* window =
                qobject_cast<FilePreivew*>(core::windows().find(core::Window::FilePreivew));
            ASSERT_NE(window, nullptr);
            ++shown;
            act(*window);
        });
        options->findChild<QAbstractButton*>("chameleonButton1")->click();
        EXPECT_EQ(shown, 1);
        EXPECT_FALSE(core::windows().isLoaded(core::Window::FilePreivew));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static ctlExplorer& explorer(const FilePreivew& window)
    {
        return *window.findChild<ctlExplorer*>("ctlExplorer1");
    }
    static QTreeView& treeOf(const FilePreivew& window)
    {
        return *window.findChild<QTreeView*>("TreeView1");
    }
    static QAbstractButton& button(const FilePreivew& window, const char* name)
    {
        return *window.findChild<QAbstractButton*>(QString::fromLatin1(name));
    }

    support::TempTree tree{{"pics/one/", ""}, {"pics/two/", ""}};
    support::MemoryConfigStore config;
    QPointer<QWidget> options;
};

} // namespace

TEST_F(FolderChooser, OpensOnTheFolderInTheFieldAndPutsTheChosenOneThere)
{
    browse([this](FilePreivew& window) {
        EXPECT_TRUE(window.isModal());
        EXPECT_EQ(window.parentWidget(), options);
        EXPECT_EQ(explorer(window).properties().Style, 0);
        EXPECT_EQ(explorer(window).path(), tree.path("pics/one"));
        EXPECT_TRUE(treeOf(window).isVisible());
        explorer(window).setPath(tree.path("pics/two"));
        button(window, "chameleonButton1").click();
    });
    EXPECT_EQ(field().text(), tree.path("pics/two"));
    EXPECT_EQ(config.values["SpeciFolder"], tree.path("pics/one"));
}

TEST_F(FolderChooser, LeavesTheFieldUnderCancelEscapeAndTheBoxOfTheStrip)
{
    const std::function<void(FilePreivew&)> ways[] = {
        [](FilePreivew& window) { button(window, "Cancel").click(); },
        [](FilePreivew& window) { QTest::keyClick(&treeOf(window), Qt::Key_Escape); },
        [](FilePreivew& window) {
            window.findChild<widgets::TitleStrip*>("Picture2")->closeBox()->click();
        }};
    for (const auto& way : ways) {
        browse([&](FilePreivew& window) {
            explorer(window).setPath(tree.path("pics/two"));
            way(window);
        });
        EXPECT_EQ(field().text(), tree.path("pics/one"));
    }
}

TEST_F(FolderChooser, TakesTheFolderByReturnInTheTree)
{
    browse([](FilePreivew& window) {
        QTest::keyClick(&treeOf(window), Qt::Key_Down);
        QTest::keyClick(&treeOf(window), Qt::Key_Return);
    });
    EXPECT_EQ(field().text(), tree.path("pics/two"));
}

TEST_F(FolderChooser, OffersNoPlaceThatIsNoFolder)
{
    browse([](FilePreivew& window) {
        EXPECT_TRUE(button(window, "chameleonButton1").isEnabled());
        treeOf(window).setCurrentIndex(treeOf(window).model()->index(0, 0));
        EXPECT_TRUE(explorer(window).path().startsWith("Root_"));
        EXPECT_FALSE(button(window, "chameleonButton1").isEnabled());
        QTest::keyClick(&treeOf(window), Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        button(window, "Cancel").click();
    });
    EXPECT_EQ(field().text(), tree.path("pics/one"));
}

TEST_F(FolderChooser, StaysWhereTheFolderHasGone)
{
    browse([this](FilePreivew& window) {
        tree.remove("pics/one");
        button(window, "chameleonButton1").click();
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(button(window, "chameleonButton1").isEnabled());
        button(window, "Cancel").click();
    });
    EXPECT_EQ(field().text(), tree.path("pics/one"));
}

TEST_F(FolderChooser, OpensOnThePicturesWhereTheFieldNamesNoFolder)
{
    field().setText("/no/such/folder");
    browse([](FilePreivew& window) {
        EXPECT_EQ(explorer(window).path(), platform::picturesFolder());
        window.close();
    });
    EXPECT_EQ(field().text(), "/no/such/folder");
}

TEST_F(FolderChooser, IsMadeUnderTheHourglassAndGivesThePointerBack)
{
    platform::setPointer(platform::Pointer::SizeNS);
    std::optional<platform::Pointer> whileMade;
    core::windows().add(core::Window::FilePreivew, [&] {
        whileMade = platform::pointer();
        return new FilePreivew;
    });
    browse([](FilePreivew& window) {
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        window.close();
    });
    EXPECT_EQ(whileMade, platform::Pointer::HourGlass);
    EXPECT_EQ(platform::pointer(), platform::Pointer::SizeNS);
}

TEST_F(FolderChooser, GoesWithTheSettingsWindow)
{
    browse([](FilePreivew& /*window*/) {
        core::windows().unload(core::Window::FilePreivew);
        core::windows().unload(core::Window::OptionsForm);
    });
    EXPECT_EQ(options, nullptr);
}
