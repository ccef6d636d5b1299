#pragma once

#include "platform/device_port.h"

#include <QTcpSocket>

namespace tambrix {

/// The controller's line behind a serial server: a raw TCP connection on which every byte is a
/// byte of the line. Speed and parity are set at the server. Once the connection is lost the port
/// stays open and silent until `close()`.
class TcpPort : public DevicePort
{
    Q_OBJECT

public:
    explicit TcpPort(Clock& clock);

    /// The server of the next `open()`: name or address, and TCP port 1 to 65535.
    void setServer(const QString& host, quint16 port);

    /// Starts to connect, when it has not, and returns at once; `open()` takes over what is under
    /// way. `close()` gives it up.
    void beginToConnect();

    /// Whether an `open()` would succeed at once.
    bool connected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }

    /// Does nothing: the line settings are the server's.
    std::optional<PortFault> configure(int portNumber, std::string_view settings) override;

    /// Connects within 3 s, while the window goes on painting. The fault says in a sentence whether
    /// the host is unknown, refuses, hangs up or does not answer.
    std::optional<PortFault> open() override;

private:
    bool waitUntilConnected();
    bool hangsUp();
    PortFault fault() const;
    PortFault fault(QAbstractSocket::SocketError error, const QString& sentence) const;
    QIODevice& device() override { return m_socket; }
    void closeDevice() override { m_socket.abort(); }
    void sendNow() override { m_socket.flush(); }
    void dropInput() override;

    QTcpSocket m_socket;
    QString m_host;
    quint16 m_port = 0;
};

} // namespace tambrix
