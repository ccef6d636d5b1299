#pragma once

namespace tambrix {

/// Has Qt run its own event loop where it would take the desktop's: of two system calls a turn
/// instead of five, and a turn stands before every register that is read. The desktop's own file
/// dialogs live in the other loop, so Qt's are shown. Call before there is a QApplication.
void useOwnEventLoop();

} // namespace tambrix
