#include "link/point_names.h"
#include "link/register_address.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

using namespace tambrix;

TEST(ParsedAddress, NamesTheRightBytes)
{
    struct Case
    {
        const char* addr;
        char letter;
        std::int32_t address;
        int mask; ///< 0: names no bit
    };
    const Case cases[] = {
        {"B100", 'B', 100, 0},
        {"w1298", 'W', 1298, 0},
        {"D940", 'D', 940, 0},
        {"b100.3", 'B', 100, 8},
        {"W100.3", 'B', 100, 8},
        {"B100.9", 'B', 100, 512},
        {"F0", 'B', 32, 1},
        {"F123", 'B', 47, 8},
        {"Fx", 'B', 32, 1},
        {"fh", 'B', 15, 0},
        {"1A2BH", 'B', 6699, 0},
        {"12345H", 'B', 74565, 0},
        {"H", 'B', 0, 0},
        {"Z5", 'B', 32, 0},
        {"", 'B', 32, 0},
        {".", 'B', 0, 1},
        {"W12x4", 'W', 12, 0},
        {"B99999999999", 'B', INT32_MAX, 0},
        {"FFFFFFFFFFFFH", 'B', INT32_MAX, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.addr);
        RegisterAddress parsed;
        parsed.IsBitAddress = c.mask == 0; // what the last address left behind
        parsed.BitMask = 64;
        ParseAddress(c.addr, parsed);
        EXPECT_EQ(parsed.RegLetter, c.letter);
        EXPECT_EQ(parsed.RegAddress, c.address);
        EXPECT_EQ(parsed.IsBitAddress, c.mask != 0);
        EXPECT_EQ(parsed.BitMask, c.mask != 0 ? c.mask : 64); // the last bit's mask stays
    }
}

TEST(PointNames, AreTranslatedPerBoard)
{
    const std::tuple<const char*, std::int16_t, const char*> cases[] = {
        {"X31.4", 49, "B50.4"},   {"Y141", 49, "B67"},    {"x30", 49, "B49"},
        {"X151.9", 50, "B191.7"}, {"Y0", 50, "B160"},     {"X11", 50, "B163"},
        {"X12", 50, "X12"},       {"i151", 50, "B223"},   {"I161", 50, "I161"},
        {"X10", 58, "B51"},       {"Y1.3", 58, "B50.3"},  {"X21", 59, "B54"},
        {"X21", 66, "B54"},       {"Y21", 59, "Y21"},     {"X20", 60, "B53"},
        {"X21", 60, "X21"},       {"Y21", 65, "B54"},     {"X0", 61, "B49"},
        {"X10.1", 61, "B51.1"},   {"Y11", 61, "B52"},     {"B100.0", 49, "B100.0"},
        {"Y142", 49, "Y142"},     {"W1298", 68, "W1298"}, {"", 49, ""},
    };
    for (const auto& [addr, board, expected] : cases)
        EXPECT_EQ(EquateAdd(addr, board), expected) << addr << " on " << board;
}

TEST(PointNames, AreCheckedAgainstTheBoardsRange)
{
    const std::tuple<const char*, std::int16_t, bool> cases[] = {
        {"B31", 68, false},   {"B32", 49, true},    {"B255", 49, true},   {"B256", 49, false},
        {"B8275", 68, true},  {"B8276", 50, false}, {"B65535", 69, true}, {"B65536", 55, false},
        {"w33", 68, false},   {"W8274", 68, true},  {"W8276", 68, false}, {"D256", 51, false},
        {"W65534", 67, true}, {"F120", 49, true},   {"F121", 66, false},  {"F991", 68, true},
        {"F992", 62, false},  {"I151", 50, true},   {"I31", 51, false},   {"I21", 56, true},
        {"I20", 68, false},   {"x12", 49, false},   {"X151", 50, true},   {"Y1", 0, false},
        {"Y1", 68, false},    {"X21", 69, true},    {"X30", 62, false},   {"B100.9", 68, true},
        {"Q0", 68, true},     {"I150", 49, true},   {"Q1", 68, false},
    };
    for (const auto& [addr, board, expected] : cases)
        EXPECT_EQ(ValidAdd(addr, board), expected) << addr << " on " << board;
}

TEST(OctalDigits, AreConvertedOnePositionOnly)
{
    for (const auto& [number, octal] : {std::pair(15, 17), {63, 77}, {64, 80}, {26215, 32767}})
        EXPECT_EQ(Dec2Octal(static_cast<std::int16_t>(number)), octal);
    EXPECT_THROW(Dec2Octal(26216), std::overflow_error);
    for (const auto& [octal, number] : {std::pair(17, 15), {77, 63}, {80, 64}, {144, 116}})
        EXPECT_EQ(Octal2Dec(static_cast<std::int16_t>(octal)), number);
}
