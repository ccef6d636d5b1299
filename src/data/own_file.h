#pragma once

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QVariant>

#include <optional>

class QLockFile;

namespace tambrix {

/// What the program keeps of its own accord stays where it belongs: where a link stands in the
/// place of such a file or folder, nothing is written through it. A file that the user names may
/// be a link.

/// Whether a link stands there, also one that leads nowhere.
bool isLink(const QString& path);

/// Makes the folder where there is none. Returns why there is none to write to.
std::optional<QString> makeOwnFolder(const QDir& folder);

/// writeWholeFile() for such a file; its folder is made when it is missing.
std::optional<QString> writeOwnFile(const QString& path, const QByteArray& content);

/// A program that is killed while it makes its lock file leaves one that names nobody, and others
/// would wait for it. Removes such a one, unless somebody has it open; returns whether it did.
bool removeNamelessLock(QLockFile& lock);

/// What an .ini file keeps under `key`; nothing where there is no plain file of some size.
QVariant ownSetting(const QString& iniFile, const QString& key);

/// Keeps `value` there; an invalid one is forgotten. Returns the reason when it failed.
std::optional<QString> keepOwnSetting(const QString& iniFile, const QString& key,
                                      const QVariant& value);

} // namespace tambrix
