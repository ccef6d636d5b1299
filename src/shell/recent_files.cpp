#include "shell/recent_files.h"

#include <QDir>
#include <QSettings>

namespace tambrix {

namespace {

const QString kKey = QStringLiteral("RecentFiles");

} // namespace

void RecentFiles::keepIn(const QString& iniFile)
{
    m_iniFile = iniFile;
    m_paths = QSettings(m_iniFile, QSettings::IniFormat).value(kKey).toStringList().mid(0, kMost);
    emit changed();
}

void RecentFiles::add(const QString& path)
{
    const QString file = QDir::cleanPath(path);
    m_paths.removeAll(file);
    m_paths.prepend(file);
    m_paths = m_paths.mid(0, kMost);
    store();
}

void RecentFiles::remove(const QString& path)
{
    m_paths.removeAll(path);
    store();
}

void RecentFiles::store()
{
    if (!m_iniFile.isEmpty())
        QSettings(m_iniFile, QSettings::IniFormat).setValue(kKey, m_paths);
    emit changed();
}

} // namespace tambrix
