#pragma once

#include "link/clock.h"

#include <cstdint>

namespace tambrix {

/// No byte: nothing was sent, or no answer came.
inline constexpr std::int16_t kNoByte = -1;
/// A byte of the passcode, which no trace keeps.
inline constexpr std::int16_t kSecretByte = -2;

/// One byte to the board and the board's one-byte answer.
struct LineExchange
{
    Duration sent{};            ///< when, on the clock of the link
    Duration took{};            ///< until the answer, or until it was given up
    std::int16_t out = kNoByte; ///< 0 to 255; `kNoByte`: the answer came unasked
    std::int16_t in = kNoByte;  ///< 0 to 255; `kNoByte`: there was none
};

} // namespace tambrix
