#pragma once

#include "simulator/board_memory.h"

namespace tambrix {

/// The memory of a board that has been at work for a while: set-up parameters, 100 labels inside
/// the ranges the controller accepts, label 0 in work, a program and its identity, one fault in
/// the history. Always the same bytes.
BoardMemory makeBoardImage();

} // namespace tambrix
