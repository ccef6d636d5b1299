#pragma once

#include <cstdint>
#include <string_view>

namespace tambrix {

/// Value of the leading decimal digits of `text`; the first other character ends the number and
/// no digits at all give 0. A number beyond 2,147,483,647 stays at that bound.
std::int32_t leadingDecimal(std::string_view text);

/// The same for hexadecimal digits of either case.
std::int32_t leadingHex(std::string_view text);

/// `letter` in upper case, in the C locale.
char upperCase(char letter);

/// Whether two texts are the same without regard to the case of the letters A to Z.
bool sameIgnoringCase(std::string_view left, std::string_view right);

} // namespace tambrix
