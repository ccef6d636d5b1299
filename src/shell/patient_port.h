#pragma once

#include "link/serial_port.h"

namespace tambrix {

/// A serial port whose long waits do not look like a crash: after the first 0.1 s the wait cursor
/// shows and the window goes on painting, with the user's input kept out.
class PatientPort : public SerialPort
{
public:
    PatientPort(SerialPort& port, Clock& clock) : m_port(port), m_clock(clock) {}

    std::optional<PortFault> configure(int portNumber, std::string_view settings) override
    {
        return m_port.configure(portNumber, settings);
    }
    std::optional<PortFault> open() override { return m_port.open(); }
    void close() override { m_port.close(); }
    bool isOpen() const override { return m_port.isOpen(); }
    std::size_t bytesWaiting() override { return m_port.bytesWaiting(); }
    std::uint8_t readByte() override { return m_port.readByte(); }
    void writeByte(std::uint8_t byte) override { m_port.writeByte(byte); }
    void discardInput() override { m_port.discardInput(); }
    bool waitForInput(Duration limit) override;

private:
    bool waitVisibly(Duration end);

    SerialPort& m_port;
    Clock& m_clock;
};

} // namespace tambrix
