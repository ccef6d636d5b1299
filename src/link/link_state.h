#pragma once

#include <cstdint>

namespace tambrix {

/// The link's public variables. Callers read them, and may set them, instead of return codes.
struct LinkFlags
{
    /// Set by the user interface to ask for on-line work. The link sets it when `OpenRSComm` got
    /// an answer, and clears it on close, on an open error and on a cancelled mode request.
    bool OnlineMode = false;
    /// An exchange failed for good. While set, every exchange fails at once without touching the
    /// port; `OpenRSComm` clears it.
    bool CommError = false;
    /// The last exchange ran out of time at least once.
    bool CommErrorAlert = false;
    /// Type code of the connected board, kept here for the screens; the link does not use it.
    std::int16_t TargetboardType = 0;
};

/// Modes that the board can be put into. The numbers are the link's own, not the wire's.
enum class LinkMode : std::int16_t {
    None = 0,
    Read = 1,
    Write = 2,
    SwitchChannel = 3,
    SwitchParameter = 4,
    SwitchValue = 5,
    SwitchRecall = 6,
    SwitchBlock = 7,
    SwitchUpload = 8,
    ProgramLoad = 9,
};

} // namespace tambrix
