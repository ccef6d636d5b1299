#pragma once

namespace tambrix {

/// How a command ended; the program's exit code. Scripts rely on these numbers.
enum class ExitCode {
    Done = 0,            ///< done, or both sides are the same
    Differs = 1,         ///< compared, and they differ
    Usage = 2,           ///< a wrong command line, or a value that was refused
    NoCommunication = 3, ///< the controller cannot be reached, or was lost
    NotVerified = 4,     ///< a value does not stand on the controller as it was written
    File = 5,            ///< a file cannot be read or written, or the reader of the output is gone
    Interrupted = 6,     ///< Ctrl-C, SIGTERM or the closed console
    Refused = 7          ///< refused for safety; an option of the command overrides it
};

} // namespace tambrix
