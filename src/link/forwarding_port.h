#pragma once

#include "link/serial_port.h"

namespace tambrix {

/// A port in front of another port: passes every call on. Who wants to hear or change something on
/// the way overrides that call alone.
class ForwardingPort : public SerialPort
{
public:
    explicit ForwardingPort(SerialPort& port) : m_port(port) {}

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
    void rest() override { m_port.rest(); }
    void discardInput() override { m_port.discardInput(); }
    bool waitForInput(Duration limit) override { return m_port.waitForInput(limit); }

protected:
    SerialPort& port() const { return m_port; }

private:
    SerialPort& m_port;
};

} // namespace tambrix
