#include "thumbs/folder_run.h"

#include "platform/desktop/pointer.h"
#include "thumbs/gallery_fixture.h"

#include <QPointer>
#include <memory>
#include <vector>

using thumbs::FileInRun;

namespace {

// A step as an album or a contact sheet is one: whole files, own bar texts, own strip, own cancel.
class RecordingStep : public thumbs::FolderStep {
public:
    explicit RecordingStep(ThumbNailList& list)
        : m_list(&list)
    {
    }

    [[nodiscard]] thumbs::HostHold hold() const override { return held; }
    [[nodiscard]] const platform::FileList* files() const override
    {
        return ownFiles ? &*ownFiles : nullptr;
    }
    [[nodiscard]] core::ProgressStrip* strip() const override { return ownStrip; }
    [[nodiscard]] bool isCancelled(const thumbs::GalleryState& state) const override
    {
        return cancelled || FolderStep::isCancelled(state);
    }
    std::optional<int> begin() override
    {
        calls.append("begin");
        return refuses ? std::nullopt : std::optional(m_list->surface().File1.count());
    }
    [[nodiscard]] bool takes(const FileInRun& file) const override { return file.index < room; }
    [[nodiscard]] bool needsPicture(const FileInRun& file) const override
    {
        return !file.path.endsWith(done);
    }
    [[nodiscard]] std::optional<QSize> tileRoom() const override { return tile; }
    [[nodiscard]] std::optional<QSize> fileRoom() const override { return ownRoom; }
    [[nodiscard]] std::optional<QString> barText(const FileInRun& file) const override
    {
        return QStringLiteral("%1 of %2").arg(file.index).arg(file.count);
    }
    void make(const FileInRun& file) override
    {
        calls.append(file.path.section('/', -1) + " " + m_list->surface().infoText());
        const thumbs::LoadedPicture& loaded = m_list->surface().P_load;
        sizes.push_back(loaded.picture.image().size());
        colours.push_back(loaded.picture.image().pixel(0, 0));
        if (atFile) {
            atFile();
        }
    }
    void end() override
    {
        calls.append("end");
        if (atEnd) {
            atEnd();
        }
    }
    [[nodiscard]] std::optional<QString> closingText(int index, int count) const override
    {
        return QStringLiteral("done %1 of %2").arg(index).arg(count);
    }

    void finished() override
    {
        if (atFinish) {
            atFinish();
        }
    }

    thumbs::HostHold held;
    std::optional<platform::FileList> ownFiles;
    core::ProgressStrip* ownStrip = nullptr;
    bool cancelled = false;
    bool refuses = false;
    int room = 100; // files
    QString done = QStringLiteral("no such file");
    std::optional<QSize> tile;
    std::optional<QSize> ownRoom;
    std::function<void()> atFile;
    std::function<void()> atEnd;
    std::function<void()> atFinish;

    QStringList calls;
    std::vector<QSize> sizes;
    std::vector<QRgb> colours;

private:
    QPointer<ThumbNailList> m_list;
};

// A folder of three files, of which the second one is no picture.
class FolderRunTest : public GalleryTest {
protected:
    FolderRunTest()
    {
        addPicture("pics/a.bmp", kRed, {300, 200});
        m_tree.add({"pics/b.jpg", "no picture"});
        addPicture("pics/c.bmp", kBlue, {40, 30});
        m_list.setPath(m_tree.path("pics"));
    }

    void run() { thumbs::FolderRun(m_list, m_step).run(); }

    RecordingStep m_step{m_list};
};

} // namespace

TEST_F(FolderRunTest, HandsEveryFileToItsStepInOrder)
{
    run();
    EXPECT_EQ(m_step.calls,
              (QStringList{"begin", "a.bmp 0 of 3", "b.jpg 1 of 3", "c.bmp 2 of 3", "end"}));
    EXPECT_EQ(m_list.surface().infoText(), "done 3 of 3");
}

// A file that can't be read leaves the picture of the one before.
TEST_F(FolderRunTest, LoadsTheWholePictureOfEveryFile)
{
    run();
    EXPECT_EQ(m_step.sizes, (std::vector<QSize>{{300, 200}, {300, 200}, {40, 30}}));
    EXPECT_EQ(m_step.colours, (std::vector<QRgb>{0xFFFF0000, 0xFFFF0000, 0xFF0000FF}));
    EXPECT_TRUE(m_list.surface().fNX.isNothing());
}

TEST_F(FolderRunTest, LoadsFilesAsTilesShowThemForAStepWithTiles)
{
    addPicture("app/Images/bmp.ico", kGreen, {8, 8});
    addPicture("app/Images/playbg.ico", kGreen, {32, 32});
    m_tree.add({"pics/d.avi", "film"});
    addPicture("pics/e.jpg", kBlue, {1600, 1200}, "JPG");
    m_list.surface().File1.refresh();
    m_step.tile = QSize(60, 60);
    run();
    ASSERT_EQ(m_step.sizes.size(), 5U);
    EXPECT_EQ(m_step.sizes[3], QSize(32, 32));
    EXPECT_LT(m_step.sizes[4].width(), 1600);
    EXPECT_EQ(m_list.surface().P_load.naturalSize, QSize(1600, 1200));
    EXPECT_EQ(m_list.surface().fNX.width(), 8);
}

// By itself: no other picture stands for it, and it has no badge.
TEST_F(FolderRunTest, LoadsAFileByItselfAsLargeAsItsRoomTakes)
{
    addPicture("app/Images/jpg.ico", kGreen, {8, 8});
    addPicture("pics/e.jpg", kBlue, {1600, 1200}, "JPG");
    m_list.surface().File1.refresh();
    m_step.ownRoom = QSize(60, 60);
    run();
    EXPECT_LT(m_step.sizes.back().width(), 1600);
    EXPECT_EQ(m_list.surface().P_load.naturalSize, QSize(1600, 1200));
    EXPECT_TRUE(m_list.surface().fNX.isNothing());
}

TEST_F(FolderRunTest, LoadsNothingForAFileThatNeedsNoPicture)
{
    m_step.done = QStringLiteral("c.bmp");
    run();
    EXPECT_EQ(m_step.sizes.back(), QSize(300, 200));
    EXPECT_EQ(m_step.calls.size(), 5);
}

TEST_F(FolderRunTest, HoldsTheHostAndPutsItBack)
{
    std::vector<bool> loading;
    std::vector<platform::Pointer> pointers;
    m_step.ownStrip = &m_main.gradient;
    m_step.atFile = [&] {
        loading.push_back(m_list.surface().state.IsLoading && m_main.gradient.shown);
        pointers.push_back(platform::pointer());
    };
    m_list.surface().state.IsPrinting = true;
    run();
    EXPECT_EQ(loading, (std::vector<bool>{true, true, true}));
    EXPECT_EQ(pointers, (std::vector{3, platform::Pointer::ArrowHourGlass}));
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    EXPECT_FALSE(m_list.surface().state.IsLoading);
    EXPECT_FALSE(m_list.surface().state.IsPrinting);
    EXPECT_FALSE(m_main.gradient.shown);
    EXPECT_EQ(m_main.gradient.fractions, (std::vector<double>{0.0, 0.5, 1.0}));
}

TEST_F(FolderRunTest, LeavesThePointerToAStepThatDoesNotHoldIt)
{
    m_step.held.pointer.reset();
    platform::Pointer during = platform::Pointer::ArrowHourGlass;
    m_step.atFile = [&] { during = platform::pointer(); };
    run();
    EXPECT_EQ(during, platform::Pointer::Default);
}

TEST_F(FolderRunTest, ShowsTheShapeOfThePointerThatItsStepWants)
{
    m_step.held.pointer = platform::Pointer::HourGlass;
    platform::Pointer during = platform::Pointer::Default;
    m_step.atFile = [&] { during = platform::pointer(); };
    run();
    EXPECT_EQ(during, platform::Pointer::HourGlass);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(FolderRunTest, TellsItsStepThatAllIsGivenBackButTheStrip)
{
    QStringList told;
    m_step.ownStrip = &m_main.gradient;
    m_step.atFinish = [&] {
        told.append(m_list.surface().infoText());
        EXPECT_FALSE(m_list.surface().state.IsLoading);
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        EXPECT_TRUE(m_main.gradient.shown);
    };
    run();
    EXPECT_EQ(told, QStringList{"done 3 of 3"});
    EXPECT_FALSE(m_main.gradient.shown);
}

TEST_F(FolderRunTest, EndsBeforeTheNextFileAtACancel)
{
    m_step.atFile = [this] { m_list.surface().state.CancelLoading = true; };
    run();
    EXPECT_EQ(m_step.calls, (QStringList{"begin", "a.bmp 0 of 3", "end"}));
    EXPECT_EQ(m_list.surface().infoText(), "done 1 of 3");
    EXPECT_FALSE(m_list.surface().state.CancelLoading);
    EXPECT_FALSE(m_list.surface().state.IsLoading);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(FolderRunTest, LetsAStepCancelByItself)
{
    m_step.atFile = [this] { m_step.cancelled = m_step.sizes.size() == 2; };
    run();
    EXPECT_EQ(m_step.calls, (QStringList{"begin", "a.bmp 0 of 3", "b.jpg 1 of 3", "end"}));
}

TEST_F(FolderRunTest, EndsWhereItsStepHasNoPlaceForAFile)
{
    m_step.room = 1;
    run();
    EXPECT_EQ(m_step.calls, (QStringList{"begin", "a.bmp 0 of 3", "end"}));
}

TEST_F(FolderRunTest, KeepsHoldingTheHostOfARefusedFolder)
{
    m_step.refuses = true;
    run();
    EXPECT_EQ(m_step.calls, QStringList{"begin"});
    EXPECT_EQ(platform::pointer(), platform::Pointer::ArrowHourGlass);
    EXPECT_TRUE(m_list.surface().state.IsLoading);
    platform::setPointer(platform::Pointer::Default);
}

// A run of another kind comes and goes while one is under way.
TEST_F(FolderRunTest, GoesOnAfterTheTilesOfAnotherFolder)
{
    m_tree.add({"other/"});
    addPicture("other/x.bmp", kGreen);
    addPicture("other/y.bmp", kGreen);
    m_step.atFile = [this] {
        if (m_step.sizes.size() == 1) {
            runFolder("other");
        }
    };
    run();
    EXPECT_EQ(m_step.calls, (QStringList{"begin", "a.bmp 0 of 3", "y.bmp 1 of 3", "end"}));
    EXPECT_EQ(m_list.surface().infoText(), "done 2 of 3");
}

TEST_F(FolderRunTest, StaysWithTheFilesThatItsStepKeeps)
{
    m_tree.add({"other/"});
    addPicture("other/x.bmp", kGreen);
    m_step.ownFiles = m_list.surface().File1;
    m_step.atFile = [this] {
        if (m_step.sizes.size() == 1) {
            runFolder("other");
        }
    };
    run();
    EXPECT_EQ(m_step.calls,
              (QStringList{"begin", "a.bmp 0 of 3", "b.jpg 1 of 3", "c.bmp 2 of 3", "end"}));
    EXPECT_EQ(m_list.path(), m_tree.path("other"));
}

// A run over a list that goes wherever a step may let events run.
class EndOfItsList : public FolderRunTest {
protected:
    EndOfItsList()
    {
        list->setPath(m_tree.path("pics"));
        step.ownStrip = &m_main.gradient;
    }

    void runAndExpectTheHostBack()
    {
        thumbs::FolderRun(*list, step).run();
        EXPECT_EQ(list, nullptr);
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        EXPECT_FALSE(m_main.gradient.shown);
    }

    std::unique_ptr<ThumbNailList> list = std::make_unique<ThumbNailList>();
    RecordingStep step{*list};
    const std::function<void()> endList = [this] { list.reset(); };
};

TEST_F(EndOfItsList, GivesTheHostBackInAStep)
{
    step.atFile = endList;
    runAndExpectTheHostBack();
    EXPECT_EQ(step.calls.size(), 2);
}

TEST_F(EndOfItsList, GivesTheHostBackBehindTheLastFile)
{
    step.atEnd = endList;
    runAndExpectTheHostBack();
    EXPECT_EQ(step.calls.size(), 5);
}

TEST_F(EndOfItsList, GivesTheHostBackAtTheVeryEnd)
{
    step.atFinish = endList;
    runAndExpectTheHostBack();
    EXPECT_EQ(step.calls.size(), 5);
}
