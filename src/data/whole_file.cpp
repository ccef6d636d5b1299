#include "data/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace tambrix {

std::optional<QByteArray> readWholeFile(const QString& path, qint64 longest)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const qint64 size = file.size();
    if (size > longest)
        return std::nullopt;
    QByteArray content = file.read(size);
    return content.size() == size ? std::optional(std::move(content)) : std::nullopt;
}

std::optional<QString> writeWholeFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(false); // writing over the old file could leave half of the new
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
    return written ? std::nullopt : std::optional(file.errorString());
}

} // namespace tambrix
