#include "link/point_names.h"
#include "link/register_address.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace tambrix;

namespace {

struct ParseCase
{
    const char* addr;
    char letter;
    std::int32_t address;
    int mask; ///< 0: names no bit
};

class ParsedAddress : public testing::TestWithParam<ParseCase>
{
};

struct PointCase
{
    const char* addr;
    std::int16_t board;
    const char* result;
};

struct ValidCase
{
    const char* addr;
    std::int16_t board;
    bool ok;
};

} // namespace

TEST_P(ParsedAddress, NamesTheRightBytes)
{
    RegisterAddress parsed;
    parsed.IsBitAddress = GetParam().mask == 0; // what the last address left behind
    ParseAddress(GetParam().addr, parsed);
    EXPECT_EQ(parsed.RegLetter, GetParam().letter);
    EXPECT_EQ(parsed.RegAddress, GetParam().address);
    EXPECT_EQ(parsed.IsBitAddress, GetParam().mask != 0);
    EXPECT_EQ(parsed.BitMask, GetParam().mask);
}

INSTANTIATE_TEST_SUITE_P(
    Addresses, ParsedAddress,
    testing::Values(ParseCase{"B100", 'B', 100, 0}, ParseCase{"w1298", 'W', 1298, 0},
                    ParseCase{"D940", 'D', 940, 0}, ParseCase{"b100.3", 'B', 100, 8},
                    ParseCase{"W100.3", 'B', 100, 8}, ParseCase{"B100.9", 'B', 100, 512},
                    ParseCase{"F0", 'B', 32, 1}, ParseCase{"F123", 'B', 47, 8},
                    ParseCase{"F991", 'B', 155, 128}, ParseCase{"Fx", 'B', 32, 1},
                    ParseCase{"1FH", 'B', 31, 0}, ParseCase{"fh", 'B', 15, 0},
                    ParseCase{"1A2BH", 'B', 6699, 0}, ParseCase{"A800h", 'B', 43008, 0},
                    ParseCase{"12345H", 'B', 74565, 0}, ParseCase{"H", 'B', 0, 0},
                    ParseCase{"Z5", 'B', 32, 0}, ParseCase{"", 'B', 32, 0},
                    ParseCase{".", 'B', 0, 1}, ParseCase{"W12x4", 'W', 12, 0},
                    ParseCase{"B99999999999", 'B', INT32_MAX, 0},
                    ParseCase{"FFFFFFFFFFFFH", 'B', INT32_MAX, 0}));

TEST(ParsedAddress, KeepsTheMaskOfTheLastBit)
{
    RegisterAddress parsed;
    ParseAddress("B10.7", parsed);
    ParseAddress("W20", parsed);
    EXPECT_EQ(parsed.BitMask, 128);
    EXPECT_FALSE(parsed.IsBitAddress);
}

TEST(PointNames, AreTranslatedPerBoard)
{
    const PointCase cases[] = {
        {"X31.4", 49, "B50.4"}, {"Y141", 49, "B67"},
        {"Y142", 49, "Y142"},   {"x30", 49, "B49"},
        {"Y30", 49, "Y30"},     {"X151.9", 50, "B191.7"},
        {"Y0", 50, "B160"},     {"X11", 50, "B163"},
        {"X12", 50, "X12"},     {"I0", 50, "B192"},
        {"i151", 50, "B223"},   {"I161", 50, "I161"},
        {"X10", 58, "B51"},     {"X20", 58, "X20"},
        {"Y1.3", 58, "B50.3"},  {"X21", 59, "B54"},
        {"X21", 66, "B54"},     {"Y21", 59, "Y21"},
        {"X20", 60, "B53"},     {"X21", 60, "X21"},
        {"Y21", 65, "B54"},     {"X0", 61, "B49"},
        {"X10.1", 61, "B51.1"}, {"Y11", 61, "B52"},
        {"Y0", 61, "Y0"},       {"B100.0", 49, "B100.0"},
        {"W1298", 68, "W1298"}, {"X10", 68, "X10"},
        {"", 49, ""},
    };
    for (const PointCase& c : cases)
        EXPECT_EQ(EquateAdd(c.addr, c.board), c.result) << c.addr << " on " << c.board;
}

TEST(PointNames, AreCheckedAgainstTheBoardsRange)
{
    const ValidCase cases[] = {
        {"B31", 68, false},  {"B32", 49, true},    {"B255", 49, true},   {"B256", 49, false},
        {"B8275", 68, true}, {"B8276", 50, false}, {"B65535", 69, true}, {"B65536", 55, false},
        {"W33", 68, false},  {"W8274", 68, true},  {"W8276", 68, false}, {"w254", 51, true},
        {"D256", 51, false}, {"W65534", 67, true}, {"F120", 49, true},   {"F121", 66, false},
        {"F991", 68, true},  {"F992", 62, false},  {"I151", 50, true},   {"I150", 49, true},
        {"I31", 51, false},  {"I21", 56, true},    {"I20", 68, false},   {"X12", 49, false},
        {"X151", 50, true},  {"Y5", 68, false},    {"Y1", 68, false},    {"Y1", 0, false},
        {"X21", 69, true},   {"X30", 62, false},   {"B100.9", 68, true}, {"Q0", 68, true},
        {"Q1", 68, false},
    };
    for (const ValidCase& c : cases)
        EXPECT_EQ(ValidAdd(c.addr, c.board), c.ok) << c.addr << " on " << c.board;
}

TEST(OctalDigits, AreConvertedOnePositionOnly)
{
    EXPECT_EQ(Dec2Octal(15), 17);
    EXPECT_EQ(Dec2Octal(63), 77);
    EXPECT_EQ(Dec2Octal(64), 80);
    EXPECT_EQ(Dec2Octal(100), 124);
    EXPECT_EQ(Dec2Octal(26215), 32767);
    EXPECT_THROW(Dec2Octal(26216), std::overflow_error);
    EXPECT_EQ(Octal2Dec(17), 15);
    EXPECT_EQ(Octal2Dec(77), 63);
    EXPECT_EQ(Octal2Dec(80), 64);
    EXPECT_EQ(Octal2Dec(144), 116);
}
