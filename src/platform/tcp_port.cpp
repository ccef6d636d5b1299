#include "platform/tcp_port.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace tambrix {

namespace {

constexpr int kConnectWait = 3000; // ms
/// A server whose line is in use takes the connection, may say so, and hangs up at once.
constexpr int kHangUpWait = 50; // ms
/// The board never speaks unasked: more than this is a server that floods, and is left where it
/// is, so that it costs no memory here.
constexpr qint64 kReadBuffer = 4096; // bytes
constexpr int kMostDropped = 16;     // read buffers

} // namespace

TcpPort::TcpPort(Clock& clock) : DevicePort(clock)
{
    m_socket.setReadBufferSize(kReadBuffer);
    connect(&m_socket, &QTcpSocket::disconnected, this, [this] { lose(); });
    connect(&m_socket, &QTcpSocket::connected, this, [this] {
        m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1); // one byte is one packet
        m_socket.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    });
}

void TcpPort::setServer(const QString& host, quint16 port)
{
    if (host == m_host && port == m_port)
        return;
    close();
    m_host = host;
    m_port = port;
}

void TcpPort::beginToConnect()
{
    if (m_socket.state() == QAbstractSocket::UnconnectedState)
        m_socket.connectToHost(m_host, m_port);
}

std::optional<PortFault> TcpPort::configure(int /*portNumber*/, std::string_view /*settings*/)
{
    return std::nullopt;
}

std::optional<PortFault> TcpPort::open()
{
    beginToConnect();
    if (!waitUntilConnected()) {
        const PortFault reason = fault();
        m_socket.abort();
        return reason;
    }
    if (hangsUp())
        return fault(QAbstractSocket::RemoteHostClosedError,
                     tr("The server has closed the connection at once. Its line may be in use by "
                        "another program."));
    begin();
    return std::nullopt;
}

/// Qt's own wait for this would not end while a server floods.
bool TcpPort::hangsUp()
{
    QElapsedTimer waited;
    waited.start();
    for (qint64 left = kHangUpWait; left > 0 && m_socket.waitForReadyRead(static_cast<int>(left));
         left = kHangUpWait - waited.elapsed())
        m_socket.readAll();
    return !connected();
}

/// Also the look-up of the name counts, which Qt's own blocking wait would not limit.
bool TcpPort::waitUntilConnected()
{
    QEventLoop loop;
    QTimer limit;
    limit.setSingleShot(true);
    connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
    connect(&m_socket, &QTcpSocket::connected, &loop, &QEventLoop::quit);
    connect(&m_socket, &QTcpSocket::errorOccurred, &loop, &QEventLoop::quit);
    limit.start(kConnectWait);
    if (!connected() && m_socket.state() != QAbstractSocket::UnconnectedState)
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return connected();
}

PortFault TcpPort::fault() const
{
    switch (m_socket.error()) {
    case QAbstractSocket::HostNotFoundError:
        return fault(m_socket.error(), tr("The host %1 is unknown. Check the name, or enter the "
                                          "address in numbers.")
                                           .arg(m_host));
    case QAbstractSocket::ConnectionRefusedError:
        return fault(m_socket.error(),
                     tr("%1 refuses the connection: nothing serves port %2 there. "
                        "Check the port number and the server's settings.")
                         .arg(m_host)
                         .arg(m_port));
    case QAbstractSocket::UnknownSocketError: // none so far: the time is up
    case QAbstractSocket::SocketTimeoutError:
        return fault(QAbstractSocket::SocketTimeoutError,
                     tr("%1 does not answer. Check the address, the network cable and the server's "
                        "power.")
                         .arg(m_host));
    default:
        return fault(m_socket.error(), m_socket.errorString());
    }
}

PortFault TcpPort::fault(QAbstractSocket::SocketError error, const QString& sentence) const
{
    return {error, QStringLiteral("tcp://%1:%2").arg(m_host).arg(m_port).toStdString(),
            sentence.toStdString()};
}

/// Also what has arrived at this machine and was not taken from the system yet.
void TcpPort::dropInput()
{
    for (int i = 0; i < kMostDropped; ++i) {
        m_socket.readAll();
        if (!m_socket.waitForReadyRead(0))
            return;
    }
}

} // namespace tambrix
