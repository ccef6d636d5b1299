#pragma once

#include "simulator/simulated_line.h"

#include <cstdint>
#include <ostream>
#include <vector>

namespace tambrix {

/// One byte written into the controller, as its three bytes on the wire say it.
struct WireWrite
{
    int address = 0; ///< address high and low
    int data = 0;

    bool operator==(const WireWrite&) const = default;
};

/// Listens on the cable: every byte of the PC, and the writes that they make up.
class WireWrites
{
public:
    explicit WireWrites(SimulatedLine& line) : m_line(line)
    {
        line.setTap([this](const WireByte& wire) {
            if (wire.direction == WireByte::Direction::ToBoard)
                take(wire.byte);
        });
    }

    std::vector<WireWrite> writes;
    std::vector<std::uint8_t> bytes;

    void clear()
    {
        writes.clear();
        bytes.clear();
    }

    /// Loses the answers to the next `count` reads of bytes from `page` x 256 on.
    void loseReads(int page, int count)
    {
        m_lostPage = page;
        m_toLose = count;
    }

    /// The bytes written to one address, in order.
    std::vector<int> to(int address) const
    {
        std::vector<int> data;
        for (const WireWrite& write : writes) {
            if (write.address == address)
                data.push_back(write.data);
        }
        return data;
    }

private:
    void take(std::uint8_t byte)
    {
        bytes.push_back(byte);
        if (m_frame.empty() && byte == 0xFF) {
            m_mode = kAwaitsMode;
        } else if (m_mode == kAwaitsMode) {
            m_mode = byte;
        } else {
            m_frame.push_back(byte);
            disturb();
            finishFrame();
        }
    }

    void disturb()
    {
        if (m_toLose == 0 || m_mode == kWriteMode || m_frame.size() != 1 ||
            m_frame[0] != m_lostPage)
            return;
        --m_toLose;
        m_line.setFault(m_line.exchanges(), {.kind = LineFault::Kind::LoseReply});
    }

    void finishFrame()
    {
        if (m_frame.size() < (m_mode == kWriteMode ? 3U : 2U))
            return;
        if (m_mode == kWriteMode)
            writes.push_back({m_frame[0] * 256 + m_frame[1], m_frame[2]});
        m_frame.clear();
    }

    static constexpr int kAwaitsMode = -1;
    static constexpr int kWriteMode = 2;

    SimulatedLine& m_line;
    int m_lostPage = 0;
    int m_toLose = 0;
    int m_mode = 0;
    std::vector<std::uint8_t> m_frame;
};

inline void PrintTo(const WireWrite& write, std::ostream* out)
{
    *out << write.address << " <- " << write.data;
}

} // namespace tambrix
