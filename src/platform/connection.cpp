#include "platform/connection.h"

#include "link/bounded_file.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QUrl>

namespace tambrix {

namespace {

const QString kScheme = QStringLiteral("tcp");
constexpr std::uintmax_t kLongestLine = 1024; // bytes

std::optional<Connection> serverFromText(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    const QUrl bare = url.adjusted(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery |
                                   QUrl::RemoveFragment);
    if (!url.isValid() || url != bare || url.host().isEmpty() || url.port(0) < 1)
        return std::nullopt;
    return Connection{Connection::Kind::Server, {}, url.host(), static_cast<quint16>(url.port())};
}

} // namespace

std::optional<Connection> connectionFromText(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.startsWith(kScheme + QStringLiteral("://"), Qt::CaseInsensitive))
        return serverFromText(trimmed);
    if (trimmed.isEmpty())
        return Connection{};
    return Connection{Connection::Kind::Device, trimmed, {}, 0};
}

QString connectionText(const Connection& connection)
{
    if (connection.kind != Connection::Kind::Server)
        return connection.device;
    QUrl url;
    url.setScheme(kScheme);
    url.setHost(connection.host);
    url.setPort(connection.tcpPort);
    return url.toString();
}

QString connectionFile(const QDir& dataRoot)
{
    return dataRoot.filePath(QStringLiteral("Connection.cfg"));
}

Connection readConnection(const QString& file)
{
    const auto text = readStart(QFileInfo(file).filesystemFilePath(), kLongestLine);
    return connectionFromText(QString::fromStdString(text.value_or("")).section(u'\n', 0, 0))
        .value_or(Connection{});
}

std::optional<QString> writeConnection(const QString& file, const Connection& connection)
{
    if (QFileInfo(file).isSymbolicLink())
        return QStringLiteral("%1 is a link.").arg(file);
    QDir().mkpath(QFileInfo(file).path());
    QSaveFile stored(file);
    const QByteArray line = connectionText(connection).toUtf8() + "\r\n";
    // commit() alone overlooks that its last bytes found no room
    const bool written = stored.open(QIODevice::WriteOnly) && stored.write(line) == line.size() &&
                         stored.flush() && stored.commit();
    return written ? std::nullopt : std::optional(stored.errorString());
}

} // namespace tambrix
