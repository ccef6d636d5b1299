#pragma once

#include "commands/command.h"

namespace tambrix {

/// convert: a data set from one file form into another.
Command convertCommand();
/// find: which set-up files match an expression.
Command findCommand();

} // namespace tambrix
