#include "link/hex_records.h"
#include "link/mark_hex.h"
#include "tests/support/link_rig.h"

using namespace tambrix;

namespace {

struct BadImage
{
    const char* name;
    std::string text;
    int line;
    const char* reason;
};

class MalformedImage : public testing::TestWithParam<BadImage>
{
};

const std::string kGood = ":0400100001020304E2\r\n";
const std::string kEnd = ":00000001FF\r\n";

constexpr const char* kNoMark = "The line does not begin with a record mark.";
constexpr const char* kNoDigit = "The line holds a character that is not a hexadecimal digit.";
constexpr const char* kShort = "The record is cut short.";
constexpr const char* kLong = "The line is longer than its record length says.";

struct GoodImage
{
    const char* name;
    std::string text;
    std::size_t records;
};

class WellFormedImage : public testing::TestWithParam<GoodImage>
{
};

} // namespace

TEST(MarkHex, TranslatesBothWays)
{
    EXPECT_EQ(MarkHex2HEX(":10;<=>?9afAF"), "A10BCDEF9afAF");
    EXPECT_EQ(HEX2MarkHEX("A1BCDEF9af:"), ":1;<=>?9af:");
}

TEST(MarkHex, ReadsAPairInAnyForm)
{
    for (const char* text : {"x1B", "x1b", "x1;"})
        EXPECT_EQ(hexPair(text, 1), 0x1B) << text;
    for (const char* text : {"", "x", "x1", "x1G", "x@1", "x1/"})
        EXPECT_EQ(hexPair(text, 1), std::nullopt) << text;
}

TEST_P(MalformedImage, IsRefusedWithTheLineAndTheReason)
{
    const HexImage image = parseHexImage(GetParam().text);
    ASSERT_TRUE(image.fault);
    EXPECT_EQ(image.fault->line, GetParam().line);
    EXPECT_EQ(image.fault->reason, GetParam().reason);
    EXPECT_TRUE(image.records.empty()); // nothing of a bad file may be loaded
}

INSTANTIATE_TEST_SUITE_P(
    Table, MalformedImage,
    testing::Values(
        BadImage{"Empty", "", 0, "The file is empty."},
        BadImage{"NoMarkAtAll", "0400100001020304E2\r\n", 1, kNoMark},
        BadImage{"NoMarkInSecondLine", kGood + "S1130000\r\n", 2, kNoMark},
        BadImage{"EmptyLine", kGood + "\r\n" + kEnd, 2, kNoMark},
        BadImage{"MarkAlone", ":\r\n", 1, kShort}, BadImage{"LengthCut", ":1\r\n", 1, kShort},
        BadImage{"AddressCut", ":040010\r\n", 1, kShort},
        BadImage{"DataCut", kGood + kGood + ":0400100001020", 3, kShort},
        BadImage{"ChecksumCut", ":0400100001020304\r\n", 1, kShort},
        BadImage{"ChecksumHalfCut", ":0400100001020304E\r\n", 1, kShort},
        BadImage{"EndRecordCut", kGood + ":00", 2, kShort},
        BadImage{"LengthBeyondLine", ":0500100001020304E2\r\n", 1, kShort},
        BadImage{"LengthBelowLine", ":0300100001020304E2\r\n", 1, kLong},
        BadImage{"LetterInLength", ":0G00100001020304E2\r\n", 1, kNoDigit},
        BadImage{"LetterInAddress", ":0400x00001020304E2\r\n", 1, kNoDigit},
        BadImage{"LetterInData", ":04001000010203@4E2\r\n", 1, kNoDigit},
        BadImage{"LetterInChecksum", ":0400100001020304Z2\r\n", 1, kNoDigit},
        BadImage{"BlankInside", ":04001000 1020304E2\r\n", 1, kNoDigit},
        BadImage{"NulInside", std::string(":0400\0", 6) + "100001020304E2\r\n", 1, kNoDigit},
        BadImage{"HighBitInside",
                 ":0400100001\xFF"
                 "20304E2\r\n",
                 1, kNoDigit},
        BadImage{"LengthThatIsAttention", ":FF000000" + std::string(2 * 255, '0') + "01\r\n", 1,
                 "The record is too long for the target board."}),
    [](const auto& row) { return row.param.name; });

TEST_P(WellFormedImage, GivesItsRecords)
{
    const HexImage image = parseHexImage(GetParam().text);
    EXPECT_FALSE(image.fault);
    ASSERT_EQ(image.records.size(), GetParam().records);
    for (const HexRecord& record : image.records) {
        EXPECT_EQ(record.address, 0xA01F);
        EXPECT_EQ(record.data, (std::vector<std::uint8_t>{0xAB, 0x0F, 0xFF}));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, WellFormedImage,
    testing::Values(GoodImage{"UpperCase", ":03A01F00AB0FFF00\r\n" + kEnd, 1},
                    GoodImage{"LowerCase", ":03a01f00ab0fff00\r\n" + kEnd, 1},
                    GoodImage{"MarkDigits", ":03:01?00:;0???00\r\n:00000001??\r\n", 1},
                    GoodImage{"AnyTypeAndChecksum", ":03A01F99AB0FFFEE\r\n", 1},
                    GoodImage{"LineFeedsAndNoLastLineEnd", ":03A01F00AB0FFF00\n:03A01F00AB0FFF00",
                              2},
                    GoodImage{"CarriageReturns", ":03A01F00AB0FFF00\r:03A01F00AB0FFF00\r", 2},
                    GoodImage{"TrailingBlanks", ":03A01F00AB0FFF00 \t\r\n", 1},
                    GoodImage{"EndRecordAlone", kEnd, 0},
                    GoodImage{"RecordsAfterTheEnd", kEnd + ":03A01F00AB0FFF00\r\n", 1}),
    [](const auto& row) { return row.param.name; });

TEST(HexRecords, TheLongestRecordIsRead)
{
    const HexImage image = parseHexImage(":FE000000" + std::string(2 * 254, '5') + "00\r\n");
    ASSERT_EQ(image.records.size(), 1u);
    EXPECT_EQ(image.records.front().data, std::vector<std::uint8_t>(254, 0x55));
}

TEST(HexRecords, FilesThatCannotBeReadAreRefused)
{
    const ScratchFolder folder;
    for (const auto& path : {folder.path() / "missing.hex", folder.path()}) {
        const HexImage image = readHexImage(path);
        ASSERT_TRUE(image.fault) << path;
        EXPECT_EQ(image.fault->line, 0);
    }
    const auto file = folder.write("huge.hex", std::string(5'000'000, ':'));
    EXPECT_EQ(readHexImage(file).fault->reason, "The file is too large for a program image.");
}
