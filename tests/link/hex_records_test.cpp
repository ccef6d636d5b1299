#include "link/hex_records.h"
#include "link/mark_hex.h"
#include "tests/support/link_rig.h"

#include <tuple>

using namespace tambrix;

namespace {

const std::string kGood = ":03A01F00AB0FFF00\r\n";
const std::string kEnd = ":00000001FF\r\n";

/// What is wrong and where; the number of records of a good image.
std::string verdict(const HexImage& image)
{
    return image.fault ? std::to_string(image.fault->line) + ": " + image.fault->reason
                       : std::to_string(image.records.size());
}

} // namespace

TEST(MarkHex, IsTranslatedBothWaysAndReadInAnyForm)
{
    EXPECT_EQ(MarkHex2HEX(":10;<=>?9afAF"), "A10BCDEF9afAF");
    EXPECT_EQ(HEX2MarkHEX("A1BCDEF9af:"), ":1;<=>?9af:");
    for (const char* text : {"x1B", "x1b", "x1;"})
        EXPECT_EQ(hexPair(text, 1), 0x1B) << text;
    for (const char* text : {"", "x", "x1", "x1G", "x1g", "x@1", "x1/"})
        EXPECT_EQ(hexPair(text, 1), std::nullopt) << text;
}

TEST(HexRecords, GoodImagesGiveTheirRecordsAndBadOnesTheLineAndTheReason)
{
    const std::string noMark = "The line does not begin with a record mark.";
    const std::string noDigit = "1: The record holds a character that is not a hexadecimal digit.";
    const std::string cut = "The record is cut short.";
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"lower case", ":03a01f00ab0fff00\r\n" + kEnd, "1"},
        {"mark digits", ":03:01?00:;0???00\r\n:00000001??\r\n", "1"},
        {"any type and checksum", ":03A01F99AB0FFFEE\r\n", "1"},
        {"no checksum", ":03A01F00AB0FFF\r\n", "1"},
        {"other text for type and checksum", ":03A01FxyAB0FFF zz \xFF\t\r\n", "1"},
        {"line feeds and no last line end", ":03A01F00AB0FFF00\n:03A01F00AB0FFF00", "2"},
        {"carriage returns", ":03A01F00AB0FFF00\r:03A01F00AB0FFF00\r", "2"},
        {"end record alone", kEnd, "0"},
        {"end record cut", ":00\r\n", "0"},
        {"records after the end", kEnd + kGood, "1"},
        {"empty", "", "0: The file is empty."},
        {"no mark in second line", kGood + "S1130000\r\n", "2: " + noMark},
        {"empty line", kGood + "\r\n" + kEnd, "2: " + noMark},
        {"mark alone", ":\r\n", "1: The record length is not a hexadecimal number."},
        {"data cut", kGood + kGood + ":0400100001020", "3: " + cut},
        {"length beyond line", ":0600100001020304E2\r\n", "1: " + cut},
        {"mark digit beyond the last", ":04001000010203@4E2\r\n", noDigit},
        {"blank inside", ":04001000 1020304E2\r\n", noDigit},
        {"nul in the address", std::string(":0400\0", 6) + "100001020304E2\r\n", noDigit},
        {"length that is attention",
         ":FF000000" + std::string(std::size_t{2} * 255, '0') + "01\r\n",
         "1: The record is too long for the target board."},
    };
    for (const auto& [name, text, expected] : cases) {
        const HexImage image = parseHexImage(text);
        EXPECT_EQ(verdict(image), expected) << name;
        for (const HexRecord& record : image.records) {
            EXPECT_FALSE(image.fault) << name; // nothing of a bad file may be loaded
            EXPECT_EQ(record.address, 0xA01F) << name;
            EXPECT_EQ(record.data, (std::vector<std::uint8_t>{0xAB, 0x0F, 0xFF})) << name;
        }
    }
}

TEST(HexRecords, TheLongestIsReadAndFilesThatCannotBeReadAreRefused)
{
    const ScratchFolder folder;
    for (const auto& path : {folder.path() / "missing.hex", folder.path()}) {
        const HexImage image = readHexImage(path);
        ASSERT_TRUE(image.fault) << path;
        EXPECT_EQ(image.fault->line, 0);
    }
    const std::string longest = ":FE000000" + std::string(std::size_t{2} * 254, '5') + "00";
    EXPECT_EQ(parseHexImage(longest).records.at(0).data, std::vector<std::uint8_t>(254, 0x55));
    const auto file = folder.write("huge.hex", std::string(5'000'000, ':'));
    EXPECT_EQ(readHexImage(file).fault->reason, "The file is too large for a program image.");
}
