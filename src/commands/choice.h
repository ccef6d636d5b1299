#pragma once

#include "commands/command.h"

namespace tambrix {

/// Which part of the data set a command is about.
struct Choice
{
    bool setup = false;
    bool shift = false;
    bool labels = false;
    int firstLabel = 0; ///< 0 to 99
    int lastLabel = 99; ///< 0 to 99

    /// Whether entry `slot` (0 to 1613) is of it. The label number W686 goes with everything only:
    /// written alone it would leave the old label running.
    bool contains(int slot) const;
    bool everything() const { return setup && shift && labels; }
};

/// --group and --labels.
QList<QCommandLineOption> choiceOptions();

/// Reads them; `group` is taken when --group is not given: "setup", "shift", "labels", "all", or
/// "setup+labels". Throws Failure (exit code 2) for what is none of these.
Choice readChoice(const QCommandLineParser& parser, const QString& group);

} // namespace tambrix
