#pragma once

#include <chrono>

namespace tambrix {

/// A point on the simulation's time scale, or a span of it. The caller owns the scale: a virtual
/// clock in tests, a monotonic clock behind a port. Only differences matter.
using SimTime = std::chrono::nanoseconds;

} // namespace tambrix
