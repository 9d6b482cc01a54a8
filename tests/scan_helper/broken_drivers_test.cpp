// Drivers that hang, crash and lie.

#include "scan_helper/scan_fixture.h"

#include <QProcess>
#include <utility>

using platform::HelperScanners;
using platform::ScanFailure;
using platform::ScanKind;

namespace {

// Short for what never comes, long for what does.
platform::ScanPatience shortPatience()
{
    using std::chrono::milliseconds;
    return {milliseconds(2000), milliseconds(2000), milliseconds(1000)};
}

class BrokenDrivers : public test::ScanTest {
protected:
    BrokenDrivers() { tree.setVariable("LD_LIBRARY_PATH", VISTARA_FAKE_SANE); }

    void let(const char* what) { tree.setVariable("FAKE_SANE", what); }
    void beImpatient() { scanners = std::make_unique<HelperScanners>(QString(), shortPatience()); }

    void expectScan(const char* what, ScanFailure why)
    {
        SCOPED_TRACE(what);
        let(what);
        open();
        scan();
        expectFailure(why);
    }
};

} // namespace

TEST_F(BrokenDrivers, DontStandInForOnesThatWork)
{
    let("work");
    const auto all = found();
    ASSERT_TRUE(all.has_value());
    ASSERT_EQ(all->size(), 1U);
    EXPECT_EQ((*all)[0].model, "");
    open();
    scan();
    ASSERT_EQ(image().size(), QSize(100, 50));
    EXPECT_EQ(qGray(image().pixel(99, 49)), 49);
}

TEST_F(BrokenDrivers, ThatCrashLoseTheScannerAndNothingElse)
{
    expectScan("crash while reading", ScanFailure::Crashed);
    EXPECT_FALSE(session->isOpen());
    let("work");
    open();
    scan();
    EXPECT_FALSE(image().isNull());
}

TEST_F(BrokenDrivers, ThatHangAreGivenUp)
{
    beImpatient();
    expectScan("hang while opening", ScanFailure::Silent);
    expectScan("hang while reading", ScanFailure::Silent);
    expectScan("give nothing any more", ScanFailure::Silent);
    EXPECT_FALSE(session->isOpen());
    let("hang while listing");
    EXPECT_EQ(found(), std::nullopt);
    EXPECT_EQ(searchFailure, ScanFailure::Silent);
}

TEST_F(BrokenDrivers, ThatHangCanBeCancelled)
{
    let("hang while reading");
    scanners = std::make_unique<HelperScanners>(
        QString(), platform::ScanPatience{std::chrono::seconds(60), std::chrono::seconds(600),
                                          std::chrono::milliseconds(200)});
    open();
    session->scan(ScanKind::Picture);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !heard.options.empty() || !heard.rows.empty(); },
                                test::kPatience));
    session->cancel();
    ASSERT_TRUE(waitForEnd());
    expectFailure(ScanFailure::Cancelled);
    EXPECT_FALSE(session->isOpen());
}

TEST_F(BrokenDrivers, ThatHangAtTheirEndKeepNoPictureBack)
{
    beImpatient();
    let("hang while stopping");
    open();
    scan();
    EXPECT_EQ(image().size(), QSize(100, 50));
    forget();
    scan();
    expectFailure(ScanFailure::Silent);
}

TEST_F(BrokenDrivers, ThatEndThreadsAmidTheirWorkGoOn)
{
    beImpatient();
    let("read in a thread");
    open();
    for (int i = 0; i < 20 && session->isOpen(); ++i) {
        forget();
        scan();
        EXPECT_EQ(image().size(), QSize(100, 50)) << i;
    }
    EXPECT_TRUE(session->isOpen());
}

TEST_F(BrokenDrivers, ThatHangDontOutliveTheirSession)
{
    beImpatient();
    for (const char* where : {"hang while reading", "hang while stopping", "hang at the end"}) {
        SCOPED_TRACE(where);
        let(where);
        open();
        session->scan(ScanKind::Picture);
        QTest::qWait(200);
        delete std::exchange(session, nullptr);
        EXPECT_TRUE(QTest::qWaitFor(
            [] { return QCoreApplication::instance()->findChildren<QProcess*>().isEmpty(); },
            test::kPatience));
    }
}

TEST_F(BrokenDrivers, ThatClaimNonsenseAreRefused)
{
    expectScan("claim 100,000 x 100,000", ScanFailure::TooLarge);
    expectScan("claim rows of two billion bytes", ScanFailure::TooLarge);
    expectScan("claim short rows", ScanFailure::Nonsense);
    expectScan("claim no width", ScanFailure::Nonsense);
    expectScan("send a kind that nobody knows", ScanFailure::Unsupported);
    expectScan("warm up", ScanFailure::Busy);
}

TEST_F(BrokenDrivers, ThatSendLessGiveTheRowsThatCame)
{
    let("end early");
    open();
    scan();
    EXPECT_EQ(image().size(), QSize(100, 10));
}

TEST_F(BrokenDrivers, ThatPromiseMoreThanThereIsArentAskedWithoutAPause)
{
    let("promise more than there is");
    open();
    scan();
    EXPECT_EQ(image().size(), QSize(100, 10));
}

TEST_F(BrokenDrivers, ThatSendMoreAreCutWhereTheySaid)
{
    let("send more than was claimed");
    open();
    scan();
    EXPECT_EQ(image().size(), QSize(100, 50));
}

TEST_F(BrokenDrivers, ThatNeverEndAreCutAtTheLimit)
{
    let("never end");
    open();
    scan();
    EXPECT_EQ(image().width(), 100000);
    EXPECT_EQ(image().height(), int((512LL << 20) / (4 * 100000)));
}

TEST_F(BrokenDrivers, ThatNeverSendTheLastFrameGiveThree)
{
    let("never send the last frame");
    open();
    scan();
    ASSERT_EQ(image().size(), QSize(100, 50));
    EXPECT_EQ(image().pixel(0, 7), qRgb(7, 0, 0));
}

TEST_F(BrokenDrivers, ThatWantAPasswordAreRefused)
{
    let("want a password");
    open();
    ASSERT_TRUE(waitForEnd());
    expectFailure(ScanFailure::WantsPassword);
}

TEST_F(BrokenDrivers, ThatFailToBeginSayWhy)
{
    let("fail to begin");
    EXPECT_EQ(found(), std::nullopt);
    EXPECT_EQ(searchFailure, ScanFailure::NoMemory);
}

TEST_F(BrokenDrivers, AreMissedWithoutTheLibrary)
{
    tree.add({"broken/libsane.so.1", "no library"});
    tree.setVariable("LD_LIBRARY_PATH", tree.native("broken"));
    EXPECT_EQ(found(), std::nullopt);
    EXPECT_EQ(searchFailure, ScanFailure::NoLibrary);
    open();
    ASSERT_TRUE(waitForEnd());
    expectFailure(ScanFailure::NoLibrary);
}

TEST_F(BrokenDrivers, AreMissedWithoutTheHelper)
{
    scanners = std::make_unique<HelperScanners>(tree.path("nothing"));
    EXPECT_EQ(found(), std::nullopt);
    EXPECT_EQ(searchFailure, ScanFailure::NoHelper);
    open();
    ASSERT_TRUE(waitForEnd());
    expectFailure(ScanFailure::NoHelper);
    EXPECT_FALSE(session->isOpen());
}

TEST_F(BrokenDrivers, CannotTalkNonsenseForLong)
{
    // Each ends by itself, or writes without end.
    for (const auto& [program, why] : {std::pair{"/bin/true", ScanFailure::Crashed},
                                       std::pair{"/usr/bin/yes", ScanFailure::Nonsense}}) {
        SCOPED_TRACE(program);
        scanners = std::make_unique<HelperScanners>(QString::fromLatin1(program));
        open();
        ASSERT_TRUE(waitForEnd());
        expectFailure(why);
    }
}
