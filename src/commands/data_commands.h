#pragma once

#include "commands/command.h"

namespace tambrix {

/// upload: from the controller into a set-up file.
Command uploadCommand();
/// download: from a set-up file into the controller, after a backup, verified.
Command downloadCommand();
/// compare: two data sets.
Command compareCommand();

} // namespace tambrix
