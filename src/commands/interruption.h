#pragma once

namespace tambrix {

/// From now on Ctrl-C, SIGTERM and a closed console do not end the program at once: a command
/// stops between two values and lets the board leave its mode. A second one ends it at once.
void catchInterruptions();

/// Whether one has come.
bool interrupted();

/// Throws Failure with exit code 6 when one has come; `done` says what has been done so far.
void stopIfInterrupted(const char* done = "");

} // namespace tambrix
