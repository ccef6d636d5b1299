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
    void pause(Duration span) override { std::this_thread::sleep_for(span); }

private:
    ShortPauses m_shortPauses;
};

} // namespace tambrix
