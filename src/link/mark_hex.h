#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tambrix {

/// The controller writes a hexadecimal digit of 10 to 15 as the character of code 48 + value:
/// ':' ';' '<' '=' '>' '?'. This is its text in ordinary digits: every ':' becomes "A", and so on
/// to '?', which becomes "F", a leading record mark included. Anything else stays.
std::string MarkHex2HEX(std::string_view text);

/// The reverse: every upper-case "A" to "F" becomes ':' to '?'. Anything else stays.
std::string HEX2MarkHEX(std::string_view text);

/// Value (0 to 15) of one hexadecimal digit in any form: 0 to 9, A to F, a to f, ':' to '?'.
/// Empty for any other character.
std::optional<int> hexDigit(char digit);

/// The byte that two digits at `position` of `text` form, high digit first. Empty when they are
/// not there or one of them is no digit.
std::optional<std::uint8_t> hexPair(std::string_view text, std::size_t position);

} // namespace tambrix
