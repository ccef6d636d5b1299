#pragma once

#include <cstdint>
#include <string_view>

namespace tambrix {

/// Whether `address` names a register of the controller beyond doubt: a letter B, W, D or F and
/// digits, a bit of a byte, or a hexadecimal byte address, with all of its bytes at 0 to FFFFH.
/// The link itself reads addresses leniently, and takes what it does not understand for byte 32.
bool namesRegister(std::string_view address);

/// Whether that register can hold `value`.
bool takesValue(std::string_view address, std::int64_t value);

} // namespace tambrix
