#pragma once

#include "simulator/board_memory.h"
#include "simulator/board_mode.h"
#include "simulator/limit_switch_model.h"
#include "simulator/press_model.h"
#include "simulator/program_load_mode.h"
#include "simulator/sim_time.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace tambrix {

/// A Q900 target board with a press behind it, as its programming port shows it.
///
/// On the wire every byte that the board expects is answered by one byte. 0xFF is attention: it
/// is answered 0x55 and leaves any mode. The byte right after it is a mode command: 0x01 (read)
/// and 0x02 (write) are answered 0x55. In read mode a frame is address high (echoed) and address
/// low (answered with the data byte); in write mode it is address high, address low and data, all
/// echoed. A byte that nothing expects gets no answer. Program records and the limit switch have
/// modes of their own: see ProgramLoadMode and makeLimitSwitchMode().
///
/// Inside a frame 0xFF is a byte like any other. A frame whose next byte is late is dropped, the
/// mode stays, and 0xFF is attention again. Registers from 0xFF00 up cannot be reached.
class SimulatedBoard
{
public:
    /// The longest silence inside a frame.
    static constexpr SimTime kFrameGap = std::chrono::milliseconds(500);

    /// A board that has just been switched on at `start`, on the time scale of later calls.
    explicit SimulatedBoard(SimTime start = SimTime::zero());
    SimulatedBoard(const SimulatedBoard&) = delete;
    SimulatedBoard& operator=(const SimulatedBoard&) = delete;

    /// Takes the byte that has arrived complete at `now`; returns the one answer, or silence.
    std::optional<std::uint8_t> receive(std::uint8_t byte, SimTime now);

    /// Lets the press run until `now`. Time that is already past changes nothing.
    void advanceTo(SimTime now);

    PressModel& press() { return m_press; }

    std::uint8_t peek(std::uint16_t address) const { return m_memory.byte(address); }
    /// Stores a byte as a write over the wire does; request bits act at once.
    void poke(std::uint16_t address, std::uint8_t value);
    std::uint16_t peekWord(std::uint16_t address) const { return m_memory.word(address); }
    void pokeWord(std::uint16_t address, std::uint16_t value);
    /// A shift counter's value, 0 to 655,359,999.
    std::uint32_t peekCounter(std::uint16_t address) const { return m_memory.counter(address); }
    /// The whole memory, 65536 bytes.
    std::span<const std::uint8_t> memory() const { return m_memory.bytes(); }

    /// The program memory, and the limit switch behind the registers.
    ProgramMemory& program() { return m_program; }
    LimitSwitchModel& limitSwitch() { return m_limitSwitch; }

    /// The mode the port is in: 0 none, 1 read, 2 write; see BoardMode::number().
    int mode() const { return m_mode ? m_mode->number() : 0; }

    /// The longest silence inside a frame before this board drops it; SimTime::max(): there are
    /// boards that keep a half frame for ever.
    void setFrameGap(SimTime gap) { m_frameGap = gap; }

    /// A board without power hears nothing, and wakes up in no mode. Its memory is kept.
    void setPowered(bool on);

private:
    std::optional<std::uint8_t> attention();
    std::optional<std::uint8_t> enterMode(std::uint8_t command);
    std::optional<std::uint8_t> answer(std::uint8_t byte);

    BoardMemory m_memory;
    PressModel m_press;
    ProgramMemory m_program;
    LimitSwitchModel m_limitSwitch;
    std::unique_ptr<BoardMode> m_mode;
    SimTime m_frameGap = kFrameGap;
    SimTime m_lastByte{};
    bool m_awaitsCommand = false;
    bool m_powered = true;
};

} // namespace tambrix
