#pragma once

#include <chrono>

namespace tambrix {

/// A span of time or a point on a clock's own scale.
using Duration = std::chrono::nanoseconds;

/// The link's clock: monotonic, so that setting the PC's time of day never stretches a wait.
/// Tests put a virtual clock in its place, on which five seconds of silence cost no time.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Time since an arbitrary fixed start. Never goes backwards.
    virtual Duration now() const = 0;

    /// Returns after `span` has passed; returns at once when it is not positive.
    virtual void pause(Duration span) = 0;
};

} // namespace tambrix
