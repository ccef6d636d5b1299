#include "app/window_memory.h"

#include "data/own_file.h"

#include <QWidget>

namespace tambrix {

namespace {

const QString kKey = QStringLiteral("MainWindowGeometry");

} // namespace

WindowMemory::WindowMemory(QWidget& window, const QString& iniFile)
    : m_window(window), m_iniFile(iniFile)
{
    m_window.restoreGeometry(ownSetting(m_iniFile, kKey).toByteArray());
}

WindowMemory::~WindowMemory()
{
    keepOwnSetting(m_iniFile, kKey, m_window.saveGeometry());
}

} // namespace tambrix
