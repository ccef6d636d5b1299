#pragma once

#include "simulator/board_memory.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tambrix {

/// One mode of the board's serial port: what it makes of the bytes that follow the mode command.
/// A mode works in frames; between two frames 0xFF is attention, inside a frame it is data.
class BoardMode
{
public:
    virtual ~BoardMode() = default;

    /// The mode's number: 1 read, 2 write.
    virtual int number() const = 0;

    virtual bool atFrameStart() const = 0;

    /// Forgets a half frame; the next byte starts a new one.
    virtual void restartFrame() = 0;

    /// Takes one byte and returns the board's answer, or nothing where the mode stays silent.
    virtual std::optional<std::uint8_t> receive(std::uint8_t byte) = 0;
};

/// The mode that a command byte asks for, working on `memory`: 0x01 read, 0x02 write. Empty for a
/// command that the board does not know, which it leaves unanswered.
std::unique_ptr<BoardMode> makeBoardMode(std::uint8_t command, BoardMemory& memory);

} // namespace tambrix
