#pragma once

#include "commands/exit_code.h"

#include <QString>

namespace tambrix {

/// Ends a command: thrown where it cannot go on, caught once in `runCommandLine`, which prints
/// `text` as one line on the error stream.
struct Failure
{
    ExitCode code = ExitCode::Usage;
    QString text;
};

} // namespace tambrix
