#pragma once

#include "link/clock.h"

#include <stdexcept>

namespace tambrix {

/// What a clock throws that has passed its limit.
struct HangDetected : std::runtime_error
{
    using runtime_error::runtime_error;
};

/// A clock that only moves when somebody waits on it, or a test pushes it.
class VirtualClock : public Clock
{
public:
    Duration now() const override { return m_now; }

    void pause(Duration span) override
    {
        if (span > Duration::zero())
            m_now += span;
        if (m_now > m_limit)
            throw HangDetected("the virtual clock has passed its limit");
    }

    /// Nothing may last longer than this; pause() throws then.
    void setLimit(Duration limit) { m_limit = limit; }

private:
    Duration m_now{};
    Duration m_limit = Duration::max();
};

} // namespace tambrix
