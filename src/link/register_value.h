#pragma once

#include "link/register_address.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tambrix {

/// The bytes of one register value, lowest address first; a value uses 1, 2 or 4 of them.
using ValueBytes = std::array<std::uint8_t, 4>;

/// The number that `bytes` form in the register or bit that `address` names. A D register is two
/// words, each low byte first: high word x 10000 + low word.
std::int64_t composeValue(const RegisterAddress& address, const ValueBytes& bytes);

/// The bytes that hold `number` in a register of kind `regLetter`; `number` is within its range.
ValueBytes splitValue(char regLetter, std::int64_t number);

/// Highest number a register of kind `regLetter` holds: B 255, W 65535, D 655,359,999.
std::int64_t highestValue(char regLetter);

/// The number that an entry text stands for. Blanks, "%", ",", "." and the degree sign are
/// dropped, so that 12.5 reads as 125: values carry their decimal places in the integer.
/// Nothing at all reads as 0; any other character, a minus sign included, gives no number.
std::optional<std::int64_t> entryNumber(std::string_view text);

/// Why the register or bit that `address` names cannot take this entry text, as the "ENTRY ALERT"
/// box says it; empty when it can.
std::optional<std::string> entryRefusal(const RegisterAddress& address, std::string_view text);

} // namespace tambrix
