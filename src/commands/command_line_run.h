#pragma once

#include <QStringList>

namespace tambrix {

/// Carries out what the arguments ask for (the program's own name first) and returns the exit
/// code. Needs a QCoreApplication.
int runCommandLine(const QStringList& arguments);

} // namespace tambrix
