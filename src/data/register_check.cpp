#include "data/register_check.h"

#include "link/lenient_number.h"
#include "link/register_address.h"
#include "link/register_value.h"

#include <algorithm>

namespace tambrix {

namespace {

constexpr std::int64_t kLastByte = 0xFFFF;

RegisterAddress parsed(std::string_view address)
{
    RegisterAddress fields;
    ParseAddress(address, fields);
    return fields;
}

/// One to `most` digits.
template <typename IsDigit> bool areDigits(std::string_view text, std::size_t most, IsDigit isDigit)
{
    return !text.empty() && text.size() <= most && std::ranges::all_of(text, isDigit);
}

bool isDecimal(char c)
{
    return c >= '0' && c <= '9';
}

bool isHex(char c)
{
    return isDecimal(c) || (upperCase(c) >= 'A' && upperCase(c) <= 'F');
}

/// "W612": one of `letters` and a number.
bool isNumbered(std::string_view address, std::string_view letters)
{
    return !address.empty() && letters.find(upperCase(address.front())) != std::string_view::npos &&
           areDigits(address.substr(1), 5, isDecimal);
}

/// "B100.3"
bool isPoint(std::string_view address)
{
    const std::size_t dot = address.find('.');
    return dot != std::string_view::npos && dot + 2 == address.size() && address.back() >= '0' &&
           address.back() <= '7' && isNumbered(address.substr(0, dot), "BWD");
}

/// "1A2BH"
bool isByteInHex(std::string_view address)
{
    return !address.empty() && upperCase(address.back()) == 'H' &&
           areDigits(address.substr(0, address.size() - 1), 4, isHex);
}

} // namespace

bool namesRegister(std::string_view address)
{
    if (!isByteInHex(address) && !isPoint(address) && !isNumbered(address, "BWDF"))
        return false;
    const RegisterAddress fields = parsed(address);
    return fields.RegAddress + registerWidth(fields.RegLetter) - 1 <= kLastByte;
}

bool takesValue(std::string_view address, std::int64_t value)
{
    const RegisterAddress fields = parsed(address);
    return value >= 0 && value <= (fields.IsBitAddress ? 1 : highestValue(fields.RegLetter));
}

} // namespace tambrix
