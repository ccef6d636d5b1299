#include "shell/recent_files.h"

#include "data/own_file.h"

#include <QDir>

namespace tambrix {

namespace {

const QString kKey = QStringLiteral("RecentFiles");

} // namespace

void RecentFiles::keepIn(const QString& iniFile)
{
    m_iniFile = iniFile;
    m_paths = ownSetting(m_iniFile, kKey).toStringList().mid(0, kMost);
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
        keepOwnSetting(m_iniFile, kKey, m_paths);
    emit changed();
}

} // namespace tambrix
