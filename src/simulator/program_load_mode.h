#pragma once

#include "simulator/board_mode.h"

#include <cstddef>
#include <vector>

namespace tambrix {

/// The board's program memory. It is no part of the registers: reads and writes over the wire do
/// not reach it.
struct ProgramMemory
{
    BoardMemory bytes;
    std::size_t recordsTaken = 0; ///< records since the board was made, garbled ones included
    /// This record (counted as recordsTaken counts, from 0) arrives garbled: its sum is wrong, and
    /// nothing of it is stored. Empty: none.
    std::optional<std::size_t> garbledRecord;
};

/// Loads program records. Frame: length (1 to 254), address high, address low, data; the board is
/// silent up to the last byte and answers that with the low byte of the sum of the whole frame.
/// Leaving the mode ends program mode: the request in the registers is cleared.
class ProgramLoadMode : public BoardMode
{
public:
    static constexpr std::uint8_t kCommand = 0x03;

    /// Whether the registers hold the request without which the board does not load a program.
    static bool requested(const BoardMemory& memory);

    ProgramLoadMode(BoardMemory& memory, ProgramMemory& program);
    ~ProgramLoadMode() override;
    ProgramLoadMode(const ProgramLoadMode&) = delete;
    ProgramLoadMode& operator=(const ProgramLoadMode&) = delete;

    int number() const override { return 9; }
    bool atFrameStart() const override { return m_frame.empty(); }
    void restartFrame() override { m_frame.clear(); }
    std::optional<std::uint8_t> receive(std::uint8_t byte) override;

private:
    bool complete() const;
    std::uint8_t take();

    BoardMemory& m_memory;
    ProgramMemory& m_program;
    std::vector<std::uint8_t> m_frame;
};

} // namespace tambrix
