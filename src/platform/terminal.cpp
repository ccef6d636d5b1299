#include "platform/terminal.h"

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace tambrix {

#ifdef _WIN32

bool isTerminal(std::FILE* stream)
{
    return _isatty(_fileno(stream)) != 0;
}

Utf8Console::Utf8Console() : m_before(GetConsoleOutputCP())
{
    if (m_before != 0)
        SetConsoleOutputCP(CP_UTF8);
}

Utf8Console::~Utf8Console()
{
    if (m_before != 0)
        SetConsoleOutputCP(m_before);
}

#else

bool isTerminal(std::FILE* stream)
{
    return isatty(fileno(stream)) != 0;
}

Utf8Console::Utf8Console() = default;
Utf8Console::~Utf8Console() = default;

#endif

} // namespace tambrix
