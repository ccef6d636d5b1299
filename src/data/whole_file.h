#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tambrix {

/// The file's whole content. Nothing when it cannot be read to its end, is no plain file, or is
/// longer than `longest` bytes, in which case none of it is read.
std::optional<QByteArray> readWholeFile(const QString& path, qint64 longest);

/// Why `readWholeFile()` gave nothing, to stand behind a colon: "it is too long (4096 MiB)".
QString whyUnread(const QString& path, qint64 longest);

/// Puts `content` in place of the file, whole or not at all: a failure, a crash or a power cut at
/// any moment leaves the old file as it was. Returns the reason when it failed.
std::optional<QString> writeWholeFile(const QString& path, const QByteArray& content);

} // namespace tambrix
