#include "data/own_file.h"

#include "data/whole_file.h"

#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QStorageInfo>

namespace tambrix {

namespace {

constexpr qint64 kLongestSettings = 1 << 20; // bytes
constexpr qint64 kRoomForSettings = 1 << 16; // bytes; they take some KB

QString linkText(const QString& path)
{
    return QStringLiteral("%1 is a link, and this program writes through none of its own accord.")
        .arg(QDir::toNativeSeparators(path));
}

/// Qt's settings are written only where there is room: it would put an empty file in place of the
/// old one where the disk is full.
bool hasRoom(const QString& folder)
{
    const QStorageInfo disk(folder);
    return !disk.isValid() || disk.bytesAvailable() < 0 || disk.bytesAvailable() > kRoomForSettings;
}

} // namespace

bool isLink(const QString& path)
{
    const QFileInfo place(path);
    return place.isSymbolicLink() || place.isJunction();
}

std::optional<QString> makeOwnFolder(const QDir& folder)
{
    const QString path = folder.path();
    if (isLink(path))
        return linkText(path);
    if (QFileInfo::exists(path) && !QFileInfo(path).isDir())
        return QStringLiteral("%1 is a file, not a folder.").arg(path);
    if (!folder.mkpath(QStringLiteral(".")))
        return QStringLiteral("The folder %1 cannot be made.").arg(path);
    return std::nullopt;
}

std::optional<QString> writeOwnFile(const QString& path, const QByteArray& content)
{
    if (isLink(path))
        return linkText(path);
    QDir().mkpath(QFileInfo(path).path());
    return writeWholeFile(path, content);
}

bool removeNamelessLock(QLockFile& lock)
{
    qint64 process = 0;
    QString computer;
    QString program;
    return !lock.getLockInfo(&process, &computer, &program) && lock.removeStaleLockFile();
}

QVariant ownSetting(const QString& iniFile, const QString& key)
{
    const QFileInfo file(iniFile);
    const bool plain = file.isFile() && file.size() <= kLongestSettings;
    return plain ? QSettings(iniFile, QSettings::IniFormat).value(key) : QVariant();
}

std::optional<QString> keepOwnSetting(const QString& iniFile, const QString& key,
                                      const QVariant& value)
{
    const QFileInfo file(iniFile);
    if (isLink(iniFile))
        return linkText(iniFile);
    if (file.exists() && !file.isFile())
        return QStringLiteral("%1 is no plain file.").arg(iniFile);
    QDir().mkpath(file.path());
    if (!hasRoom(file.path()))
        return QStringLiteral("There is no room on the disk for %1.").arg(iniFile);
    QLockFile lock(iniFile + QStringLiteral(".lock")); // Qt's own, which it waits for
    removeNamelessLock(lock);
    QSettings settings(iniFile, QSettings::IniFormat);
    if (value.isValid())
        settings.setValue(key, value);
    else
        settings.remove(key);
    settings.sync();
    return settings.status() == QSettings::NoError
               ? std::nullopt
               : std::optional(QStringLiteral("%1 cannot be written.").arg(iniFile));
}

} // namespace tambrix
