#include "platform/devices/scan_messages.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace platform;

namespace {

std::span<const std::byte> bodyOf(const MessageBytes& message)
{
    return std::span(message).subspan(kMessageHeadBytes);
}

std::vector<ScanOption> someOptions()
{
    ScanOption mode;
    mode.role = ScanRole::Mode;
    mode.words = {"Gray", "Farbe \xC3\xA4", ""};
    mode.value = {"Gray", 0};
    ScanOption resolution;
    resolution.role = ScanRole::Resolution;
    resolution.unit = ScanUnit::DotsPerInch;
    resolution.numbers = {75, 300.5};
    resolution.least = -1;
    resolution.most = 1200;
    resolution.step = 0.5;
    resolution.value = {{}, 300.5};
    return {mode, resolution};
}

// What is left of a message after each number of its bytes, and with one too many.
template<typename Read> void expectOnlyWhole(const MessageBytes& message, Read read)
{
    const auto body = bodyOf(message);
    EXPECT_TRUE(read(body).has_value());
    for (std::size_t count = 0; count < body.size(); ++count) {
        EXPECT_FALSE(read(body.first(count)).has_value()) << count;
    }
    MessageBytes longer(body.begin(), body.end());
    longer.push_back(std::byte(0));
    EXPECT_FALSE(read(longer).has_value());
}

} // namespace

TEST(ScanMessages, TellInTheirHeadsWhatFollows)
{
    const MessageBytes message = openMessage("test:0");
    const auto head = readHead(std::span(message).first(kMessageHeadBytes));
    ASSERT_TRUE(head.has_value());
    EXPECT_EQ(head->kind, ScanMessage::Open);
    EXPECT_EQ(head->length, message.size() - kMessageHeadBytes);
}

TEST(ScanMessages, RefuseHeadsOfUnknownKindsAndLongBodies)
{
    MessageBytes head = plainMessage(ScanMessage::Cancel);
    ASSERT_EQ(head.size(), kMessageHeadBytes);
    EXPECT_TRUE(readHead(head).has_value());
    EXPECT_FALSE(readHead(std::span(head).first(4)).has_value());
    head[4] = std::byte(1); // 16 MB
    EXPECT_FALSE(readHead(head).has_value());
    head[4] = std::byte(0);
    head[0] = std::byte(int(ScanMessage::Failed) + 1);
    EXPECT_FALSE(readHead(head).has_value());
}

TEST(ScanMessages, ComeBackAsTheyWere)
{
    EXPECT_EQ(readOpen(bodyOf(openMessage("a b"))), "a b");
    EXPECT_EQ(readScan(bodyOf(scanMessage(ScanKind::Picture))), ScanKind::Picture);
    EXPECT_EQ(readFailed(bodyOf(failedMessage(ScanFailure::Empty))), ScanFailure::Empty);
    const auto set = readSet(bodyOf(setMessage(ScanRole::Contrast, {"w", -2.25})));
    ASSERT_TRUE(set.has_value());
    EXPECT_EQ(set->role, ScanRole::Contrast);
    EXPECT_EQ(set->value, (ScanValue{"w", -2.25}));
    const auto rows = readRows(bodyOf(rowsMessage(7, 4000000000U)));
    ASSERT_TRUE(rows.has_value());
    EXPECT_EQ(rows->soFar, 7U);
    EXPECT_EQ(rows->inAll, 4000000000U);
    const std::vector<ScannerFacts> scanners{{"n", "v", "m", "t"}, {"", "", "", ""}};
    EXPECT_EQ(readScanners(bodyOf(scannersMessage(scanners))), scanners);
    EXPECT_EQ(readOptions(bodyOf(optionsMessage(someOptions()))), someOptions());
}

TEST(ScanMessages, AreNothingUnlessTheyAreWhole)
{
    expectOnlyWhole(openMessage("test:0"), readOpen);
    expectOnlyWhole(setMessage(ScanRole::Mode, {"Gray", 0}), readSet);
    expectOnlyWhole(scanMessage(ScanKind::Preview), readScan);
    expectOnlyWhole(scannersMessage({{"n", "v", "m", "t"}}), readScanners);
    expectOnlyWhole(optionsMessage(someOptions()), readOptions);
    expectOnlyWhole(rowsMessage(1, 2), readRows);
    expectOnlyWhole(pictureMessage({1, 1, 1}), readPicture);
    expectOnlyWhole(failedMessage(ScanFailure::Busy), readFailed);
}

TEST(ScanMessages, RefuseValuesThatThereAreNot)
{
    EXPECT_FALSE(readScan(bodyOf(scanMessage(ScanKind(2)))).has_value());
    EXPECT_FALSE(readFailed(bodyOf(failedMessage(ScanFailure(kScanFailures)))).has_value());
    EXPECT_FALSE(readSet(bodyOf(setMessage(ScanRole(kScanRoles), {}))).has_value());
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(readSet(bodyOf(setMessage(ScanRole::Mode, {{}, infinite}))).has_value());
    EXPECT_FALSE(readSet(bodyOf(setMessage(ScanRole::Mode, {{}, std::nan("")}))).has_value());
}

TEST(ScanMessages, RefuseListsThatClaimMoreThanTheyHold)
{
    MessageBytes message = scannersMessage({{"n", "v", "m", "t"}});
    for (std::size_t i = 0; i < 4; ++i) {
        message[kMessageHeadBytes + i] = std::byte(0xFF);
    }
    EXPECT_FALSE(readScanners(bodyOf(message)).has_value());
}

TEST(ScanMessages, RefusePicturesBeyondTheLimit)
{
    const auto isRead = [](const ScanShape& shape) {
        return readPicture(bodyOf(pictureMessage(shape))).has_value();
    };
    EXPECT_TRUE(isRead({16384, 8192, 3})); // 512 MB
    EXPECT_FALSE(isRead({16384, 8193, 3}));
    EXPECT_FALSE(isRead({100000, 100000, 1}));
    EXPECT_FALSE(isRead({0, 1, 1}));
    EXPECT_FALSE(isRead({1, 0, 1}));
    EXPECT_FALSE(isRead({1, 1, 2}));
    EXPECT_FALSE(isRead({4294967295U, 1, 4}));
}
