#include "app/window_memory.h"

#include <QSettings>
#include <QWidget>

namespace tambrix {

namespace {

const QString kKey = QStringLiteral("MainWindowGeometry");

} // namespace

WindowMemory::WindowMemory(QWidget& window, const QString& iniFile)
    : m_window(window), m_iniFile(iniFile)
{
    m_window.restoreGeometry(QSettings(m_iniFile, QSettings::IniFormat).value(kKey).toByteArray());
}

WindowMemory::~WindowMemory()
{
    QSettings(m_iniFile, QSettings::IniFormat).setValue(kKey, m_window.saveGeometry());
}

} // namespace tambrix
