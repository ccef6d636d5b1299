#pragma once

#include "commands/command.h"

namespace tambrix {

/// faults: the fault and network error codes with their texts and what to do about them.
Command faultsCommand();
/// identify: name, revision and checksum of the program in the board, network address, firmware.
Command identifyCommand();
/// clock: the board's clock and calendar; --set puts this PC's time there.
Command clockCommand();
/// program: loads a controller program into the board.
Command programCommand();

} // namespace tambrix
