#include "shell/preferences/options_window.h"

#include "core/settings.h"
#include "core/window_registry.h"
#include "files/text_list.h"
#include "platform/desktop/pointer.h"
#include "platform/os/profile.h"
#include "shell/preferences/windows.h"
#include "support/fake_browser_pane.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/memory_config_store.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"
#include "widgets/colour_swatch.h"
#include "widgets/title_strip.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSlider>
#include <QStackedWidget>
#include <QTest>
#include <functional>
#include <utility>

namespace {

constexpr base::Colour kRed = 0x0000FF;
constexpr base::Colour kGreen = 0x00FF00;
constexpr base::Colour kBlue = 0xFF0000;

// The settings in a file, as the program keeps them.
class FileSettings : public core::ConfigStore {
public:
    explicit FileSettings(QString path)
        : m_path(std::move(path))
    {
        core::services().config = this;
    }
    ~FileSettings() override { core::services().config = nullptr; }

    [[nodiscard]] QString read(const QString& key) const override
    {
        return platform::readProfile(m_path, "QUILLPOST", key, "ERROR");
    }
    void write(const QString& key, const QString& value) override
    {
        static_cast<void>(platform::writeProfile(m_path, "QUILLPOST", key, value));
    }

private:
    QString m_path;
};

class OptionsTest : public testing::Test {
protected:
    OptionsTest() { preferences::registerWindows(); }

    ~OptionsTest() override
    {
        core::windows().unload(core::Window::OptionsForm);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    OptionsForm& open()
    {
        m_window = qobject_cast<OptionsForm*>(core::windows().show(core::Window::OptionsForm));
        QApplication::setActiveWindow(m_window);
        return *m_window;
    }
    [[nodiscard]] static bool isOpen()
    {
        return core::windows().isLoaded(core::Window::OptionsForm);
    }

    template<typename Control> Control& control(const char* name) const
    {
        return *m_window->findChild<Control*>(QString::fromLatin1(name));
    }
    void click(const char* name) const { control<QAbstractButton>(name).click(); }
    [[nodiscard]] AASelectColor& viewerColour() const
    {
        return control<AASelectColor>("AASelectColor1");
    }
    [[nodiscard]] AASelectColor& titleColour() const
    {
        return control<AASelectColor>("AASelectColor2");
    }
    [[nodiscard]] QSlider& size() const { return control<QSlider>("ThumSize"); }
    [[nodiscard]] QSlider& colours() const { return control<QSlider>("ThumColor"); }
    [[nodiscard]] QLineEdit& startFolder() const { return control<QLineEdit>("Specifolder"); }
    [[nodiscard]] bool isChosen(const char* option) const
    {
        return control<QAbstractButton>(option).isChecked();
    }

    [[nodiscard]] bool shows(const QString& text) const
    {
        for (const QLabel* label : m_window->findChildren<QLabel*>()) {
            if (label->text() == text) {
                return true;
            }
        }
        return false;
    }
    // The calls of the main window, when what was chosen is applied.
    [[nodiscard]] const QStringList& settledLog() const
    {
        QCoreApplication::processEvents();
        return main.log;
    }
    [[nodiscard]] QImage preview() const { return control<QLabel>("InterFace").pixmap().toImage(); }

    // A click on the swatch, which this colour is the answer to.
    void choose(AASelectColor& swatch, base::Colour colour)
    {
        dialogs.colourAnswers.push_back(colour);
        swatch.click();
    }

    support::TempTree tree{{"app/Images/", ""}, {"start/", ""}};
    support::FakeMainWindow main;
    support::FakeBrowserPane pane{nullptr};
    support::FakeDialogs dialogs;
    support::FakeDesktop desktop;
    OptionsForm* m_window = nullptr;
};

class OptionsForms : public OptionsTest {
protected:
    OptionsForms()
    {
        config.values = {{"BrowserSize", "60"},       {"BrowserColor", "1"},
                         {"EditorColor", "255"},      {"InterfaceB", "True"},
                         {"InterfaceColor", "65280"}, {"SpeciFolder", tree.path("start")}};
    }

    [[nodiscard]] QString text(const char* key) const { return config.read(QString(key)); }

    void savePreviews() const
    {
        for (const auto& [name, colour] :
             {std::pair("UserInterface.gif", Qt::red), std::pair("WindowsStand.gif", Qt::blue)}) {
            QImage image(4, 4, QImage::Format_RGB32);
            image.fill(colour);
            ASSERT_TRUE(image.save(tree.path(std::string("app/Images/") + name), "BMP"));
        }
    }

    support::MemoryConfigStore config;
};

} // namespace

TEST_F(OptionsForms, ShowsTheSettingsAndStartsNoRun)
{
    open();
    EXPECT_EQ(viewerColour().Color(), kRed);
    EXPECT_EQ(titleColour().Color(), kGreen);
    EXPECT_EQ(startFolder().text(), tree.path("start"));
    EXPECT_EQ(size().value(), 60);
    EXPECT_TRUE(shows("60 x 60        Pixel"));
    EXPECT_EQ(colours().value(), 1);
    EXPECT_TRUE(shows("Antraciet"));
    EXPECT_TRUE(isChosen("InterfaceOption_1"));
    EXPECT_FALSE(isChosen("InterfaceOption_0"));
    EXPECT_EQ(settledLog(), QStringList());
}

TEST_F(OptionsForms, NamesEachColourPreset)
{
    open();
    const QStringList names{"Black",       "Antraciet",  "Dark Gray",
                            "Middle Gray", "Light Gray", "White Gray"};
    for (int entry = 5; entry >= 0; --entry) {
        colours().setValue(entry);
        EXPECT_TRUE(shows(names[entry])) << entry;
        EXPECT_EQ(colours().accessibleDescription(), names[entry]);
        EXPECT_EQ(settledLog().last(), QStringLiteral("ThumbNailColor %1").arg(entry));
    }
    EXPECT_EQ(main.log.size(), 6);
}

TEST_F(OptionsForms, ChangesTheThumbnailsAtOnce)
{
    open();
    size().setValue(110);
    EXPECT_TRUE(shows("110 x 110        Pixel"));
    EXPECT_EQ(settledLog(), QStringList({"ThumbNailSize 10"}));
    QTest::keyClick(&size(), Qt::Key_Left);
    EXPECT_EQ(settledLog().last(), "ThumbNailSize 9");
    QTest::keyClick(&size(), Qt::Key_End);
    EXPECT_TRUE(shows("300 x 300        Pixel"));
    EXPECT_EQ(settledLog().last(), "ThumbNailSize 29");
    QTest::keyClick(&size(), Qt::Key_Home);
    EXPECT_EQ(settledLog().last(), "ThumbNailSize 0");
}

TEST_F(OptionsForms, TakesTheNearestSizeThatThereIs)
{
    config.values["BrowserSize"] = "65";
    open();
    EXPECT_TRUE(shows("65 x 65        Pixel"));
    size().setValue(83);
    EXPECT_EQ(size().value(), 80);
    EXPECT_EQ(settledLog(), QStringList({"ThumbNailSize 7"}));
    size().setValue(88);
    EXPECT_EQ(settledLog(), QStringList({"ThumbNailSize 7", "ThumbNailSize 8"}));
    EXPECT_TRUE(shows("90 x 90        Pixel"));
}

TEST_F(OptionsForms, LivesWithSettingsThatAreMissingOrMakeNoSense)
{
    config.values = {{"BrowserSize", "1e300"}, {"BrowserColor", "17"}, {"InterfaceB", "x"}};
    open();
    EXPECT_EQ(size().value(), 300);
    EXPECT_EQ(colours().value(), 0);
    EXPECT_TRUE(isChosen("InterfaceOption_0"));
    EXPECT_EQ(viewerColour().Color(), 0xFFFFFFU);
    EXPECT_EQ(startFolder().text(), QString());
    click("chameleonButton2");
    EXPECT_EQ(text("EditorColor"), "16777215");
}

TEST_F(OptionsForms, SavesAndGivesTheViewerItsColour)
{
    open();
    choose(viewerColour(), kBlue);
    startFolder().setText(tree.path("other"));
    EXPECT_EQ(text("EditorColor"), "255");
    click("chameleonButton2");
    EXPECT_EQ(text("EditorColor"), "16711680");
    EXPECT_EQ(main.fakeViewer.backColor, kBlue);
    EXPECT_EQ(text("InterfaceB"), "True");
    EXPECT_EQ(text("SpeciFolder"), tree.path("other"));
    EXPECT_FALSE(isOpen());
}

TEST_F(OptionsForms, SavesTheTitleColourForStandardWindowsAlone)
{
    open();
    titleColour().setColor(kBlue);
    click("chameleonButton2");
    EXPECT_EQ(text("InterfaceColor"), "65280");
    open();
    click("InterfaceOption_0");
    choose(titleColour(), kBlue);
    click("chameleonButton2");
    EXPECT_EQ(text("InterfaceB"), "False");
    EXPECT_EQ(text("InterfaceColor"), "16711680");
}

TEST_F(OptionsForms, WritesNothingUnderCancel)
{
    const auto before = config.values;
    open();
    choose(viewerColour(), kBlue);
    click("InterfaceOption_0");
    choose(titleColour(), kRed);
    startFolder().setText("/elsewhere");
    click("Cancel");
    EXPECT_EQ(config.values, before);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(main.fakeViewer.backColor, 0U);
}

TEST_F(OptionsForms, ShowsThePreviewOfTheLookChosen)
{
    ASSERT_NO_FATAL_FAILURE(savePreviews());
    const auto before = config.values;
    open();
    EXPECT_EQ(preview().pixelColor(1, 1), QColor(Qt::red));
    EXPECT_FALSE(titleColour().isEnabled());
    const QColor strip = control<widgets::TitleStrip>("Picture2").backgroundColour();
    click("InterfaceOption_0");
    EXPECT_EQ(preview().pixelColor(1, 1), QColor(Qt::blue));
    EXPECT_TRUE(titleColour().isEnabled());
    EXPECT_EQ(control<widgets::TitleStrip>("Picture2").backgroundColour(), strip);
    EXPECT_EQ(config.values, before);
    click("InterfaceOption_1");
    EXPECT_EQ(preview().pixelColor(1, 1), QColor(Qt::red));
}

TEST_F(OptionsForms, TakesItsTitleLookWhenItOpens)
{
    config.values["InterfaceB"] = "False";
    open();
    EXPECT_EQ(control<widgets::TitleStrip>("Picture2").backgroundColour(), QColor(0, 255, 0));
    titleColour().setColor(kBlue);
    click("chameleonButton2");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open();
    EXPECT_EQ(control<widgets::TitleStrip>("Picture2").backgroundColour(), QColor(0, 0, 255));
}

TEST_F(OptionsForms, ResetsTheColourInWordsAndLeavesTheViewer)
{
    open();
    main.fakeViewer.backColor = kRed;
    click("chameleonButton3");
    EXPECT_EQ(viewerColour().Color(), base::rgb(82, 109, 220));
    EXPECT_EQ(text("EditorColor"), "RGB(82, 109, 220)");
    EXPECT_EQ(main.fakeViewer.backColor, kRed);
    EXPECT_FALSE(core::setting(core::kViewerColour).has_value());
    click("chameleonButton2");
    EXPECT_EQ(text("EditorColor"), "14445906");
    EXPECT_EQ(main.fakeViewer.backColor, base::rgb(82, 109, 220));
}

TEST_F(OptionsForms, ClearsTheRecentPathsAtOnce)
{
    files::addPath(files::kRecentPaths, "/a.bmp");
    files::addPath(files::kRecentPaths, "/b.bmp");
    open();
    EXPECT_TRUE(shows("2 paths are remembered."));
    click("Command1");
    EXPECT_EQ(text("Xno"), "0");
    EXPECT_TRUE(tree.exists("app/xialafile.txt"));
    EXPECT_EQ(tree.content("app/xialafile.txt"), "");
    EXPECT_EQ(dialogs.boxTexts(), QStringList({"Clear sucess!"}));
    EXPECT_TRUE(main.log.contains("refillRecentPaths"));
    EXPECT_TRUE(shows("No path is remembered."));
    EXPECT_TRUE(isOpen());
}

TEST_F(OptionsForms, BringsThePagesForwardByTheirButtons)
{
    open();
    auto& pages = control<QStackedWidget>("Pages");
    EXPECT_EQ(pages.currentWidget()->objectName(), "FrmToolbar");
    for (const auto& [button, page] :
         {std::pair("UserInterface", "FrmInterface"), std::pair("Editor", "FrmEditor"),
          std::pair("Browser", "FrmBrowser"), std::pair("Toolbar", "FrmToolbar")}) {
        click(button);
        EXPECT_EQ(pages.currentWidget()->objectName(), page);
        EXPECT_TRUE(isChosen(button)) << button;
    }
}

TEST_F(OptionsForms, IsWorkedByKeysAlone)
{
    open();
    EXPECT_EQ(m_window->focusWidget()->objectName(), "Toolbar");
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Down);
    EXPECT_EQ(control<QStackedWidget>("Pages").currentWidget()->objectName(), "FrmInterface");
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(m_window->focusWidget()->objectName(), "InterfaceOption_1");
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(isChosen("InterfaceOption_0"));
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(m_window->focusWidget()->objectName(), "AASelectColor2");
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(m_window->focusWidget()->objectName(), "chameleonButton2");
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(text("InterfaceB"), "True");
}

TEST_F(OptionsForms, SavesByReturnInTheFolderField)
{
    open();
    click("Browser");
    startFolder().setText("/typed");
    QTest::keyClick(&startFolder(), Qt::Key_Return);
    EXPECT_EQ(text("SpeciFolder"), "/typed");
    EXPECT_FALSE(isOpen());
}

TEST_F(OptionsForms, OpensTheHelp)
{
    open();
    click("Help");
    EXPECT_EQ(desktop.opened, QStringList({tree.path("app/HelpDocuments.chm")}));
    EXPECT_TRUE(isOpen());
}

TEST_F(OptionsForms, AppliesTheNewestOfSeveralSizes)
{
    open();
    for (const int pixels : {70, 80, 90}) {
        size().setValue(pixels);
        EXPECT_TRUE(shows(QStringLiteral("%1 x %1        Pixel").arg(pixels)));
    }
    EXPECT_EQ(settledLog(), QStringList({"ThumbNailSize 8"}));
}

TEST_F(OptionsForms, AppliesWhatWasChosenLastAlthoughItCloses)
{
    open();
    QTest::keyClick(&size(), Qt::Key_Left);
    QTest::keyClick(&size(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(settledLog(), QStringList({"ThumbNailSize 4"}));
}

// ---- what comes while a run over the folder lets events run ----

namespace {

// A main window whose runs let this happen once.
class RunningMainWindow : public support::FakeMainWindow {
public:
    explicit RunningMainWindow(std::function<void()> duringRun)
        : m_duringRun(std::move(duringRun))
    {
    }
    void ThumbNailSize(int menuIndex) override
    {
        FakeMainWindow::ThumbNailSize(menuIndex);
        if (const auto event = std::exchange(m_duringRun, {})) {
            event();
        }
    }

private:
    std::function<void()> m_duringRun;
};

struct SliderProbe : QSlider {
    using QSlider::repeatAction;
};

bool walksOn(const QSlider& slider)
{
    return (slider.*&SliderProbe::repeatAction)() != QAbstractSlider::SliderNoAction;
}

QPoint rightOfTheKnob(const QSlider& slider)
{
    return {slider.width() - 5, slider.height() / 2};
}

} // namespace

TEST_F(OptionsForms, IsThereUntilAPressOnTheSliderIsDoneWith)
{
    const RunningMainWindow closing([] {
        core::windows().find(core::Window::OptionsForm)->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    open();
    click("Browser");
    const QPointer<QSlider> slider = &size();
    QTest::mousePress(slider, Qt::LeftButton, {}, rightOfTheKnob(*slider));
    ASSERT_NE(slider, nullptr);
    EXPECT_EQ(slider->value(), 110);
    QCoreApplication::processEvents();
    EXPECT_EQ(closing.log, QStringList({"ThumbNailSize 10"}));
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(slider, nullptr);
}

TEST_F(OptionsForms, StopsTheKnobWhereTheButtonIsReleasedInTheRun)
{
    const RunningMainWindow releasing(
        [this] { QTest::mouseRelease(&size(), Qt::LeftButton, {}, rightOfTheKnob(size())); });
    open();
    click("Browser");
    QTest::mousePress(&size(), Qt::LeftButton, {}, rightOfTheKnob(size()));
    QCoreApplication::processEvents();
    EXPECT_EQ(releasing.log, QStringList({"ThumbNailSize 10"}));
    EXPECT_FALSE(walksOn(size()));
    EXPECT_EQ(size().value(), 110);
}

// ---- with the file that the program keeps its settings in ----

namespace {

class OptionsFormsFile : public OptionsTest {
protected:
    [[nodiscard]] std::string file() const { return tree.content("app/config.ini"); }

    FileSettings config{tree.path("app/config.ini")};
};

} // namespace

TEST_F(OptionsFormsFile, GetsItsKeysInOrder)
{
    tree.add({"app/config.ini", "; mine\n[QUILLPOST]\n"});
    open();
    click("InterfaceOption_0");
    viewerColour().setColor(kRed);
    titleColour().setColor(kGreen);
    startFolder().setText("/start");
    click("chameleonButton2");
    EXPECT_EQ(file(), "; mine\n[QUILLPOST]\nEditorColor=255\nInterfaceB=False\n"
                      "InterfaceColor=65280\nSpeciFolder=/start\n");
}

TEST_F(OptionsFormsFile, KeepsTheWordsOfAReset)
{
    tree.add({"app/config.ini", "[QUILLPOST]\nEditorColor=255\n"});
    open();
    click("chameleonButton3");
    EXPECT_EQ(file(), "[QUILLPOST]\nEditorColor=RGB(82, 109, 220)\n");
    click("Cancel");
    EXPECT_EQ(file(), "[QUILLPOST]\nEditorColor=RGB(82, 109, 220)\n");
}

TEST_F(OptionsFormsFile, MayBeWhereNothingCanBeWritten)
{
    const std::string before = "[QUILLPOST]\nEditorColor=255\nXno=1\n";
    tree.add({"app/config.ini", before});
    tree.add({"app/xialafile.txt", "/a.bmp;"});
    std::filesystem::permissions(tree.native(""), std::filesystem::perms(0755));
    std::filesystem::permissions(tree.native("app"), std::filesystem::perms(0555));
    const support::OrdinaryUser user;
    open();
    click("Command1");
    EXPECT_EQ(dialogs.boxTexts(), QStringList());
    EXPECT_TRUE(shows("One path is remembered."));
    viewerColour().setColor(kBlue);
    click("chameleonButton2");
    EXPECT_EQ(file(), before);
    EXPECT_EQ(main.fakeViewer.backColor, kRed);
    EXPECT_FALSE(isOpen());
}
