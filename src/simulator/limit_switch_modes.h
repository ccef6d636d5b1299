#pragma once

#include "simulator/board_mode.h"

namespace tambrix {

/// The limit-switch mode that a command byte asks for; empty for any other command.
///
/// Parameter (24 scale factor, 40 offset, 72 position, 88 rpm): each 0x55 is answered with the
/// next byte of the word, low byte first. Recall (9): a channel number (0x55), then each 0x55 is
/// answered with state (1 programmed, 0 clear), position low, position high. Upload (12): each
/// 0x55 is answered with the next of the 24 configuration bytes. Programming (27 setpoints, 43
/// pulse train, 42 offset, 26 scale factor, 59 + 16 k configuration block k): data bytes, each
/// answered 0x55; then 0x38 (0x55) and 0x55 ask for the state: 0x55 busy, 0 stored.
std::unique_ptr<BoardMode> makeLimitSwitchMode(std::uint8_t command, const BoardParts& board);

} // namespace tambrix
