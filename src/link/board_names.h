#pragma once

#include <cstdint>
#include <string>

namespace tambrix {

/// Model name for a board type code (49 to 69), for example "Q900(PLC)" for 68. An unknown code
/// gives the character with that code and " Is Not Defined.".
std::string TargetboardName(std::int16_t BoardType);

/// One-character index under which the board's program library files are kept; empty for boards
/// without a program library.
std::string LCFBoardIndex(std::int16_t BoardType);

} // namespace tambrix
