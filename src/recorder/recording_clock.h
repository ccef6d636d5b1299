#pragma once

#include "link/clock.h"
#include "recorder/utc_time.h"

#include <functional>

namespace tambrix {

/// The time of day that records are dated with. A small correction of the PC's clock makes it
/// stand for a moment, so that no span becomes negative; a large one is told, and followed.
class RecordingClock
{
public:
    /// `wall` is the PC's time of day; empty: the system's.
    RecordingClock(const Clock& steady, std::function<UtcMs()> wall);

    struct Reading
    {
        UtcMs now = 0;
        bool jumped = false; ///< the PC's clock was set: what was before is another time
    };
    Reading read();

private:
    const Clock& m_steady;
    std::function<UtcMs()> m_wall;
    UtcMs m_last = 0;
    Duration m_lastSteady{};
};

} // namespace tambrix
