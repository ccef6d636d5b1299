#pragma once

#include "link/clock.h"

namespace tambrix {

/// A clock that only moves when somebody waits on it, or a test pushes it.
class VirtualClock : public Clock
{
public:
    Duration now() const override { return m_now; }

    void pause(Duration span) override
    {
        if (span > Duration::zero())
            m_now += span;
    }

private:
    Duration m_now{};
};

} // namespace tambrix
