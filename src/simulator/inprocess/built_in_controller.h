#pragma once

#include "simulator/inprocess/simulated_serial_port.h"
#include "simulator/simulated_board.h"
#include "simulator/simulated_line.h"

namespace tambrix {

/// The simulated controller inside the program, at the far end of a line paced like a real one.
/// It answers at whatever speed the program's port is set to.
class BuiltInController
{
public:
    explicit BuiltInController(Clock& clock);

    SerialPort& port() { return m_port; }
    SimulatedBoard& board() { return m_board; }
    SimulatedLine& line() { return m_line; }

private:
    class Port : public SimulatedSerialPort
    {
    public:
        Port(SimulatedLine& line, Clock& clock) : SimulatedSerialPort(line, clock), m_line(line) {}
        std::optional<PortFault> configure(int portNumber, std::string_view settings) override;

    private:
        SimulatedLine& m_line;
    };

    SimulatedBoard m_board;
    SimulatedLine m_line;
    Port m_port;
};

} // namespace tambrix
