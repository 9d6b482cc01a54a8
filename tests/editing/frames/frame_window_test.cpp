#include "editing/frames/frame_window.h"

#include "core/working_files.h"
#include "editing/edit_steps.h"
#include "editing/frames/frame_fixture.h"
#include "platform/os/paths.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/chameleon_button.h"
#include "widgets/slider.h"

#include <QAccessible>
#include <QLabel>
#include <QPointer>
#include <QTimer>

using namespace frametest;

namespace {

class FrameWindow : public testing::Test {
protected:
    FrameWindow()
    {
        frames::registerWindows();
        addStyle(tree, "01 oak.jpg", "01");
        addStyle(tree, " 7x.jpg", "7");
    }

    ~FrameWindow() override
    {
        core::windows().unload(core::Window::FrmBord);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        core::state() = {};
        platform::setPointer(platform::Pointer::Default);
    }

    // The window for a picture, with its page of styles made.
    void open(const QImage& picture)
    {
        form.viewer().setPicture(platform::Picture(picture));
        form.log.clear();
        show();
    }
    void show()
    {
        m_window = core::windows().show(core::Window::FrmBord);
        ASSERT_NE(m_window, nullptr);
        ASSERT_TRUE(QTest::qWaitFor([this] { return isPageMade(); }));
    }
    [[nodiscard]] bool isPageMade() const
    {
        const bool isEmpty = text("lblStyle").contains("no frames");
        return isEmpty || (!list().tiles().empty() && !list().surface().state.IsLoading);
    }

    template<typename Control> Control& control(const char* name) const
    {
        return *m_window->findChild<Control*>(name);
    }
    [[nodiscard]] ThumbNailList& list() const { return control<ThumbNailList>("ThumbNailList1"); }
    [[nodiscard]] cpvSlider& slider() const { return control<cpvSlider>("FrameChange"); }
    [[nodiscard]] chameleonButton& button(int index) const
    {
        return control<chameleonButton>(qPrintable(QStringLiteral("Button_%1").arg(index)));
    }
    [[nodiscard]] QString text(const char* label) const { return control<QLabel>(label).text(); }
    [[nodiscard]] QImage preview() const
    {
        return control<QLabel>("picRSetMode")
            .pixmap(Qt::ReturnByValue)
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    void pressRedraw() const { control<chameleonButton>("chameleonButton2").click(); }

    // Presses the tile of a style by the name of its picture.
    void choose(const QString& name) const
    {
        for (const int row : list().tiles()) {
            if (platform::fileNameOf(list().tile(row)->path) == name) {
                list().pressTile(row);
                return;
            }
        }
        ADD_FAILURE() << "no tile for " << name.toStdString();
    }
    void setThickness(int thickness) const
    {
        slider().setFocus();
        while (slider().Value() > thickness) {
            QTest::keyClick(&slider(), Qt::Key_Left);
        }
    }

    [[nodiscard]] static bool isOpen() { return core::windows().isLoaded(core::Window::FrmBord); }
    [[nodiscard]] QImage shown() { return form.viewer().Picture().flattened(); }
    [[nodiscard]] QImage fileImage(const std::string& name) const
    {
        const auto picture = platform::loadPicture(tree.path("app/" + name));
        return picture ? picture->flattened() : QImage();
    }

    support::TempTree tree{{"app/Images/", ""}};
    support::MemoryConfigStore config;
    support::FakeMainWindow form;
    support::FakeDialogs dialogs;
    support::FakeDesktop desktop;
    QWidget* m_window = nullptr;
};

} // namespace

TEST_F(FrameWindow, OpensWithTheThickestFrameAndNoStyle)
{
    const QImage picture = test::numbered(200, 150);
    open(picture);
    EXPECT_EQ(slider().Min(), 5);
    EXPECT_EQ(slider().Max(), 35);
    EXPECT_EQ(slider().Value(), 35);
    EXPECT_EQ(slider().Orientation(), 0);
    EXPECT_EQ(text("ChangeValue"), "35");
    EXPECT_FALSE(button(0).isEnabled());
    EXPECT_TRUE(button(1).isEnabled());
    EXPECT_TRUE(button(2).isEnabled());
    EXPECT_EQ(control<chameleonButton>("chameleonButton2").Caption(), "&Preview");
    EXPECT_EQ(list().tiles().size(), 2U);
    EXPECT_TRUE(core::state().FrameWindowOpen);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(FrameWindow, TakesThePictureThroughUndosFileAndLeavesThePreviewThere)
{
    const QImage picture = test::numbered(200, 150);
    open(picture);
    EXPECT_EQ(form.log, QStringList({"viewer picture 200x150"}));
    test::expectPixels(shown(), picture);
    test::expectPixels(form.Image1().picture().flattened(), picture);
    EXPECT_EQ(preview().size(), QSize(400, 300));
    test::expectPixels(fileImage("Frametemp.bmp"), preview());
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
}

TEST_F(FrameWindow, DrawsTheChosenStyleAtHalfTheThickness)
{
    open(test::numbered(200, 150));
    const QImage bare = preview();
    choose("01 oak.jpg");
    EXPECT_EQ(text("lblStyle"), "oak");
    EXPECT_TRUE(button(0).isEnabled());
    test::expectPixels(preview(), framed(bare, 18, 2));
    EXPECT_EQ(text("ChangeValue"), "35");
}

TEST_F(FrameWindow, GoesByTheFirstTwoCharactersWithoutBlanksBefore)
{
    open(test::numbered(200, 150));
    const QImage bare = preview();
    tree.remove("app/Frame/FrameLib/plastic-left01.jpg");
    choose(" 7x.jpg");
    test::expectPixels(preview(), framed(bare, 18, 2));
}

TEST_F(FrameWindow, TakesThePreviewsFrameAwayWithTheSlider)
{
    open(test::numbered(200, 150));
    const QImage bare = preview();
    choose("01 oak.jpg");
    QTest::keyClick(&slider(), Qt::Key_Left);
    EXPECT_EQ(text("ChangeValue"), "34");
    test::expectPixels(preview(), bare);
    pressRedraw();
    test::expectPixels(preview(), framed(bare, 17, 2));
    QTest::keyClick(&slider(), Qt::Key_Home);
    EXPECT_EQ(text("ChangeValue"), "5");
    test::expectPixels(preview(), bare);
    pressRedraw();
    test::expectPixels(preview(), framed(bare, 2, 2));
}

TEST_F(FrameWindow, RedrawsWithoutItsFileAndWithoutAStyle)
{
    open(test::numbered(200, 150));
    const QImage bare = preview();
    pressRedraw();
    test::expectPixels(preview(), bare);
    tree.remove("app/Frametemp.bmp");
    choose("01 oak.jpg");
    QTest::keyClick(&slider(), Qt::Key_Left);
    test::expectPixels(preview(), bare);
}

TEST_F(FrameWindow, PutsTheFrameOnThePictureAndUndoTakesItAway)
{
    const QImage picture = test::numbered(200, 150);
    open(picture);
    choose("01 oak.jpg");
    setThickness(20);
    form.log.clear();
    button(0).click();
    const QImage result = framed(picture, 20, 4);
    test::expectPixels(shown(), result);
    test::expectPixels(fileImage("temp.bmp"), result);
    test::expectPixels(fileImage("Frametemp.bmp"), picture);
    EXPECT_EQ(form.log, QStringList({"viewer picture 200x150"}));
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(core::state().FrameWindowOpen);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    editing::undo(form);
    test::expectPixels(shown(), picture);
}

// The thickness is the one of the slider, whether or not the preview shows it.
TEST_F(FrameWindow, AppliesTheSlidersThicknessWithoutARedraw)
{
    const QImage picture = test::numbered(120, 90);
    open(picture);
    choose(" 7x.jpg");
    QTest::keyClick(&slider(), Qt::Key_Home);
    button(0).click();
    test::expectPixels(shown(), framed(picture, 5, 4));
}

TEST_F(FrameWindow, LeavesThePictureWhenItIsCancelled)
{
    const QImage picture = test::numbered(200, 150);
    open(picture);
    choose("01 oak.jpg");
    button(1).click();
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(core::state().FrameWindowOpen);
    test::expectPixels(shown(), picture);
    EXPECT_EQ(fileImage("Frametemp.bmp").size(), QSize(400, 300));
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
}

TEST_F(FrameWindow, OpensTheHelp)
{
    open(test::numbered(20, 20));
    button(2).click();
    ASSERT_EQ(desktop.opened.size(), 1);
    EXPECT_TRUE(desktop.opened[0].endsWith("HelpDocuments.chm"));
    EXPECT_TRUE(isOpen());
}

TEST_F(FrameWindow, WorksByKeysAlone)
{
    const QImage picture = test::numbered(200, 150);
    open(picture);
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window));
    EXPECT_EQ(m_window->focusWidget(), &list());
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Right);
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Right);
    EXPECT_EQ(list().selectedTile(), 1);
    EXPECT_TRUE(button(0).isEnabled());
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(m_window->focusWidget(), &slider());
    QTest::keyClick(&slider(), Qt::Key_Home);
    QTest::keyClick(&slider(), Qt::Key_Tab);
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(preview().pixel(0, 0), colourOf(LeftTop));
    EXPECT_TRUE(isOpen());
    slider().setFocus();
    QTest::keyClick(&slider(), Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    test::expectPixels(shown(), framed(picture, 5, 4));
}

TEST_F(FrameWindow, ClosesByEscape)
{
    open(test::numbered(20, 20));
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_F(FrameWindow, NamesItsControls)
{
    open(test::numbered(20, 20));
    for (const char* name : {"ThumbNailList1", "FrameChange", "ChangeValue", "picRSetMode",
                             "Button_0", "Button_1", "Button_2", "chameleonButton2"}) {
        auto* part = m_window->findChild<QWidget*>(name);
        ASSERT_NE(part, nullptr) << name;
        QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(part);
        EXPECT_FALSE(reader->text(QAccessible::Name).isEmpty()) << name;
    }
}

TEST_F(FrameWindow, ShowsProgressWhileItFramesTheWholePicture)
{
    open(test::numbered(900, 700));
    choose("01 oak.jpg");
    bool shownMeanwhile = false;
    platform::Pointer meanwhile = platform::Pointer::Default;
    QTimer::singleShot(0, m_window, [&] {
        shownMeanwhile = form.gradient.shown;
        meanwhile = platform::pointer();
    });
    button(0).click();
    EXPECT_TRUE(shownMeanwhile);
    EXPECT_EQ(meanwhile, platform::Pointer::HourGlass);
    EXPECT_FALSE(form.gradient.shown);
    EXPECT_EQ(form.gradient.fillColour, 0xE0E0E0U);
    ASSERT_FALSE(form.gradient.fractions.empty());
    EXPECT_EQ(form.gradient.fractions.back(), 1.0);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(FrameWindow, FramesOnceHoweverOftenApplyIsPressed)
{
    const QImage picture = test::numbered(200, 150);
    open(picture);
    choose("01 oak.jpg");
    form.log.clear();
    QTimer::singleShot(0, m_window, [this] { button(0).click(); });
    button(0).click();
    EXPECT_EQ(form.log, QStringList({"viewer picture 200x150"}));
    test::expectPixels(fileImage("Frametemp.bmp"), picture);
}

TEST_F(FrameWindow, LeavesThePictureWhenItIsClosedMeanwhile)
{
    const QImage picture = test::numbered(200, 150);
    open(picture);
    choose("01 oak.jpg");
    form.log.clear();
    QTimer::singleShot(0, m_window, [this] { button(1).click(); });
    button(0).click();
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(form.gradient.shown);
}

TEST_F(FrameWindow, GoesOnWithHalfAFrameWhereATileIsMissing)
{
    const QImage picture = test::numbered(200, 150);
    open(picture);
    const QImage bare = preview();
    tree.remove(tileName(Top, "01"));
    tree.add({tileName(Bottom, "7"), "no picture"});
    choose("01 oak.jpg");
    EXPECT_EQ(preview().pixel(0, 100), colourOf(Left));
    EXPECT_EQ(preview().pixel(100, 0), bare.pixel(100, 0));
    choose(" 7x.jpg");
    EXPECT_EQ(preview().pixel(0, 299), colourOf(Left));
    EXPECT_EQ(preview().pixel(100, 299), bare.pixel(100, 299));
    setThickness(20);
    button(0).click();
    EXPECT_EQ(shown().pixel(0, 149), colourOf(Left));
    EXPECT_EQ(shown().pixel(180, 0), colourOf(Right));
    EXPECT_EQ(shown().pixel(100, 130), picture.pixel(100, 130));
    test::expectPixels(fileImage("temp.bmp"), shown());
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(FrameWindow, FramesPicturesThatAreSmallerThanTheFrame)
{
    for (const int side : {1, 10}) {
        const QImage picture = test::numbered(side, side);
        open(picture);
        EXPECT_EQ(preview().size(), QSize(330, 330));
        choose("01 oak.jpg");
        button(0).click();
        test::expectPixels(shown(), framed(picture, 35, 4));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(FrameWindow, OpensWithoutAPicture)
{
    show();
    EXPECT_TRUE(preview().isNull());
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_FALSE(tree.exists("app/Frametemp.bmp"));
    choose("01 oak.jpg");
    QTest::keyClick(&slider(), Qt::Key_Home);
    pressRedraw();
    button(0).click();
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(FrameWindow, OpensWithoutALibrary)
{
    tree.remove("app/Frame");
    open(test::numbered(200, 150));
    EXPECT_TRUE(list().tiles().empty());
    EXPECT_FALSE(button(0).isEnabled());
    QTest::keyClick(&list(), Qt::Key_Right);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    button(1).click();
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(FrameWindow, TakesStylesOfEveryName)
{
    addStyle(tree, "Äß gold.jpg", "Äß");
    save(test::filled(40, 30, 0xFF808080), tree.path("app/Frame/x.jpg"));
    tree.add({"app/Frame/FrameLib/"});
    open(test::numbered(200, 150));
    const QImage bare = preview();
    choose(QStringLiteral("x.jpg"));
    test::expectPixels(preview(), bare);
    EXPECT_EQ(text("lblStyle"), "x");
    choose(QStringLiteral("Äß gold.jpg"));
    test::expectPixels(preview(), framed(bare, 18, 2));
    EXPECT_EQ(text("lblStyle"), "gold");
}

// A folder in a file's place can't be written over.
TEST_F(FrameWindow, WorksWithoutRoomForItsFiles)
{
    const QImage picture = test::numbered(200, 150);
    tree.add({"app/Frametemp.bmp/taken/"});
    open(picture);
    test::expectPixels(shown(), picture);
    const QImage bare = preview();
    EXPECT_EQ(bare.size(), QSize(400, 300));
    choose("01 oak.jpg");
    test::expectPixels(preview(), framed(bare, 18, 2));
    tree.add({"app/temp.bmp/taken/"});
    button(0).click();
    test::expectPixels(shown(), picture);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(FrameWindow, GivesItsTilesTheNeutralBadge)
{
    save(test::filled(8, 8, 0xFF00FF00), tree.path("app/Images/jpg.ico"));
    save(test::filled(8, 8, 0xFF0000FF), tree.path("app/Images/noName.ico"));
    open(test::numbered(20, 20));
    EXPECT_TRUE(core::state().FrameWindowOpen);
    const thumbs::TileRow& tile = *list().tile(list().tiles().front());
    EXPECT_EQ(list().surface().pages.point(tile.page, tile.box.left, tile.box.top), 0xFF0000U);
}

TEST_F(FrameWindow, EndsItsPageWhenItCloses)
{
    constexpr std::size_t kStyles = 30;
    for (std::size_t i = 10; i < 10 + kStyles; ++i) {
        addStyle(tree, std::to_string(i) + ".jpg", std::to_string(i));
    }
    form.viewer().setPicture(platform::Picture(test::numbered(20, 20)));
    m_window = core::windows().show(core::Window::FrmBord);
    const QPointer<ThumbNailList> page = &list();
    // Events run before each file of the page.
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, m_window, [&] {
        if (page->tiles().size() < 2) {
            return;
        }
        closing.stop();
        EXPECT_TRUE(page->surface().state.IsLoading);
        EXPECT_LT(page->tiles().size(), kStyles);
        EXPECT_TRUE(form.gradient.shown);
        m_window->close();
    });
    closing.start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isOpen(); }));
    EXPECT_TRUE(page == nullptr || !page->surface().state.IsLoading);
    EXPECT_FALSE(form.gradient.shown);
    EXPECT_FALSE(core::state().FrameWindowOpen);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}
