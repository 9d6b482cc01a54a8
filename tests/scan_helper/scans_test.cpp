// Scans of the scanner library's own test device, beside what the library's program makes of it.

#include "scan_helper/scan_fixture.h"

#include <algorithm>

using platform::ScanFailure;
using platform::ScanKind;
using platform::ScanOption;
using platform::ScanRole;
using platform::ScanUnit;

namespace {

class Scans : public test::ScanTest {
protected:
    // Both scan 60 x 40 mm at 100 dpi.
    void expectTheSame(const std::string& mode, int depth)
    {
        SCOPED_TRACE(mode + " " + std::to_string(depth));
        open();
        set(ScanRole::Mode, mode);
        set(ScanRole::Depth, depth);
        set(ScanRole::Resolution, 100);
        setArea(60, 40);
        scan();
        for (const ScanFailure why : heard.failures) {
            ADD_FAILURE() << "failure " << int(why);
        }
        test::expectSamePixels(image(),
                               scannedByScanimage({"--mode", QString::fromStdString(mode),
                                                   "--depth", QString::number(depth),
                                                   "--resolution", "100", "-x", "60", "-y", "40"}));
    }

    [[nodiscard]] const ScanOption* option(ScanRole role) const
    {
        const auto& options = heard.options.back();
        const auto known = std::find_if(options.begin(), options.end(),
                                        [role](const auto& each) { return each.role == role; });
        return known == options.end() ? nullptr : &*known;
    }
};

} // namespace

TEST_F(Scans, ListsTheScanners)
{
    configure();
    const auto all = found();
    ASSERT_TRUE(all.has_value());
    ASSERT_EQ(all->size(), 2U);
    EXPECT_EQ((*all)[1].name, "test:1");
    EXPECT_EQ((*all)[1].vendor, "Noname");
    EXPECT_EQ((*all)[1].model, "frontend-tester");
    EXPECT_EQ((*all)[1].type, "virtual device");
}

TEST_F(Scans, ListNothingWhereThereIsNone)
{
    configure();
    tree.add({"sane/dll.conf", "\n"});
    const auto all = found();
    ASSERT_TRUE(all.has_value());
    EXPECT_TRUE(all->empty());
}

TEST_F(Scans, TellTheOptionsOfAScanner)
{
    configure();
    open();
    ASSERT_TRUE(waitForOptions());
    ASSERT_NE(option(ScanRole::Mode), nullptr);
    EXPECT_EQ(option(ScanRole::Mode)->words, (std::vector<std::string>{"Gray", "Color"}));
    EXPECT_EQ(option(ScanRole::Mode)->value.word, "Gray");
    EXPECT_EQ(option(ScanRole::Depth)->numbers, (std::vector<double>{1, 8, 16}));
    EXPECT_EQ(option(ScanRole::Resolution)->most, 1200);
    EXPECT_EQ(option(ScanRole::Resolution)->unit, ScanUnit::DotsPerInch);
    EXPECT_EQ(option(ScanRole::Bottom)->most, 200);
    EXPECT_EQ(option(ScanRole::Bottom)->value.number, 100);
    EXPECT_EQ(option(ScanRole::Bottom)->unit, ScanUnit::Millimetres);
    ASSERT_NE(option(ScanRole::Source), nullptr);
    EXPECT_EQ(option(ScanRole::Source)->words.size(), 2U);
    EXPECT_EQ(option(ScanRole::Brightness), nullptr);
}

TEST_F(Scans, TellTheOptionsOnceAfterSeveralWereSet)
{
    configure();
    open();
    ASSERT_TRUE(waitForOptions());
    forget();
    set(ScanRole::Mode, "Color");
    set(ScanRole::Resolution, 301.4); // in steps of 1
    set(ScanRole::Right, 5000);       // beyond the bed
    set(ScanRole::Brightness, 3);     // not there
    ASSERT_TRUE(waitForOptions());
    EXPECT_EQ(heard.options.size(), 1U);
    EXPECT_EQ(option(ScanRole::Mode)->value.word, "Color");
    EXPECT_EQ(option(ScanRole::Resolution)->value.number, 301);
    EXPECT_EQ(option(ScanRole::Right)->value.number, 200);
}

TEST_F(Scans, AreThoseOfScanimageInEveryDepth)
{
    configure();
    expectTheSame("Gray", 1);
    expectTheSame("Gray", 8);
    expectTheSame("Gray", 16);
    expectTheSame("Color", 8);
    expectTheSame("Color", 16);
}

TEST_F(Scans, AreThoseOfScanimageForEachTestPicture)
{
    for (const char* picture : {"\"Solid black\"", "\"Solid white\"", "Grid"}) {
        SCOPED_TRACE(picture);
        configure({{"test-picture", picture}});
        expectTheSame("Gray", 1);
        expectTheSame("Color", 8);
    }
}

TEST_F(Scans, PutThreePassesTogetherInAnyOrder)
{
    for (const char* order : {"RGB", "RBG", "GBR", "GRB", "BRG", "BGR"}) {
        SCOPED_TRACE(order);
        configure({{"three-pass", "true"}, {"three-pass-order", order}, {"mode", "Color"}});
        expectTheSame("Color", 8);
    }
}

// Scanimage has no three passes of 16 bits.
TEST_F(Scans, PutThreePassesOfSixteenBitsTogether)
{
    configure();
    expectTheSame("Color", 16);
    const QImage onePass = image();
    configure({{"three-pass", "true"}, {"mode", "Color"}});
    open();
    set(ScanRole::Depth, 16);
    set(ScanRole::Resolution, 100);
    setArea(60, 40);
    scan();
    test::expectSamePixels(image(), onePass);
}

TEST_F(Scans, TakeAnyHeightFromAHandScanner)
{
    configure({{"hand-scanner", "true"}});
    expectTheSame("Gray", 8);
    expectTheSame("Gray", 1);
    expectTheSame("Color", 8);
    configure({{"hand-scanner", "true"}, {"three-pass", "true"}, {"mode", "Color"}});
    expectTheSame("Color", 8);
}

TEST_F(Scans, ReadColoursOfOneBit)
{
    for (const auto& [picture, colour] : {std::pair{"\"Solid white\"", qRgb(255, 255, 255)},
                                          std::pair{"\"Solid black\"", qRgb(0, 0, 0)}}) {
        configure({{"test-picture", picture}});
        open();
        set(ScanRole::Mode, "Color");
        set(ScanRole::Depth, 1);
        set(ScanRole::Resolution, 30);
        scan();
        ASSERT_FALSE(image().isNull());
        EXPECT_EQ(image().format(), QImage::Format_RGB888);
        EXPECT_EQ(image().pixel(0, 0), colour);
        EXPECT_EQ(image().pixel(image().width() - 1, image().height() - 1), colour);
    }
}

TEST_F(Scans, BearEveryWayOfReading)
{
    const std::map<std::string, std::string> ways[] = {
        {{"read-limit", "true"}, {"read-limit-size", "1"}},
        {{"read-limit", "true"}, {"read-limit-size", "777"}},
        {{"read-delay", "true"}, {"read-delay-duration", "1000"}},
        {{"fuzzy-parameters", "true"}},
        {{"non-blocking", "true"}},
        {{"select-fd", "true"}},
        {{"non-blocking", "true"}, {"select-fd", "true"}},
        {{"non-blocking", "true"}, {"select-fd", "true"}, {"read-delay", "true"}},
        {{"invert-endianess", "true"}},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.begin()->first + " " + way.rbegin()->first);
        configure(way);
        expectTheSame("Gray", 8);
        expectTheSame("Color", 16);
    }
}

TEST_F(Scans, LeaveOutWhatPadsTheRows)
{
    configure();
    expectTheSame("Gray", 8);
    const QImage whole = image();
    configure({{"ppl-loss", "7"}});
    open();
    set(ScanRole::Resolution, 100);
    setArea(60, 40);
    scan();
    ASSERT_EQ(image().width(), whole.width() - 7);
    test::expectSamePixels(image(), whole.copy(0, 0, whole.width() - 7, whole.height()));
}

TEST_F(Scans, FailAsTheScannerSays)
{
    const std::pair<const char*, ScanFailure> codes[] = {
        {"SANE_STATUS_UNSUPPORTED", ScanFailure::Unsupported},
        {"SANE_STATUS_CANCELLED", ScanFailure::Cancelled},
        {"SANE_STATUS_DEVICE_BUSY", ScanFailure::Busy},
        {"SANE_STATUS_INVAL", ScanFailure::NotThere},
        {"SANE_STATUS_EOF", ScanFailure::Empty},
        {"SANE_STATUS_JAMMED", ScanFailure::Jammed},
        {"SANE_STATUS_NO_DOCS", ScanFailure::NoDocuments},
        {"SANE_STATUS_COVER_OPEN", ScanFailure::CoverOpen},
        {"SANE_STATUS_IO_ERROR", ScanFailure::Unreachable},
        {"SANE_STATUS_NO_MEM", ScanFailure::NoMemory},
        {"SANE_STATUS_ACCESS_DENIED", ScanFailure::AccessDenied},
    };
    for (const auto& [code, failure] : codes) {
        SCOPED_TRACE(code);
        configure({{"read-status-code", "\"" + std::string(code) + "\""}});
        open();
        set(ScanRole::Resolution, 50);
        scan();
        expectFailure(failure);
        EXPECT_TRUE(session->isOpen());
    }
}

TEST_F(Scans, EndWithTheFeedersLastSheet)
{
    configure();
    open();
    set(ScanRole::Source, "Automatic Document Feeder");
    set(ScanRole::Resolution, 10);
    for (int sheet = 0; sheet < 10; ++sheet) {
        scan();
        EXPECT_TRUE(heard.failures.empty()) << sheet;
        forget();
    }
    scan();
    expectFailure(ScanFailure::NoDocuments);
}

TEST_F(Scans, StopWhereTheyStandAndCanBeginAgain)
{
    for (const char* select : {"false", "true"}) {
        SCOPED_TRACE(select);
        configure({{"read-delay", "true"},
                   {"read-delay-duration", "200000"},
                   {"non-blocking", select},
                   {"select-fd", select}});
        open();
        set(ScanRole::Resolution, 600);
        setArea(200, 200);
        session->scan(ScanKind::Picture);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !heard.rows.empty(); }, test::kPatience));
        session->cancel();
        session->cancel();
        ASSERT_TRUE(waitForEnd());
        expectFailure(ScanFailure::Cancelled);
        EXPECT_TRUE(session->isOpen());
        forget();
        session->cancel(); // of nothing
        set(ScanRole::Resolution, 30);
        setArea(20, 20);
        scan();
        EXPECT_FALSE(image().isNull());
    }
}

TEST_F(Scans, TellHowFarTheyAre)
{
    configure({{"read-delay", "true"}, {"read-delay-duration", "50000"}});
    open();
    set(ScanRole::Resolution, 100);
    setArea(100, 100);
    scan();
    ASSERT_FALSE(heard.rows.empty());
    EXPECT_TRUE(std::is_sorted(heard.rows.begin(), heard.rows.end()));
    EXPECT_EQ(heard.rowsInAll.front(), image().height());
    EXPECT_LE(heard.rows.back(), image().height());
}

TEST_F(Scans, PreviewAllOfTheBedAndLeaveTheOptions)
{
    configure();
    open();
    set(ScanRole::Resolution, 300);
    set(ScanRole::Depth, 16);
    setArea(60, 40);
    ASSERT_TRUE(waitForOptions());
    const auto before = heard.options.back();
    scan(ScanKind::Preview);
    EXPECT_EQ(image().size(),
              scannedByScanimage({"--resolution", "75", "-x", "200", "-y", "200"}).size());
    forget();
    set(ScanRole::Mode, "Gray"); // as it is
    ASSERT_TRUE(waitForOptions());
    EXPECT_EQ(heard.options.back(), before);
}

TEST_F(Scans, RefuseAPictureBeyondTheLimit)
{
    configure({{"resolution_max", "12700.0"}});
    open();
    set(ScanRole::Resolution, 12700);
    setArea(200, 200); // 100,000 x 100,000 pixels
    scan();
    expectFailure(ScanFailure::TooLarge);
    EXPECT_TRUE(session->isOpen());
    forget();
    set(ScanRole::Resolution, 20);
    scan();
    EXPECT_FALSE(image().isNull());
}

TEST_F(Scans, FailForAScannerThatIsNotThere)
{
    configure();
    open("test:7");
    ASSERT_TRUE(waitForEnd());
    expectFailure(ScanFailure::NotThere);
    EXPECT_FALSE(session->isOpen());
    session->set(ScanRole::Mode, {"Color", 0});
    session->scan(ScanKind::Picture);
    session->cancel();
}
