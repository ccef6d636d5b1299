#pragma once

#include <cstdio>

namespace tambrix {

/// Whether a person is watching what is written to `stream`: it is a terminal or console window.
bool isTerminal(std::FILE* stream);

} // namespace tambrix
