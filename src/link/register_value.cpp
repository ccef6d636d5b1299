#include "link/register_value.h"

#include "link/lenient_number.h"

namespace tambrix {

namespace {

// kept: a D register counts in ten-thousands, its low word holds value Mod 10000.
constexpr std::int64_t kWordSplit = 10000;

std::int64_t word(std::uint8_t low, std::uint8_t high)
{
    return high * 256 + low;
}

std::uint8_t lowByte(std::int64_t number)
{
    return static_cast<std::uint8_t>(number % 256);
}

std::uint8_t highByte(std::int64_t number)
{
    return static_cast<std::uint8_t>(number / 256);
}

std::string rangeText(char regLetter)
{
    switch (regLetter) {
    case 'W':
        return "Entry out of Range (0-65,535).";
    case 'D':
        return "Entry out of Range (0-655,359,999).";
    default:
        return "Entry out of Range (0-255).";
    }
}

} // namespace

std::int64_t composeValue(const RegisterAddress& address, const ValueBytes& bytes)
{
    if (address.IsBitAddress)
        return (bytes[0] & address.BitMask) != 0 ? 1 : 0;
    switch (address.RegLetter) {
    case 'W':
        return word(bytes[0], bytes[1]);
    case 'D':
        return word(bytes[2], bytes[3]) * kWordSplit + word(bytes[0], bytes[1]);
    default:
        return bytes[0];
    }
}

ValueBytes splitValue(char regLetter, std::int64_t number)
{
    const std::int64_t low = regLetter == 'D' ? number % kWordSplit : number;
    const std::int64_t high = regLetter == 'D' ? number / kWordSplit : 0;
    return {lowByte(low), highByte(low), lowByte(high), highByte(high)};
}

std::int64_t highestValue(char regLetter)
{
    switch (regLetter) {
    case 'W':
        return 65535;
    case 'D':
        return 65535 * kWordSplit + 9999;
    default:
        return 255;
    }
}

std::optional<std::int64_t> entryNumber(std::string_view text)
{
    // kept: the point is dropped, too; values carry their decimal places in the integer. The
    // degree sign is 0xB0, alone or, in UTF-8, after 0xC2.
    constexpr std::string_view kDropped = " %,.\xB0\xC2";
    std::string digits;
    for (const char c : text) {
        if (c >= '0' && c <= '9')
            digits += c;
        else if (kDropped.find(c) == std::string_view::npos)
            return std::nullopt;
    }
    return leadingDecimal(digits); // beyond any register where it is too long for a number
}

std::optional<std::string> entryRefusal(const RegisterAddress& address, std::string_view text)
{
    const auto number = entryNumber(text);
    if (!number)
        return "Only Numerical Data Allowed.";
    if (address.IsBitAddress && *number > 1)
        return "Enter 0 or 1 Only.";
    // "B100.8" and "B100.9" stand for bits that no byte holds.
    const std::int64_t stored = address.IsBitAddress ? *number * address.BitMask : *number;
    if (stored > highestValue(address.RegLetter))
        return rangeText(address.RegLetter);
    return std::nullopt;
}

} // namespace tambrix
