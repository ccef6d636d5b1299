#pragma once

#include "commands/command.h"

namespace tambrix {

/// read: registers by address, in the order given.
Command readCommand();
/// write: registers by address; each is read back.
Command writeCommand();
/// watch: one JSON line a change, until it is interrupted.
Command watchCommand();
/// ports: the serial ports of this PC.
Command portsCommand();

} // namespace tambrix
