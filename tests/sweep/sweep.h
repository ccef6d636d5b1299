#pragma once

#include "tests/support/line_faults.h"
#include "tests/sweep/scenario.h"

#include <array>
#include <cstddef>

namespace tambrix {

/// How a disturbed session can end, the worst last.
enum class Ending {
    Right,         ///< all done, and so it says
    Reported,      ///< not all done, and so it says
    WrongRead,     ///< a wrong value was taken for a right one
    WronglyStored, ///< a register of the session holds something else than the session says
    Foreign,       ///< a register that is none of the session's has changed
    Stuck,         ///< the link does not work afterwards
    Hang,
    Crash
};
inline constexpr std::size_t kEndings = 8;

using EndingCounts = std::array<std::size_t, kEndings>;

/// What a board does with a frame whose other half does not come.
enum class HalfFrames { Dropped, Kept };

/// Runs a scenario with `fault` at every exchange, or from the `first` on at every `stride`-th, and
/// counts the endings.
EndingCounts sweepScenario(const Scenario& scenario, const NamedFault& fault, HalfFrames halves,
                           std::size_t first = 0, std::size_t stride = 1);

/// Whether an ending is a fault of the program: never may it hang, crash or be stuck; where
/// the board drops half frames no foreign register may change, and where no wrong byte came
/// nothing wrong may be believed.
bool isForbidden(Ending ending, const NamedFault& fault, HalfFrames halves);

} // namespace tambrix
