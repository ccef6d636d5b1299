#pragma once

#include <cstdint>
#include <string_view>

namespace tambrix {

/// A parsed register address string: which bytes of the board's memory it names.
struct RegisterAddress
{
    char RegLetter = 'B';        ///< kind: 'B' 1 byte, 'W' 2 bytes, 'D' 4 bytes
    std::int32_t RegAddress = 0; ///< byte address of the first (lowest) byte
    std::int16_t BitMask = 0;    ///< 2 to the power of the bit; means nothing without IsBitAddress
    bool IsBitAddress = false;   ///< one bit of the byte is named; the value is 0 or 1
};

/// Bytes that a value of kind `regLetter` occupies: 1, 2 or 4; 0 for an unknown letter.
int registerWidth(char regLetter);

/// Whether the wire, which names 64 KiB, can name every byte of the register.
bool isReachable(const RegisterAddress& address);

/// Reads an address string such as "B100.3", "W1298", "D940", "F123" or "A800H" into `fields`.
/// Never fails: what it does not understand names byte 32, the first byte of the flag area.
/// `BitMask` is left as it was when `addr` names no bit.
void ParseAddress(std::string_view addr, RegisterAddress& fields);

} // namespace tambrix
