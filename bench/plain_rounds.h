#pragma once

#include "bench/link_under_test.h"
#include "simulator/pty/pseudo_terminal.h"

#include <chrono>

namespace tambrix::bench {

/// For the program after a plain loop: on what came due while that kept the events waiting.
inline constexpr std::chrono::milliseconds kCatchingUp{50};

/// Rounds of the program's work on a device, each followed by the same bytes from a plain write,
/// poll and read loop: what that loop cannot reach either is the machine's.
class PlainRounds
{
public:
    /// `port` is the program's on the same `device`.
    PlainRounds(const QString& device, RecordingPort& port, int baud);

    /// From here on what the port sends counts.
    void begin();
    /// Sends the same bytes once more, at a place where no frame is half sent. Throws
    /// std::runtime_error when nothing was sent or the board does not answer.
    void end();

    /// Prints the share of the wire that both have used and the ratio of their times.
    void tell(const std::string& what) const;

private:
    Descriptor m_device;
    RecordingPort& m_port;
    double m_exchangeTime;         ///< of the wire, in seconds
    std::vector<double> m_program; ///< share of the wire
    std::vector<double> m_plain;
    std::vector<double> m_ratios;
};

} // namespace tambrix::bench
