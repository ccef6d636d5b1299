#pragma once

#include <QDir>
#include <QString>

#include <optional>

namespace tambrix {

/// Where the controller is reached.
struct Connection
{
    enum class Kind {
        CommPort, ///< the serial port that Comm Port's number means
        Device,   ///< a serial device by its name
        Server    ///< a serial server in the network
    };

    Kind kind = Kind::CommPort;
    QString device;      ///< "/dev/ttyUSB0", "COM12"
    QString host;        ///< name or address
    quint16 tcpPort = 0; ///< 1 to 65535

    bool operator==(const Connection&) const = default;
};

/// Reads "" (Comm Port's number), a device, or "tcp://HOST:PORT". Nothing when it begins as an
/// address of a server and is none.
std::optional<Connection> connectionFromText(const QString& text);

/// The same text back.
QString connectionText(const Connection& connection);

/// The file below the data root that keeps the connection.
QString connectionFile(const QDir& dataRoot);

/// The connection kept in `file`; Comm Port's number while there is none that can be read.
Connection readConnection(const QString& file);

/// Keeps the connection, one line of text. Returns why it could not, or nothing.
std::optional<QString> writeConnection(const QString& file, const Connection& connection);

} // namespace tambrix
