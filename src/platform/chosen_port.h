#pragma once

#include "platform/connection.h"
#include "platform/qt_serial_port.h"
#include "platform/tcp_port.h"

namespace tambrix {

/// The real port: the serial port or the serial server that the connection names. Another
/// connection is used from the next `configure()` on.
class ChosenPort : public SerialPort
{
public:
    explicit ChosenPort(Clock& clock) : m_serial(clock, {}), m_server(clock) {}

    void use(const Connection& connection);

    /// The adapter that the connection means has got another name: it is opened by `device` until
    /// another connection is used.
    void standIn(const QString& device) { m_standIn = device; }

    /// The serial device last configured; empty before that.
    QString deviceName() const { return m_serial.deviceName(); }

    /// Starts to connect to the serial server, when it has not, and returns whether the connection
    /// stands.
    bool beginToConnect();

    /// The connection to be used next.
    const Connection& connection() const { return m_next; }

    std::optional<PortFault> configure(int portNumber, std::string_view settings) override;
    std::optional<PortFault> open() override { return m_port->open(); }
    void close() override { m_port->close(); }
    bool isOpen() const override { return m_port->isOpen(); }
    std::size_t bytesWaiting() override { return m_port->bytesWaiting(); }
    std::uint8_t readByte() override { return m_port->readByte(); }
    void writeByte(std::uint8_t byte) override { m_port->writeByte(byte); }
    void discardInput() override { m_port->discardInput(); }
    bool waitForInput(Duration limit) override { return m_port->waitForInput(limit); }

private:
    QtSerialPort m_serial;
    TcpPort m_server;
    DevicePort* m_port = &m_serial;
    Connection m_next;
    QString m_standIn;
};

} // namespace tambrix
