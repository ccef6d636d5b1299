#pragma once

#include "simulator/board_memory.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tambrix {

struct LimitSwitchModel;
struct ProgramMemory;

/// What the modes of a board work on.
struct BoardParts
{
    BoardMemory& memory;
    ProgramMemory& program;
    LimitSwitchModel& limitSwitch;
};

/// One mode of the board's serial port: what it makes of the bytes that follow the mode command.
/// A mode works in frames; between two frames 0xFF is attention, inside a frame it is data.
class BoardMode
{
public:
    virtual ~BoardMode() = default;

    /// The mode's number: 1 read, 2 write, 3 to 8 limit switch, 9 program load.
    virtual int number() const = 0;

    virtual bool atFrameStart() const = 0;

    /// Forgets a half frame; the next byte starts a new one.
    virtual void restartFrame() = 0;

    /// Takes one byte and returns the board's answer, or nothing where the mode stays silent.
    virtual std::optional<std::uint8_t> receive(std::uint8_t byte) = 0;
};

/// The mode that a command byte asks for: 0x01 read, 0x02 write, 0x03 program load (only when
/// the registers hold the request for it), or one of the limit switch's. Empty for a command that
/// the board does not know, which it leaves unanswered.
std::unique_ptr<BoardMode> makeBoardMode(std::uint8_t command, const BoardParts& board);

} // namespace tambrix
