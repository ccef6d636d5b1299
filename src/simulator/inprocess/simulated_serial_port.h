#pragma once

#include "link/clock.h"
#include "link/serial_port.h"
#include "simulator/simulated_line.h"

namespace tambrix {

/// A serial port with a simulated board at the other end of its cable. Time is the clock's, so
/// on a virtual clock whole sessions run in no time. An unplugged line is a missing device when
/// the port is opened and a silent board while it is open.
class SimulatedSerialPort : public SerialPort
{
public:
    /// Fault numbers that configure() and open() return.
    static constexpr int kDeviceMissing = 1;
    static constexpr int kAlreadyOpen = 2;
    static constexpr int kBadPortNumber = 3;
    static constexpr int kBadSettings = 4;

    /// `line` and `clock` must outlive the port. The clock's scale is the board's.
    SimulatedSerialPort(SimulatedLine& line, Clock& clock);

    std::optional<PortFault> configure(int portNumber, std::string_view settings) override;
    std::optional<PortFault> open() override;
    void close() override;
    bool isOpen() const override { return m_open; }
    std::size_t bytesWaiting() override;
    std::uint8_t readByte() override;
    void writeByte(std::uint8_t byte) override;
    void discardInput() override;
    bool waitForInput(Duration limit) override;

    /// The port number last configured; 1 before that.
    int portNumber() const { return m_portNumber; }

    /// The speed last configured, bits a second; 9600 before that.
    int speed() const { return m_speed; }

private:
    PortFault fault(int number, std::string description) const;

    SimulatedLine& m_line;
    Clock& m_clock;
    int m_portNumber = 1;
    int m_speed = 9600;
    bool m_open = false;
};

} // namespace tambrix
