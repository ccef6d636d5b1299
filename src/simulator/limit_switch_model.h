#pragma once

#include "simulator/board_memory.h"

#include <array>
#include <cstdint>
#include <map>

namespace tambrix {

/// The programmable limit switch of the board. Its scale factor, offset, position and speed are
/// the resolver's registers; its channels and configuration are reached by its own commands only.
struct LimitSwitchModel
{
    /// What was last programmed into a channel.
    struct Channel
    {
        bool train = false;  ///< a pulse train; otherwise an on/off setpoint pair
        bool used = false;   ///< false: cleared
        std::uint16_t a = 0; ///< ON setpoint, or start of the train
        std::uint16_t b = 0; ///< OFF setpoint, or OFF division * 256 + ON division
    };

    std::map<std::uint8_t, Channel> channels;
    std::array<std::uint8_t, 24> configuration{};
    /// How often the switch answers busy before it has stored what was programmed.
    int busyAnswers = 2;
};

} // namespace tambrix
