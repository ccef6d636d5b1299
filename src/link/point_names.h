#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tambrix {

/// Translates an input, output or internal point name of a smaller board ("X31.4" on an R110)
/// into that board's byte-bit address ("B50.4"). `TargetBoardIndex` is the board type code.
/// Any name that the board does not have comes back unchanged.
std::string EquateAdd(std::string_view addr, std::int16_t TargetBoardIndex);

/// Whether `addr` lies in the range of the board with type code `TargetBoardIndex`.
bool ValidAdd(std::string_view addr, std::int16_t TargetBoardIndex);

/// Converts one octal digit position: 15 -> 17, 63 -> 77, 100 -> 124 (the quotient is not
/// converted again). Throws std::overflow_error where a 16-bit result cannot hold the value.
std::int16_t Dec2Octal(std::int16_t DecNum);

/// The reverse step: 17 -> 15, 77 -> 63, 144 -> 116.
std::int16_t Octal2Dec(std::int16_t OctNum);

} // namespace tambrix
