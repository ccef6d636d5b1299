#pragma once

#include <QString>

class QWidget;

namespace tambrix {

/// Keeps the place and size of a window in an INI file from one run to the next.
class WindowMemory
{
public:
    /// Puts the window where it was last, when the file knows and a screen is still there.
    WindowMemory(QWidget& window, const QString& iniFile);

    /// Notes where it is now.
    ~WindowMemory();

    WindowMemory(const WindowMemory&) = delete;
    WindowMemory& operator=(const WindowMemory&) = delete;

private:
    QWidget& m_window;
    QString m_iniFile;
};

} // namespace tambrix
