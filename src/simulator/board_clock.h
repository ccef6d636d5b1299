#pragma once

#include "simulator/board_memory.h"

namespace tambrix {

/// Moves the board's clock and calendar registers on by one second, from whatever they hold now.
/// A register that was set beyond its range rolls over at the next carry into it.
void tickBoardClock(BoardMemory& memory);

} // namespace tambrix
