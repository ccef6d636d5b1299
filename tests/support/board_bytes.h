#pragma once

#include "simulator/memory_map.h"
#include "simulator/simulated_board.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tambrix {

/// A stopped board's memory, with zeros where it goes on by itself: clock, calendar and the
/// analog inputs' noise.
inline std::vector<std::uint8_t> bytesAtRest(const SimulatedBoard& board)
{
    std::vector<std::uint8_t> bytes(board.memory().begin(), board.memory().end());
    const auto blank = [&](std::size_t first, std::size_t last) {
        std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(first),
                  bytes.begin() + static_cast<std::ptrdiff_t>(last) + 1, std::uint8_t{0});
    };
    blank(memory_map::kAnalogInput0, memory_map::kAnalogInput1 + 1U);
    blank(memory_map::kClockSecond, memory_map::kCalendarYear);
    return bytes;
}

} // namespace tambrix
