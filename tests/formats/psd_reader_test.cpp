#include "formats/psd_reader.h"

#include "formats/hook_recorder.h"
#include "formats/image_checks.h"
#include "formats/psd_files.h"

#include <gtest/gtest.h>

namespace {

using Values = std::vector<unsigned>;

RawImage decoded(const FileBytes& file)
{
    RawImage image = markedImage();
    formats::readPsd(file, image);
    return image;
}

// The planes of a two-pixel picture as they stand in the file: red, green, blue, opacity.
FileBytes rawFile(int channels, const FileBytes& planes)
{
    return psdHeader(psdFields(channels, 2, 1, 0)).append(planes);
}

FileBytes packedFile(int channels, const FileBytes& packets)
{
    return psdHeader(psdFields(channels, 2, 1, 1)).append(psdLengths(channels, 1)).append(packets);
}

const Values kTwoPixels{21, 11, 1, 22, 12, 2};
const Values kBlack(6, 0);

FileBytes fourPlanes()
{
    return FileBytes().bytes({1, 2, 11, 12, 21, 22, 255, 255});
}

FileBytes threePackedPlanes()
{
    return FileBytes().bytes({1, 1, 2, 1, 11, 12, 1, 21, 22});
}

void expectMessages(const HookRecorder& recorder, std::size_t count)
{
    EXPECT_EQ(recorder.messages, std::vector<std::string>(count, "Error Open!"));
}

} // namespace

TEST(PsdReader, ReadsFourRawChannelsInSilence)
{
    const HookRecorder recorder;
    const RawImage image = decoded(rawFile(4, fourPlanes()));
    expectSize(image, 2, 1, 24);
    EXPECT_TRUE(image.Palette.empty());
    expectPixels(image, kTwoPixels);
    expectMessages(recorder, 0);
}

TEST(PsdReader, ReportsThreeRawChannelsAndShowsThemRight)
{
    const HookRecorder recorder;
    expectPixels(decoded(rawFile(3, fourPlanes().cutTo(6))), kTwoPixels);
    expectMessages(recorder, 1);
}

TEST(PsdReader, TakesTrailingBytesForTheFourthRawPlane)
{
    const HookRecorder recorder;
    expectPixels(decoded(rawFile(3, fourPlanes())), kTwoPixels);
    expectMessages(recorder, 0);
}

TEST(PsdReader, AsksForOnePlaneMoreThanFewRawChannelsHave)
{
    const HookRecorder recorder;
    // Two channels are read as three planes, one as green and blue, none as blue.
    expectPixels(decoded(rawFile(2, FileBytes().bytes({1, 2, 11, 12, 21, 22}))), kTwoPixels);
    expectPixels(decoded(rawFile(1, FileBytes().bytes({11, 12, 21, 22}))), {21, 11, 0, 22, 12, 0});
    expectPixels(decoded(rawFile(0, FileBytes().bytes({21, 22}))), {21, 0, 0, 22, 0, 0});
    expectMessages(recorder, 0);
    expectPixels(decoded(rawFile(2, FileBytes().bytes({1, 2, 11, 12}))), {0, 11, 1, 0, 12, 2});
    expectPixels(decoded(rawFile(1, FileBytes().bytes({11, 12}))), {0, 11, 0, 0, 12, 0});
    expectMessages(recorder, 2);
}

TEST(PsdReader, ReadsThreePackedChannelsInSilence)
{
    const HookRecorder recorder;
    const RawImage image = decoded(packedFile(3, threePackedPlanes()));
    expectSize(image, 2, 1, 24);
    expectPixels(image, kTwoPixels);
    expectMessages(recorder, 0);
}

TEST(PsdReader, ShowsOnePackedChannelInShadesOfBlue)
{
    const HookRecorder recorder;
    expectPixels(decoded(packedFile(1, FileBytes().bytes({1, 21, 22}))), {21, 0, 0, 22, 0, 0});
    expectPixels(decoded(packedFile(2, FileBytes().bytes({1, 11, 12, 1, 21, 22}))),
                 {21, 11, 0, 22, 12, 0});
    expectPixels(decoded(packedFile(0, FileBytes().byte(1))), kBlack);
    expectMessages(recorder, 0);
}

TEST(PsdReader, UnpacksRunsAndSkips128)
{
    const HookRecorder recorder;
    expectPixels(
        decoded(packedFile(3, FileBytes().bytes({128, 255, 5, 128, 128, 0, 11, 0, 12, 255, 7}))),
        {7, 11, 5, 7, 12, 5});
    expectMessages(recorder, 0);
}

TEST(PsdReader, TakesAPlaneForOneStreamAcrossItsLines)
{
    const HookRecorder recorder;
    FileBytes file = psdHeader(psdFields(3, 2, 2, 1)).append(psdLengths(3, 2));
    file.bytes({253, 1, 253, 2, 3, 3, 4, 5, 6});
    expectPixels(decoded(file), {3, 2, 1, 4, 2, 1, 5, 2, 1, 6, 2, 1});
    expectMessages(recorder, 0);
}

TEST(PsdReader, ReportsARunBeyondThePlaneAndDropsTheLaterPlanes)
{
    const HookRecorder recorder;
    expectPixels(decoded(packedFile(3, FileBytes().bytes({254, 1, 255, 2, 255, 3}))),
                 {0, 0, 1, 0, 0, 1});
    expectPixels(decoded(packedFile(3, FileBytes().bytes({255, 1, 2, 2, 2, 2, 255, 3}))),
                 {0, 2, 1, 0, 2, 1});
    expectMessages(recorder, 2);
}

TEST(PsdReader, HasOneSpareByteBehindTheBluePlane)
{
    const HookRecorder recorder;
    const FileBytes redAndGreen = FileBytes().bytes({255, 1, 255, 2});
    const Values whole{3, 2, 1, 3, 2, 1};
    expectPixels(decoded(packedFile(3, FileBytes(redAndGreen).bytes({254, 3}))), whole);
    expectPixels(decoded(packedFile(3, FileBytes(redAndGreen).bytes({2, 3, 3, 3}))), whole);
    expectMessages(recorder, 0);
    expectPixels(decoded(packedFile(3, FileBytes(redAndGreen).bytes({253, 3}))), whole);
    expectPixels(decoded(packedFile(3, FileBytes(redAndGreen).bytes({2, 3, 3}))), whole);
    expectMessages(recorder, 2);
}

TEST(PsdReader, AsksForThePackedOpacityToo)
{
    const HookRecorder recorder;
    expectPixels(decoded(packedFile(4, threePackedPlanes().bytes({255, 9}))), kTwoPixels);
    expectMessages(recorder, 0);
    expectPixels(decoded(packedFile(4, threePackedPlanes())), kTwoPixels);
    expectPixels(decoded(packedFile(4, threePackedPlanes().bytes({254, 9}))), kTwoPixels);
    expectMessages(recorder, 2);
}

TEST(PsdReader, ShowsATruncatedFileWithItsMissingPlanesBlack)
{
    const HookRecorder recorder;
    expectPixels(decoded(rawFile(4, fourPlanes().cutTo(3))), {0, 11, 1, 0, 0, 2});
    expectPixels(decoded(packedFile(3, threePackedPlanes().cutTo(5))), {0, 11, 1, 0, 0, 2});
    expectPixels(decoded(packedFile(3, threePackedPlanes().cutTo(4))), {0, 0, 1, 0, 0, 2});
    expectMessages(recorder, 3);
}

TEST(PsdReader, ReportsAFileThatEndsWithItsHeader)
{
    const HookRecorder recorder;
    for (const int compression : {0, 1}) {
        const RawImage image = decoded(psdHeader(psdFields(3, 2, 1, compression)));
        expectSize(image, 2, 1, 24);
        expectPixels(image, kBlack);
    }
    expectMessages(recorder, 2);
}

TEST(PsdReader, TakesNegativeCompressionsForPacked)
{
    PsdFields fields = psdFields(3, 2, 1, -1);
    expectPixels(decoded(psdHeader(fields).append(psdLengths(3, 1)).append(threePackedPlanes())),
                 kTwoPixels);
}

TEST(PsdReader, RefusesOtherKindsInSilence)
{
    const HookRecorder recorder;
    const PsdFields good = psdFields(4, 2, 1, 0);
    std::vector<PsdFields> refused(9, good);
    refused[0].version = 2;
    refused[1].channels = 17;
    refused[2].channels = -1;
    refused[3].depth = 16;
    refused[4].mode = 4;
    refused[5].mode = 1;
    refused[6].mode = 2;
    refused[7].compression = 2;
    refused[8].compression = 32767;
    for (const PsdFields& fields : refused) {
        expectUntouched(decoded(psdHeader(fields).append(fourPlanes())));
    }
    expectUntouched(decoded(rawFile(4, fourPlanes()).set(0, 'x')));
    expectUntouched(decoded(rawFile(4, fourPlanes()).cutTo(20)));
    expectMessages(recorder, 0);
}

TEST(PsdReader, AcceptsSixteenChannels)
{
    expectPixels(decoded(rawFile(16, fourPlanes())), kTwoPixels);
}

TEST(PsdReader, PassesOverTheSectionsByTheirLengths)
{
    PsdFields fields = psdFields(4, 2, 1, 0);
    fields.sectionBytes = 5;
    expectPixels(decoded(psdHeader(fields).append(fourPlanes())), kTwoPixels);
}

TEST(PsdReader, GoesBackByANegativeSectionLength)
{
    // To the first byte, where the signature is no compression, and to the byte before it.
    FileBytes header = rawFile(4, fourPlanes());
    for (const std::int64_t length : {-38, -39}) {
        const FileBytes back = FileBytes(header).cutTo(34).big32(length).append(fourPlanes());
        expectUntouched(decoded(back));
    }
    // To the version, which reads as compression 1.
    const FileBytes version = FileBytes(header).cutTo(34).big32(4 - 38).append(fourPlanes());
    expectSize(decoded(version), 2, 1, 24);
}

TEST(PsdReader, LeavesTheRecordWhenSectionsLeadOutOf32Bits)
{
    const FileBytes header = rawFile(4, fourPlanes()).cutTo(26);
    expectUntouched(decoded(FileBytes(header).big32(2147483647)));
    // The planes would begin at the last position but one, the last one, and behind it.
    constexpr std::int64_t kToTheLast = 2147483647 - 41;
    expectSize(decoded(FileBytes(header).big32(kToTheLast - 1)), 2, 1, 24);
    expectSize(decoded(FileBytes(header).big32(kToTheLast)), 2, 1, 24);
    expectUntouched(decoded(FileBytes(header).big32(kToTheLast + 1)));
}

TEST(PsdReader, ReportsSectionsThatReachBehindTheFile)
{
    const HookRecorder recorder;
    const FileBytes file = rawFile(4, fourPlanes()).cutTo(26).big32(100000);
    const RawImage image = decoded(file);
    expectSize(image, 2, 1, 24);
    expectPixels(image, kBlack);
    expectMessages(recorder, 1);
}

TEST(PsdReader, LeavesTheRecordForAreasThatItCannotHold)
{
    const HookRecorder recorder;
    struct Case {
        std::int64_t rows;
        std::int64_t columns;
    };
    for (const Case& beyond : {Case{-1, 5}, Case{5, -1}, Case{70000, 70000}, Case{30000, 30000},
                               Case{2147483647, 1}, Case{-2147483648LL, -1}}) {
        PsdFields fields = psdFields(4, 0, 0, 0);
        fields.rows = beyond.rows;
        fields.columns = beyond.columns;
        expectUntouched(decoded(psdHeader(fields).append(fourPlanes())));
    }
    expectMessages(recorder, 0);
}

TEST(PsdReader, GivesTwoNegativeSidesABlackPicture)
{
    const HookRecorder recorder;
    const RawImage image = decoded(psdHeader(psdFields(4, -2, -1, 0)).append(fourPlanes()));
    expectSize(image, -2, -1, 24);
    expectPixels(image, kBlack);
    EXPECT_TRUE(recorder.fractions.empty());
    expectMessages(recorder, 0);
    // The table of line lengths would end before the data begins.
    expectPixels(decoded(psdHeader(psdFields(4, -2, -1, 1)).append(fourPlanes())), kBlack);
    expectMessages(recorder, 1);
}

TEST(PsdReader, EmptiesThePixelsOfAPictureWithoutWidth)
{
    const HookRecorder recorder;
    for (const int compression : {0, 1}) {
        const RawImage image =
            decoded(psdHeader(psdFields(3, 0, 3, compression)).append(fourPlanes()));
        expectSize(image, 0, 3, 24);
        EXPECT_TRUE(image.Pixels.empty());
    }
    expectMessages(recorder, 0);
    EXPECT_EQ(recorder.fractions, (std::vector<double>{0, 0.5, 1, 0, 0.5, 1}));
}

TEST(PsdReader, TellsItsProgressAfterEachRow)
{
    const HookRecorder recorder;
    decoded(psdHeader(psdFields(4, 1, 5, 0)).fill(20, 1));
    EXPECT_EQ(recorder.fractions, (std::vector<double>{0, 0.25, 0.5, 0.75, 1}));
}

TEST(PsdReader, TellsItsProgressForRowsThatAreMissing)
{
    const HookRecorder recorder;
    decoded(psdHeader(psdFields(4, 10000, 3, 0)));
    EXPECT_EQ(recorder.fractions, (std::vector<double>{0, 0.5, 1}));
}

TEST(PsdReader, TellsNoProgressForASingleRow)
{
    const HookRecorder recorder;
    decoded(rawFile(4, fourPlanes()));
    EXPECT_TRUE(recorder.fractions.empty());
}

TEST(PsdReader, TellsTheProgressOfVeryManyRowsInSteps)
{
    const HookRecorder recorder;
    decoded(psdHeader(psdFields(4, 1, 100000, 0)).fill(400000, 1));
    EXPECT_LE(recorder.fractions.size(), 40000U);
    EXPECT_EQ(recorder.fractions.front(), 0);
    EXPECT_EQ(recorder.fractions.back(), 1);
}

TEST(PsdReader, WorksWithoutHooks)
{
    expectPixels(decoded(rawFile(3, fourPlanes().cutTo(6))), kTwoPixels);
}

TEST(PsdReader, ReportsBeforeItChangesTheRecord)
{
    RawImage image = markedImage();
    int width = 0;
    formats::setHooks({[&](const char*) { width = image.Width; }, {}});
    formats::readPsd(rawFile(3, fourPlanes().cutTo(6)), image);
    formats::setHooks({});
    EXPECT_EQ(width, 77);
    EXPECT_EQ(image.Width, 2);
}

TEST(PsdReader, UnpacksLargePlanesAsItDoesSmallOnes)
{
    // 100 lines of 300 pixels: literals, runs and skipped bytes, the same on each line.
    FileBytes file = psdHeader(psdFields(3, 300, 100, 1)).append(psdLengths(3, 100));
    Values line;
    for (unsigned i = 0; i < 100; ++i) {
        line.push_back(i * 3);
    }
    line.insert(line.end(), 128, 77);
    line.insert(line.end(), 72, 88);
    for (unsigned plane = 0; plane < 3; ++plane) {
        for (unsigned row = 0; row < 100; ++row) {
            file.byte(99);
            for (unsigned i = 0; i < 100; ++i) {
                file.byte(line[i] + plane + row);
            }
            file.bytes({128, 129, line[100] + plane + row, 257 - 72, line[299] + plane + row});
        }
    }
    const HookRecorder recorder;
    const RawImage image = decoded(file);
    expectMessages(recorder, 0);
    ASSERT_EQ(image.Pixels.size(), 90000U);
    for (unsigned row = 0; row < 100; ++row) {
        for (unsigned column = 0; column < 300; ++column) {
            for (unsigned colour = 0; colour < 3; ++colour) {
                const unsigned expected = (line[column] + (2 - colour) + row) % 256;
                ASSERT_EQ(image.Pixels[(row * 300 + column) * 3 + colour], expected);
            }
        }
    }
}
