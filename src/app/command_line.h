#pragma once

#include "app/appearance.h"

#include <QSize>
#include <QString>
#include <QStringList>

namespace tambrix {

/// Exit code of a command line that cannot be followed.
inline constexpr int kUsageError = 2;

/// What the command line asks for.
struct CommandLine
{
    bool simulate = false; ///< the built-in controller behind the serial port
    QString serialDevice;  ///< device or "tcp://HOST:PORT", whatever the settings say; may be empty
    QString programFolder; ///< folder with Support and Help; empty: the executable's own
    QString setupFile;     ///< set-up file to open at start, absolute; empty: none
    Theme theme = Theme::Desktop;
    QSize demoSize;     ///< of the demonstration's main window; empty: as it is
    QString demoFolder; ///< where the unattended demonstration puts its pictures; empty: none

    QString text;     ///< what to print instead of starting: help, version or what is wrong
    int exitCode = 0; ///< with `text`: 0, or 2 for a wrong command line
};

/// Reads the arguments (the program's own name first). Needs a QCoreApplication.
CommandLine parseCommandLine(const QStringList& arguments);

} // namespace tambrix
