#pragma once

#include <cstdio>

namespace tambrix {

/// Whether a person is watching what is written to `stream`: it is a terminal or console window.
bool isTerminal(std::FILE* stream);

/// While one lives, the console window shows UTF-8, which is what the program writes. Terminals of
/// other systems show it anyway.
class Utf8Console
{
public:
    Utf8Console();
    ~Utf8Console(); // NOLINT(performance-trivially-destructible): not on Windows
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

private:
    [[maybe_unused]] unsigned m_before = 0; ///< the console's code page; 0: there is no console
};

} // namespace tambrix
