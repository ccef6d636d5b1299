#pragma once

#include "tests/support/line_faults.h"
#include "tests/sweep/scenario.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

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

/// A scenario as it goes on an undisturbed line: what is right.
struct CleanRun
{
    CleanRun(const Scenario& scenario, HalfFrames halves);

    Claim claim;
    std::size_t exchanges = 0;
    std::vector<std::uint8_t> before; ///< all that a session can change
    std::vector<std::uint8_t> after;
    std::vector<char> own; ///< not 0: a place in `before` that the session writes
};

/// Runs a scenario with `fault` at every `stride`-th exchange from `first` on; counts the endings.
EndingCounts sweepScenario(const Scenario& scenario, HalfFrames halves, const CleanRun& clean,
                           const NamedFault& fault, std::size_t first, std::size_t stride);

/// Whether an ending is a fault of the program: never may it hang, crash or be stuck; where
/// the board drops half frames no foreign register may change, and where no wrong byte came
/// nothing wrong may be believed.
bool isForbidden(Ending ending, const NamedFault& fault, HalfFrames halves);

} // namespace tambrix
