#pragma once

#include "simulator/sim_time.h"
#include "simulator/simulated_board.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace tambrix {

/// What goes wrong with one exchange (one byte of the PC and the board's answer to it).
struct LineFault
{
    enum class Kind {
        LoseRequest, ///< the board never gets the byte
        LoseReply,   ///< the board acts on the byte, its answer is lost
        ChangeReply, ///< the answer arrives with the bits of `mask` inverted
        DelayReply,  ///< the answer arrives later by `delay`
        DoubleReply, ///< the answer arrives twice, the second time later by `delay`
        Unplug       ///< the cable comes off before the byte, and stays off
    };

    Kind kind = Kind::LoseRequest;
    std::uint8_t mask = 0xFF;
    SimTime delay{};
};

/// One byte as an instrument clamped to the PC's end of the cable sees it.
struct WireByte
{
    enum class Direction { ToBoard, ToPc };

    Direction direction = Direction::ToBoard;
    std::uint8_t byte = 0;
    SimTime time{}; ///< to the board: its start bit leaves the PC; to the PC: it is complete
};

/// The RS-232 cable between the PC and a simulated board. Each direction carries one byte at a
/// time, ten bits each; bytes sent back to back queue up. The board hears a byte one byte time
/// after it started, and its answer is at the PC one byte time later.
class SimulatedLine
{
public:
    using Tap = std::function<void(const WireByte&)>;

    /// `board` must outlive the line. See setBaud().
    explicit SimulatedLine(SimulatedBoard& board, int baud = 9600);

    /// The board's speed in bits per second; 0: bytes take no time, and any PC speed fits.
    void setBaud(int baud) { m_baud = baud; }
    /// The PC's speed; 0: the same as the board's. When the speeds differ, neither end
    /// understands the other: there is silence.
    void setPcBaud(int baud) { m_pcBaud = baud; }
    /// The time one byte takes: 1.042 ms at 9600.
    SimTime byteTime() const;

    /// The PC sends a byte at `now`. Off the cable it vanishes.
    void send(std::uint8_t byte, SimTime now);

    /// Bytes that have arrived at the PC by `now` and were not taken yet.
    std::size_t available(SimTime now) const;
    /// Takes the oldest one. Only when available() is not 0.
    std::uint8_t take(SimTime now);
    /// Throws away all bytes that have arrived by `now`.
    void discard(SimTime now);
    /// When the oldest byte that was not taken arrives or has arrived; empty when none is coming.
    std::optional<SimTime> nextArrival() const;

    /// Pulls the cable: bytes on their way are lost.
    void unplug();
    /// Puts the cable back; a port that stayed open meanwhile works again.
    void plugIn() { m_plugged = true; }
    bool plugged() const { return m_plugged; }

    /// Plans a fault for an exchange, numbered from 0 as exchanges() counts.
    void setFault(std::size_t exchange, LineFault fault) { m_faults[exchange] = fault; }
    /// Forgets the plan and counts exchanges from 0 again.
    void clearFaults();
    /// Bytes that the PC has sent since the line was made or clearFaults() was called. Bytes sent
    /// while the line is unplugged do not count.
    std::size_t exchanges() const { return m_exchanges; }

    /// Reports every byte at the PC's end from now on; an empty function ends it. A byte to the
    /// PC is reported when it is decided, with the later time of its arrival.
    void setTap(Tap tap) { m_tap = std::move(tap); }

private:
    struct Arrival
    {
        std::uint8_t byte = 0;
        SimTime time{};
    };

    std::optional<LineFault> nextFault();
    bool speedsAgree() const;
    void reply(std::uint8_t byte, SimTime start, const std::optional<LineFault>& fault);
    void arrive(std::uint8_t byte, SimTime start);
    void deliver(std::uint8_t byte, SimTime time);
    void report(WireByte::Direction direction, std::uint8_t byte, SimTime time) const;

    SimulatedBoard& m_board;
    int m_baud;
    int m_pcBaud = 0;
    bool m_plugged = true;
    SimTime m_toBoardFree = SimTime::min();
    SimTime m_toPcFree = SimTime::min();
    std::deque<Arrival> m_arrivals;
    std::map<std::size_t, LineFault> m_faults;
    std::size_t m_exchanges = 0;
    Tap m_tap;
};

} // namespace tambrix
