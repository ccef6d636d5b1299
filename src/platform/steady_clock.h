#pragma once

#include "link/clock.h"
#include "platform/short_pauses.h"

#include <thread>

namespace tambrix {

/// The PC's monotonic clock.
class SteadyClock : public Clock
{
public:
    Duration now() const override { return std::chrono::steady_clock::now().time_since_epoch(); }

    /// Windows may wake a thread up to a millisecond early.
    void pause(Duration span) override
    {
        const Duration end = now() + span;
        for (Duration left = span; left > Duration::zero(); left = end - now())
            std::this_thread::sleep_for(left);
    }

private:
    ShortPauses m_shortPauses;
};

} // namespace tambrix
