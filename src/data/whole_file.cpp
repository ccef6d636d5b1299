#include "data/whole_file.h"

#include "link/bounded_file.h"

#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>

namespace tambrix {

std::optional<QByteArray> readWholeFile(const QString& path, qint64 longest)
{
    const auto content =
        readBounded(QFileInfo(path).filesystemFilePath(), static_cast<std::uintmax_t>(longest));
    return content ? std::optional(QByteArray::fromStdString(*content)) : std::nullopt;
}

QString whyUnread(const QString& path, qint64 longest)
{
    const QFileInfo file(path);
    if (!file.exists())
        return QStringLiteral("it is not there");
    if (!file.isFile())
        return QStringLiteral("it is no plain file");
    if (file.size() > longest)
        return QStringLiteral("it is far too long (%1)")
            .arg(QLocale::c().formattedDataSize(file.size()));
    return QStringLiteral("it cannot be read");
}

std::optional<QString> writeWholeFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(false); // writing over the old file could leave half of the new
    // commit() alone overlooks that its last bytes found no room
    const bool written = file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
                         file.flush() && file.commit();
    return written ? std::nullopt : std::optional(file.errorString());
}

} // namespace tambrix
