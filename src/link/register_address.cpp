#include "link/register_address.h"

#include "link/lenient_number.h"

namespace tambrix {

namespace {

constexpr std::int32_t kFlagArea = 32; // byte that holds F0 to F7

/// "1A2BH": the last two digits are the low byte, everything before them the high part.
std::int32_t hexByteAddress(std::string_view digits)
{
    const std::size_t lowStart = digits.size() > 2 ? digits.size() - 2 : 0;
    const std::int64_t high = leadingHex(digits.substr(0, lowStart));
    const std::int64_t address = high * 256 + leadingHex(digits.substr(lowStart));
    return address > INT32_MAX ? INT32_MAX : static_cast<std::int32_t>(address);
}

/// "B100.3" without its first and its last two characters.
std::string_view byteNumberOfPoint(std::string_view addr)
{
    return addr.size() > 3 ? addr.substr(1, addr.size() - 3) : std::string_view{};
}

void nameBit(RegisterAddress& fields, std::int32_t byteAddress, int bit)
{
    fields.RegLetter = 'B';
    fields.RegAddress = byteAddress;
    fields.BitMask = static_cast<std::int16_t>(1 << bit);
    fields.IsBitAddress = true;
}

void nameRegister(RegisterAddress& fields, char letter, std::int32_t byteAddress)
{
    fields.RegLetter = letter;
    fields.RegAddress = byteAddress;
}

void parseByLetter(std::string_view addr, RegisterAddress& fields)
{
    const char letter = addr.empty() ? '\0' : upperCase(addr.front());
    const std::int32_t number = addr.empty() ? 0 : leadingDecimal(addr.substr(1));
    switch (letter) {
    case 'B':
    case 'W':
    case 'D':
        nameRegister(fields, letter, number);
        break;
    case 'F':
        nameBit(fields, number / 8 + kFlagArea, number % 8);
        break;
    default: // kept: the controller's tools take an unknown letter for the flag area
        nameRegister(fields, 'B', kFlagArea);
    }
}

} // namespace

int registerWidth(char regLetter)
{
    switch (regLetter) {
    case 'B':
        return 1;
    case 'W':
        return 2;
    case 'D':
        return 4;
    default:
        return 0;
    }
}

bool isReachable(const RegisterAddress& address)
{
    constexpr std::int32_t kHighestByteAddress = 0xFFFF;
    return address.RegAddress <= kHighestByteAddress - (registerWidth(address.RegLetter) - 1);
}

void ParseAddress(std::string_view addr, RegisterAddress& fields)
{
    fields.IsBitAddress = false;
    if (!addr.empty() && upperCase(addr.back()) == 'H')
        nameRegister(fields, 'B', hexByteAddress(addr.substr(0, addr.size() - 1)));
    else if (addr.find('.') != std::string_view::npos)
        nameBit(fields, leadingDecimal(byteNumberOfPoint(addr)),
                leadingDecimal(addr.substr(addr.size() - 1)));
    else
        parseByLetter(addr, fields);
}

} // namespace tambrix
