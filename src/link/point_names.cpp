#include "link/point_names.h"

#include "link/lenient_number.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <stdexcept>

namespace tambrix {

namespace {

struct PointByte
{
    std::int32_t number; ///< as the point is named
    std::int32_t byte;   ///< where the board keeps it
};

struct PointTable
{
    std::int16_t board;
    char letter;
    std::span<const PointByte> points;
};

constexpr std::array kR110Inputs = {PointByte{30, 49}, PointByte{31, 50}, PointByte{50, 51},
                                    PointByte{51, 52}, PointByte{60, 53}, PointByte{61, 54},
                                    PointByte{70, 55}, PointByte{71, 56}, PointByte{80, 57}};
constexpr std::array kR110Outputs = {PointByte{81, 58},  PointByte{90, 59},  PointByte{100, 60},
                                     PointByte{110, 61}, PointByte{111, 62}, PointByte{120, 63},
                                     PointByte{121, 64}, PointByte{130, 65}, PointByte{140, 66},
                                     PointByte{141, 67}};
constexpr std::array kInputs10To21 = {PointByte{10, 51}, PointByte{11, 52}, PointByte{20, 53},
                                      PointByte{21, 54}};
constexpr std::array kOutputs0And1And21 = {PointByte{0, 49}, PointByte{1, 50}, PointByte{21, 54}};
// kept: the Q720 has its letters the other way round from the other Q boards.
constexpr std::array kQ720Inputs = {PointByte{0, 49}, PointByte{1, 50}, PointByte{10, 51}};
constexpr std::array kQ720Outputs = {PointByte{11, 52}};

constexpr std::span<const PointByte> kInputs10To11{kInputs10To21.data(), 2};
constexpr std::span<const PointByte> kInputs10To20{kInputs10To21.data(), 3};
constexpr std::span<const PointByte> kOutputs0And1{kOutputs0And1And21.data(), 2};

constexpr std::array kPointTables = {
    PointTable{49, 'X', kR110Inputs},   PointTable{49, 'Y', kR110Outputs},
    PointTable{58, 'X', kInputs10To11}, PointTable{58, 'Y', kOutputs0And1},
    PointTable{59, 'X', kInputs10To21}, PointTable{59, 'Y', kOutputs0And1},
    PointTable{66, 'X', kInputs10To21}, PointTable{66, 'Y', kOutputs0And1},
    PointTable{60, 'X', kInputs10To20}, PointTable{60, 'Y', kOutputs0And1And21},
    PointTable{65, 'X', kInputs10To20}, PointTable{65, 'Y', kOutputs0And1And21},
    PointTable{61, 'X', kQ720Inputs},   PointTable{61, 'Y', kQ720Outputs},
};

/// The R120 numbers its points two to a group of ten: 0, 1, 10, 11 ... 150, 151.
std::optional<std::int32_t> r120Byte(char letter, std::int32_t number)
{
    const bool numbered = number <= 151 && number % 10 <= 1;
    const bool inputOrOutput = letter == 'X' || letter == 'Y';
    if (!numbered || (!inputOrOutput && letter != 'I'))
        return std::nullopt;
    const std::int32_t firstByte = inputOrOutput ? 160 : 192;
    return firstByte + 2 * (number / 10) + number % 10;
}

std::optional<std::int32_t> pointByte(std::int16_t board, char letter, std::int32_t number)
{
    if (board == 50)
        return r120Byte(letter, number);
    const auto table = std::ranges::find_if(kPointTables, [&](const PointTable& entry) {
        return entry.board == board && entry.letter == letter;
    });
    if (table == kPointTables.end())
        return std::nullopt;
    const auto point = std::ranges::find(table->points, number, &PointByte::number);
    if (point == table->points.end())
        return std::nullopt;
    return point->byte;
}

std::string_view withoutPoint(std::string_view text)
{
    return text.substr(0, text.size() > 2 ? text.size() - 2 : 0);
}

bool hasPoint(std::string_view text)
{
    return text.find('.') != std::string_view::npos;
}

bool isOneOf(std::int16_t code, std::span<const std::int16_t> codes)
{
    return std::ranges::find(codes, code) != codes.end();
}

constexpr std::array<std::int16_t, 12> kSmallBoards = {49, 51, 52, 53, 54, 56,
                                                       58, 59, 60, 61, 65, 66};
constexpr std::array<std::int16_t, 2> kLargeBoards = {50, 68};
constexpr std::array<std::int16_t, 5> kShortInternalBoards = {51, 52, 53, 54, 56};

struct AddressRange
{
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    enum class Rule { None, Even, PointDigit, Invalid } rule = Rule::None;
};

std::int32_t highestByte(std::int16_t board)
{
    if (isOneOf(board, kSmallBoards))
        return 255;
    return isOneOf(board, kLargeBoards) ? 8275 : 65535;
}

AddressRange internalRange(std::int16_t board)
{
    if (board == 49 || board == 50)
        return {0, 151, AddressRange::Rule::PointDigit};
    if (isOneOf(board, kShortInternalBoards))
        return {0, 21, AddressRange::Rule::PointDigit};
    return {0, 0, AddressRange::Rule::Invalid};
}

AddressRange inputOutputRange(std::int16_t board)
{
    if (board == 0 || board == 68)
        return {0, 0, AddressRange::Rule::Invalid};
    return {0, board == 49 || board == 50 ? 151 : 21, AddressRange::Rule::PointDigit};
}

AddressRange rangeOf(char letter, std::int16_t board)
{
    switch (letter) {
    case 'B':
        return {32, highestByte(board), AddressRange::Rule::None};
    case 'D':
    case 'W':
        return {32, highestByte(board) - 1, AddressRange::Rule::Even};
    case 'F':
        return {0, isOneOf(board, kSmallBoards) ? 120 : 991, AddressRange::Rule::None};
    case 'I':
        return internalRange(board);
    case 'X':
    case 'Y':
        return inputOutputRange(board);
    default:
        return {};
    }
}

bool passesRule(std::int32_t number, AddressRange::Rule rule)
{
    switch (rule) {
    case AddressRange::Rule::None:
        return true;
    case AddressRange::Rule::Even:
        return number % 2 == 0;
    case AddressRange::Rule::PointDigit:
        return number % 10 <= 1;
    case AddressRange::Rule::Invalid:
        break;
    }
    return false;
}

std::int16_t asInt16(std::int32_t value)
{
    if (value < INT16_MIN || value > INT16_MAX)
        throw std::overflow_error("octal conversion exceeds 16 bits");
    return static_cast<std::int16_t>(value);
}

} // namespace

std::string EquateAdd(std::string_view addr, std::int16_t TargetBoardIndex)
{
    if (addr.empty())
        return {};
    const std::string_view rest = addr.substr(1);
    const bool point = hasPoint(rest);
    const std::int32_t number = leadingDecimal(point ? withoutPoint(rest) : rest);
    const auto byte = pointByte(TargetBoardIndex, upperCase(addr.front()), number);
    if (!byte)
        return std::string(addr);
    const std::string byteName = "B" + std::to_string(*byte);
    if (!point)
        return byteName;
    return byteName + "." +
           std::to_string(std::min(leadingDecimal(addr.substr(addr.size() - 1)), 7));
}

bool ValidAdd(std::string_view addr, std::int16_t TargetBoardIndex)
{
    if (addr.empty())
        return true; // no letter: only number 0 is valid, and no digits read as 0
    const std::string_view rest = addr.substr(1);
    const std::int32_t number = leadingDecimal(hasPoint(addr) ? withoutPoint(rest) : rest);
    const AddressRange range = rangeOf(upperCase(addr.front()), TargetBoardIndex);
    return passesRule(number, range.rule) && number >= range.minimum && number <= range.maximum;
}

std::int16_t Dec2Octal(std::int16_t DecNum)
{
    // kept: one octal digit position only; the quotient is not converted again.
    return asInt16((DecNum / 8) * 10 + (DecNum & 7));
}

std::int16_t Octal2Dec(std::int16_t OctNum)
{
    return asInt16((OctNum / 10) * 8 + OctNum % 10);
}

} // namespace tambrix
