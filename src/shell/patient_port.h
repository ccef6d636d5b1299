#pragma once

#include "link/forwarding_port.h"

#include <functional>
#include <utility>

namespace tambrix {

/// A serial port whose long waits do not look like a crash: after the first 0.1 s the wait cursor
/// shows and the window goes on painting, with the user's input kept out.
class PatientPort : public ForwardingPort
{
public:
    PatientPort(SerialPort& port, Clock& clock) : ForwardingPort(port), m_clock(clock) {}

    /// Calls `begins` whenever a wait for an answer begins; it must not use the port.
    void tellWaits(std::function<void()> begins) { m_waitBegins = std::move(begins); }

    bool waitForInput(Duration limit) override;

private:
    bool waitVisibly(Duration end);

    Clock& m_clock;
    std::function<void()> m_waitBegins = [] {};
};

} // namespace tambrix
